#include "netcdf/acceptance.h"

#include <algorithm>
#include <array>
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

// Which numbers of a type count, as 1 or 0. Whole numbers do from `low` to `high`, both included.
struct WholeCounts {
  int32_t low, high;
  int32_t operator()(int32_t number) const {
    return (number >= low ? 1 : 0) & (number <= high ? 1 : 0);
  }
};
struct SingleCounts {
  float side, bound;
  int32_t always;
  int32_t operator()(float number) const { return (number * side < bound ? 1 : 0) | always; }
};

template <class Whole>
WholeCounts wholeCounts(const Acceptance& accepted) {
  WholeCounts counts{std::numeric_limits<Whole>::min(), std::numeric_limits<Whole>::max()};
  if (accepted.takesAll()) return counts;
  if (std::isnan(accepted.bound())) return {1, 0};
  const double last = accepted.side() * (std::ceil(accepted.bound()) - 1);
  if (accepted.side() > 0) {
    if (last < counts.high) counts.high = static_cast<int32_t>(last);
  } else {
    if (last > counts.low) counts.low = static_cast<int32_t>(last);
  }
  return counts;
}

// Whether every finite number of a type becomes a single. A conversion never turns back on its way
// from the least to the largest number, so that these two decide.
template <class Number>
bool allBecomeSingles(const Conversion& how) {
  using Limits = std::numeric_limits<Number>;
  return std::isfinite(how.scale) && std::isfinite(how.offset) &&
         !isBeyondSingles(converted(static_cast<double>(Limits::lowest()), how)) &&
         !isBeyondSingles(converted(static_cast<double>(Limits::max()), how));
}

// For numbers that all become singles, but for infinite ones.
template <class Number, class Counts>
int32_t convertSafely(std::span<const Number> raw, const Conversion& how, Counts counts,
                      float* values) {
  return inSteps(raw, values, [=](std::span<const Number> few, float* to) {
    for (std::size_t i = 0; i < few.size(); ++i) {
      to[i] = static_cast<float>(converted(static_cast<double>(few[i]), how));
    }
    int32_t counted = 0;
    for (std::size_t i = 0; i < few.size(); ++i) {
      const int32_t one = counts(few[i]);
      to[i] = one != 0 ? to[i] : how.replacement;
      counted += one;
    }
    if constexpr (std::numeric_limits<Number>::has_infinity) {
      int32_t beyond = 0;
      for (std::size_t i = 0; i < few.size(); ++i) {
        beyond += std::fabs(to[i]) > std::numeric_limits<float>::max() ? 1 : 0;
      }
      if (beyond > 0) util::raise(util::kOverflow);
    }
    return counted;
  });
}

// For numbers of which some may become values beyond the single range.
int32_t convertChecked(std::span<const double> raw, const Conversion& how,
                       const Acceptance& accepted, float* values) {
  const double side = accepted.side();
  const double bound = accepted.bound();
  const bool takesAll = accepted.takesAll();
  const auto replacement = static_cast<double>(how.replacement);
  return inSteps(raw, values, [=](std::span<const double> few, float* to) {
    std::array<double, kTogether> value;
    for (std::size_t i = 0; i < few.size(); ++i) value[i] = converted(few[i], how);
    auto counted = static_cast<int64_t>(few.size());
    if (!takesAll) {
      counted = 0;
      for (std::size_t i = 0; i < few.size(); ++i) counted += few[i] * side < bound ? 1 : 0;
      for (std::size_t i = 0; i < few.size(); ++i) {
        value[i] = few[i] * side < bound ? value[i] : replacement;
      }
    }
    int64_t beyond = 0;
    for (std::size_t i = 0; i < few.size(); ++i) beyond += isBeyondSingles(value[i]) ? 1 : 0;
    if (beyond > 0) util::raise(util::kOverflow);
    for (std::size_t i = 0; i < few.size(); ++i) to[i] = static_cast<float>(value[i]);
    return static_cast<int32_t>(counted);
  });
}

// Numbers of a type in which `counts` says which of them are accepted.
template <class Number, class Counts>
int32_t convertNarrow(std::span<const Number> raw, const Conversion& how,
                      const Acceptance& accepted, Counts counts, float* values) {
  if (allBecomeSingles<Number>(how)) return convertSafely(raw, how, counts, values);
  std::array<double, kTogether> wide;
  return inSteps(raw, values, [&](std::span<const Number> few, float* to) {
    std::ranges::copy(few, wide.begin());
    return convertChecked(std::span(wide).first(few.size()), how, accepted, to);
  });
}

template <class Whole>
int32_t convertWhole(std::span<const Whole> raw, const Conversion& how, float* values) {
  const Acceptance accepted(how.threshold);
  return convertNarrow(raw, how, accepted, wholeCounts<Whole>(accepted), values);
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
  const SingleCounts counts{static_cast<float>(accepted.side()), accepted.single(),
                            accepted.takesAll() ? 1 : 0};
  return convertNarrow(raw, how, accepted, counts, values);
}
int32_t convert(std::span<const double> raw, const Conversion& how, float* values) {
  return convertChecked(raw, how, Acceptance(how.threshold), values);
}

}  // namespace ocxNetNc
