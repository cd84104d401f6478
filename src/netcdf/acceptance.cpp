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

// A few values on their way. Each step goes over all of them without a branch: the compiler then
// takes several values at a time.
class Block {
 public:
  static constexpr std::size_t kMost = 64;

  template <class Number>
  Block(std::span<const Number> raw, double side, const Conversion& how) : size_(raw.size()) {
    const double scale = how.scale;
    const double offset = how.offset;
    for (std::size_t i = 0; i < size_; ++i) {
      const auto number = static_cast<double>(raw[i]);
      sided_[i] = number * side;
      value_[i] = number * scale + offset;
    }
  }

  // Replaces what is not below the bound.
  void select(double bound, double replacement) {
    for (std::size_t i = 0; i < size_; ++i) {
      value_[i] = sided_[i] < bound ? value_[i] : replacement;
    }
    for (std::size_t i = 0; i < size_; ++i) flags_[i] = sided_[i] < bound ? 1.0 : 0.0;
  }
  void selectAll() { flags_.fill(1.0); }

  // Stores the values; how many of them count.
  int32_t store(float* values) {
    // Beyond what all values together can count.
    constexpr double kBeyond = 2 * kMost;
    for (std::size_t i = 0; i < size_; ++i) {
      flags_[i] += std::fabs(value_[i]) >= kSingleLimit ? kBeyond : 0.0;
    }
    int32_t counted = 0;
    for (std::size_t i = 0; i < size_; ++i) counted += static_cast<int32_t>(flags_[i]);
    if (counted > static_cast<int32_t>(kMost)) util::raise(util::kOverflow);
    for (std::size_t i = 0; i < size_; ++i) values[i] = static_cast<float>(value_[i]);
    return counted;
  }

 private:
  std::size_t size_;
  std::array<double, kMost> sided_, value_, flags_;
};

template <class Number>
int32_t convertAll(std::span<const Number> raw, const Conversion& how, float* values) {
  const Acceptance accepted(how.threshold);
  const auto replacement = static_cast<double>(how.replacement);
  int32_t counted = 0;
  while (!raw.empty()) {
    const std::span<const Number> few = raw.first(std::min(raw.size(), Block::kMost));
    Block block(few, accepted.side(), how);
    if (accepted.takesAll()) {
      block.selectAll();
    } else {
      block.select(accepted.bound(), replacement);
    }
    counted += block.store(values);
    values += few.size();
    raw = raw.subspan(few.size());
  }
  return counted;
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
