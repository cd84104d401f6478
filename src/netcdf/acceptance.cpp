#include "netcdf/acceptance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

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

// How many values are converted together. Each step goes over all of them without a branch: the
// compiler then takes several values at a time.
constexpr std::size_t kTogether = 64;

// Hands a few values at a time, and the room for them, to convertFew(raw, values), which says how
// many counted.
template <class Number, class Few>
int32_t inSteps(std::span<const Number> raw, float* values, const Few& convertFew) {
  int32_t counted = 0;
  while (!raw.empty()) {
    const std::span<const Number> few = raw.first(std::min(raw.size(), kTogether));
    counted += convertFew(few, values);
    values += few.size();
    raw = raw.subspan(few.size());
  }
  return counted;
}

double converted(double raw, const Conversion& how) { return raw * how.scale + how.offset; }

bool isBeyondSingles(double value) { return std::fabs(value) >= kSingleLimit; }

// Whole numbers count from `low` to `high`, both included.
struct WholeRange {
  int32_t low, high;
};

template <class Number>
WholeRange wholeRange(const Acceptance& accepted) {
  WholeRange range{std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()};
  if (accepted.takesAll()) return range;
  if (std::isnan(accepted.bound())) return {1, 0};
  const double last = accepted.side() * (std::ceil(accepted.bound()) - 1);
  if (accepted.side() > 0) {
    if (last < range.high) range.high = static_cast<int32_t>(last);
  } else {
    if (last > range.low) range.low = static_cast<int32_t>(last);
  }
  return range;
}

// Whether every number of a type becomes a single. A conversion never turns back on its way from
// the least to the largest number, so that these two decide.
template <class Number>
bool allBecomeSingles(const Conversion& how) {
  using Limits = std::numeric_limits<Number>;
  return std::isfinite(how.scale) && std::isfinite(how.offset) &&
         !isBeyondSingles(converted(static_cast<double>(Limits::min()), how)) &&
         !isBeyondSingles(converted(static_cast<double>(Limits::max()), how));
}

template <class Number>
int32_t convertSafely(std::span<const Number> raw, const Conversion& how, WholeRange range,
                      float* values) {
  return inSteps(raw, values, [=](std::span<const Number> few, float* to) {
    for (std::size_t i = 0; i < few.size(); ++i) {
      to[i] = static_cast<float>(converted(static_cast<double>(few[i]), how));
    }
    int32_t counted = 0;
    for (std::size_t i = 0; i < few.size(); ++i) {
      const int32_t number = few[i];
      const int32_t counts = (number >= range.low ? 1 : 0) & (number <= range.high ? 1 : 0);
      to[i] = counts != 0 ? to[i] : how.replacement;
      counted += counts;
    }
    return counted;
  });
}

// Values of which some may be beyond the single range.
class CheckedValues {
 public:
  template <class Number>
  CheckedValues(std::span<const Number> raw, Conversion how) : size_(raw.size()) {
    for (std::size_t i = 0; i < size_; ++i) {
      value_[i] = converted(static_cast<double>(raw[i]), how);
    }
  }

  // Replaces those whose raw x side is not below the bound; how many are.
  template <class Number>
  int32_t select(std::span<const Number> raw, Number side, Number bound, double replacement) {
    using Flag = std::conditional_t<sizeof(Number) == sizeof(int64_t), int64_t, int32_t>;
    for (std::size_t i = 0; i < size_; ++i) {
      value_[i] = raw[i] * side < bound ? value_[i] : replacement;
    }
    Flag counted = 0;
    for (std::size_t i = 0; i < size_; ++i) counted += raw[i] * side < bound ? 1 : 0;
    return static_cast<int32_t>(counted);
  }

  void store(float* values) const {
    int64_t beyond = 0;
    for (std::size_t i = 0; i < size_; ++i) beyond += isBeyondSingles(value_[i]) ? 1 : 0;
    if (beyond > 0) util::raise(util::kOverflow);
    for (std::size_t i = 0; i < size_; ++i) values[i] = static_cast<float>(value_[i]);
  }

 private:
  std::size_t size_;
  std::array<double, kTogether> value_;
};

// `side` and `bound` are those of the acceptance for raw numbers of this type.
template <class Number>
int32_t convertChecked(std::span<const Number> raw, const Conversion& how, bool takesAll,
                       Number side, Number bound, float* values) {
  const auto replacement = static_cast<double>(how.replacement);
  return inSteps(raw, values, [&](std::span<const Number> few, float* to) {
    CheckedValues checked(few, how);
    const int32_t counted =
        takesAll ? static_cast<int32_t>(few.size()) : checked.select(few, side, bound, replacement);
    checked.store(to);
    return counted;
  });
}

template <class Number>
int32_t convertWhole(std::span<const Number> raw, const Conversion& how, float* values) {
  const Acceptance accepted(how.threshold);
  if (allBecomeSingles<Number>(how)) {
    return convertSafely(raw, how, wholeRange<Number>(accepted), values);
  }
  std::array<double, kTogether> wide;
  return inSteps(raw, values, [&](std::span<const Number> few, float* to) {
    std::ranges::copy(few, wide.begin());
    return convertChecked(std::span<const double>(wide).first(few.size()), how,
                          accepted.takesAll(), accepted.side(), accepted.bound(), to);
  });
}

}  // namespace

Acceptance::Acceptance(double threshold) {
  if (threshold == 0) return;
  side_ = threshold < 0 ? -1 : 1;
  single_ = comparable(threshold * side_);
  bound_ = leastAsLarge(single_);
}

int32_t convert(std::span<const short> raw, const Conversion& how, float* values) {
  return convertWhole(raw, how, values);
}
int32_t convert(std::span<const int> raw, const Conversion& how, float* values) {
  return convertWhole(raw, how, values);
}
int32_t convert(std::span<const float> raw, const Conversion& how, float* values) {
  const Acceptance accepted(how.threshold);
  return convertChecked(raw, how, accepted.takesAll(), static_cast<float>(accepted.side()),
                        accepted.single(), values);
}
int32_t convert(std::span<const double> raw, const Conversion& how, float* values) {
  const Acceptance accepted(how.threshold);
  return convertChecked(raw, how, accepted.takesAll(), accepted.side(), accepted.bound(), values);
}

}  // namespace ocxNetNc
