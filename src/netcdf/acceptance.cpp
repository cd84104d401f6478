#include "netcdf/acceptance.h"

#include <cmath>
#include <limits>

#include "util/RuntimeError.h"

namespace ocxNetNc {
namespace {

// The first magnitude that rounds to a single beyond the largest one.
constexpr double kSingleLimit = 0x1.ffffffp127;

// A number as a comparison in single precision sees it: beyond the range it is infinite.
float comparable(double value) {
  if (value >= kSingleLimit) return std::numeric_limits<float>::infinity();
  if (value <= -kSingleLimit) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

// The least double that is not below a single from 0 on when both are compared as singles.
double leastAsLarge(float single) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  if (single == infinity) return kSingleLimit;
  const float below = std::nextafter(single, -infinity);
  // Numbers halfway between two singles go to one or the other.
  const double halfway = (static_cast<double>(below) + static_cast<double>(single)) / 2;
  if (comparable(halfway) >= single) return halfway;
  return std::nextafter(halfway, std::numeric_limits<double>::infinity());
}

// Made of selections alone, so that the compiler takes several values at a time.
template <class Number, class Counts>
int32_t convertWhere(std::span<const Number> raw, const Conversion& how, float* values,
                     const Counts& counts) {
  const auto replacement = static_cast<double>(how.replacement);
  int32_t counted = 0;
  int32_t beyond = 0;
  const std::size_t size = raw.size();
  for (std::size_t i = 0; i < size; ++i) {
    const auto number = static_cast<double>(raw[i]);
    const bool is = counts(number);
    const double scaled = number * how.scale + how.offset;
    const double value = is ? scaled : replacement;
    const bool fits = !(std::fabs(value) >= kSingleLimit);
    values[i] = static_cast<float>(fits ? value : 0.0);
    counted += is ? 1 : 0;
    beyond |= fits ? 0 : 1;
  }
  if (beyond != 0) util::raise(util::kOverflow);
  return counted;
}

template <class Number>
int32_t convertAll(std::span<const Number> raw, const Conversion& how, float* values) {
  const Acceptance accepted(how.threshold);
  if (accepted.takesAll()) {
    return convertWhere(raw, how, values, [](double) { return true; });
  }
  return convertWhere(raw, how, values,
                      [side = accepted.side(), bound = accepted.bound()](double number) {
                        return number * side < bound;
                      });
}

}  // namespace

Acceptance::Acceptance(double threshold) {
  if (threshold == 0) return;
  side_ = threshold < 0 ? -1 : 1;
  bound_ = leastAsLarge(comparable(threshold * side_));
}

int32_t convert(std::span<const short> raw, const Conversion& how, float* values) {
  return convertAll(raw, how, values);
}
int32_t convert(std::span<const int> raw, const Conversion& how, float* values) {
  return convertAll(raw, how, values);
}
int32_t convert(std::span<const float> raw, const Conversion& how, float* values) {
  return convertAll(raw, how, values);
}
int32_t convert(std::span<const double> raw, const Conversion& how, float* values) {
  return convertAll(raw, how, values);
}

}  // namespace ocxNetNc
