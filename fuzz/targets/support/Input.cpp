#include "targets/support/Input.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <type_traits>

namespace fuzz {
namespace {

constexpr int32_t kMostLong = std::numeric_limits<int32_t>::max();
constexpr int32_t kLeastLong = std::numeric_limits<int32_t>::min();
constexpr std::array kIntegers = {-1,         -2,        10,     11,     12,     15,
                                  16,         20,        32,     45,     64,     100,
                                  127,        128,       255,    256,    1000,   32766,
                                  32767,      32768,     -32768, -32769, 65535,  65536,
                                  0xFFFFFF,   0x1000000, -100,   kLeastLong, kMostLong,
                                  kMostLong - 1};

constexpr float kMost = std::numeric_limits<float>::max();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr std::array kSingles = {
    -1.0F,   -2.0F,  0.5F,     -0.5F,   1.5F,   2.5F,    10.0F,     12.0F,
    45.0F,   90.0F,  -90.0F,   180.0F,  -180.0F, 359.9F, 360.0F,    -360.0F,
    0.1F,    -0.0F,  1E-7F,    -1E-7F,  1E-38F, 1E-45F,  1E7F,      16777216.0F,
    -1E7F,   1E10F,  -1E10F,   32767.0F, 32768.0F, -32769.0F, 2147483648.0F, -2147483648.0F,
    1E20F,   -1E20F, 1E34F,    1E35F,   -1E35F, kMost,   -kMost,    kInfinity,
    -kInfinity, std::numeric_limits<float>::quiet_NaN(), 3.4E37F, -3.4E37F};
constexpr std::array kReals = {1E300, -1E300, std::numeric_limits<double>::max(), 5E-324,
                               2958465.999999, -657434.0, 86400.0, 3.5E38};

bool isDigit(uint8_t byte) { return byte >= '0' && byte <= '9'; }

template <class Number>
Number numberOf(std::string_view text) {
  const double value = std::strtod(std::string(text).c_str(), nullptr);
  if constexpr (std::is_same_v<Number, double>) return value;
  constexpr double most = static_cast<double>(std::numeric_limits<Number>::max());
  constexpr double least = static_cast<double>(std::numeric_limits<Number>::lowest());
  return value >= least && value <= most ? static_cast<Number>(value) : Number{};
}

}  // namespace

std::string_view Input::take(std::size_t count) {
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(taken.size());
  return taken;
}

uint8_t Input::byte() {
  const std::string_view taken = take(1);
  return taken.empty() ? uint8_t{0} : static_cast<uint8_t>(taken[0]);
}

int32_t Input::choice(int32_t count) {
  const uint8_t got = byte();
  if (isDigit(got)) return (got - '0') % count;
  if (got >= 'a' && got <= 'z') return (got - 'a') % count;
  return got % count;
}

std::string_view Input::upTo(char end, std::size_t most) {
  const std::string_view taken = take(std::min(rest_.find(end), most));
  if (!rest_.empty() && rest_.front() == end) take(1);
  return taken;
}

template <class Number>
Number Input::bits() {
  const std::string_view taken = take(sizeof(Number));
  Number number{};
  std::memcpy(&number, taken.data(), taken.size());
  return number;
}

int32_t Input::integer() {
  const uint8_t got = byte();
  if (isDigit(got)) return got - '0';
  if (got == '=') return numberOf<int32_t>(upTo(';', 24));
  if (got == '#') return bits<int32_t>();
  return kIntegers[got % kIntegers.size()];
}

float Input::single() {
  const uint8_t got = byte();
  if (isDigit(got)) return static_cast<float>(got - '0');
  if (got == '=') return numberOf<float>(upTo(';', 24));
  if (got == '#') return bits<float>();
  return kSingles[got % kSingles.size()];
}

double Input::real() {
  const uint8_t got = byte();
  if (isDigit(got)) return got - '0';
  if (got == '=') return numberOf<double>(upTo(';', 24));
  if (got == '#') return bits<double>();
  const std::size_t place = got % (kSingles.size() + kReals.size());
  return place < kSingles.size() ? static_cast<double>(kSingles[place])
                                 : kReals[place - kSingles.size()];
}

std::string Input::text(std::size_t most) { return std::string(upTo('\n', most)); }

std::string_view Input::rest() { return take(rest_.size()); }

}  // namespace fuzz
