#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

// Random numbers that are the same on every machine: a counter, scrambled (splitmix64).
class Random {
 public:
  explicit Random(uint64_t seed) : state_(seed) {}

  uint64_t next() {
    state_ += 0x9E3779B97F4A7C15;
    uint64_t mixed = state_;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return mixed ^ mixed >> 31;
  }
  // 0..limit - 1; limit above 0.
  std::size_t below(std::size_t limit) {
    return static_cast<std::size_t>(next() % static_cast<uint64_t>(limit));
  }
  // True in one of so many cases.
  bool oneIn(std::size_t cases) { return below(cases) == 0; }

 private:
  uint64_t state_;
};

// A number of a text, the same on every machine.
inline uint64_t scrambled(std::string_view text) {
  uint64_t number = 0;
  for (const char letter : text) {
    number = Random(number ^ static_cast<unsigned char>(letter)).next();
  }
  return number;
}

}  // namespace fuzz
