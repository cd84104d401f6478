#include "util/rounding.h"

#include <cmath>
#include <limits>

#include "util/RuntimeError.h"

namespace util {
namespace {

// Halves to even without the processor's rounding mode, which belongs to the host. Most values
// are far inside of the integers' range, where the integer part is at hand in one step.
double nearest(double value) {
  if (std::fabs(value) < 1e9) {
    const auto whole = static_cast<int32_t>(value);
    const double rest = std::fabs(value - whole);
    const bool away = rest > 0.5 || (rest == 0.5 && whole % 2 != 0);
    return away ? whole + (value < 0.0 ? -1.0 : 1.0) : whole;
  }
  const double below = std::floor(value);
  const double rest = value - below;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(below, 2.0) != 0.0)) return below + 1.0;
  return below;
}

// An integral double as an integer; NaN fails both comparisons.
template <class Integer>
Integer store(double whole) {
  constexpr double low = std::numeric_limits<Integer>::min();
  constexpr double high = std::numeric_limits<Integer>::max();
  if (!(whole >= low && whole <= high)) raise(kOverflow);
  return static_cast<Integer>(whole);
}

template <class Integer>
Integer storeExact(int64_t value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    raise(kOverflow);
  }
  return static_cast<Integer>(value);
}

}  // namespace

int32_t roundToLong(double value) { return store<int32_t>(nearest(value)); }
int16_t roundToInteger(double value) { return store<int16_t>(nearest(value)); }
int32_t truncateToLong(double value) { return store<int32_t>(std::trunc(value)); }

float storeSingle(double value) {
  // The first magnitude that rounds to a single beyond the largest one.
  constexpr double limit = 0x1.ffffffp127;
  if (std::fabs(value) >= limit) raise(kOverflow);
  return static_cast<float>(value);
}

int32_t addLong(int32_t a, int32_t b) { return storeExact<int32_t>(int64_t{a} + b); }
int32_t multiplyLong(int32_t a, int32_t b) { return storeExact<int32_t>(int64_t{a} * b); }
int16_t addInteger(int16_t a, int16_t b) { return storeExact<int16_t>(int64_t{a} + b); }

}  // namespace util
