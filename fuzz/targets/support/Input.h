#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

// Takes the bytes of an input apart into calls and arguments. Past the end everything is 0 or
// empty. Most bytes stand for a number or a choice each, and printable ones for likely ones, so
// that seeds can be written by hand.
class Input {
 public:
  Input(const uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}
  explicit Input(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }
  uint8_t byte();
  bool coin() { return (byte() & 1) != 0; }
  // 0..count-1. The letters from "a" on, and the digits, count from 0.
  int32_t choice(int32_t count);

  // A number. A digit stands for itself, "=" for the decimal number up to the next ";", "#" for
  // the bits of the next bytes, any other byte for a number that is likely to be trouble: limits,
  // infinities, marks of missing values.
  int32_t integer();
  float single();
  double real();

  // The bytes up to the next line feed, which is taken too, at most so many.
  std::string text(std::size_t most = 256);
  // All that is left.
  std::string_view rest();

 private:
  std::string_view take(std::size_t count);
  std::string_view upTo(char end, std::size_t most);
  template <class Number>
  Number bits();
  std::string_view rest_;
};

}  // namespace fuzz
