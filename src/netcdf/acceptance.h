#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Which raw values count, and what becomes of them.
namespace ocxNetNc {

// The rule by which a raw value counts as a value: below a threshold above 0, above a threshold
// below 0, in single precision, where numbers beyond its range are infinite. Threshold 0 takes
// every value, any other threshold no NaN.
class Acceptance {
 public:
  explicit Acceptance(double threshold);

  bool takesAll() const { return side_ == 0; }
  // Singles are compared through the doubles that round to them: raw counts where
  // raw x side() < bound(). For a raw value that is a single, single() is as good as bound().
  double side() const { return side_; }
  double bound() const { return bound_; }
  float single() const { return single_; }
  bool operator()(double raw) const { return takesAll() || raw * side_ < bound_; }

 private:
  double side_ = 0;  // -1, 0 or 1
  double bound_ = 0;
  float single_ = 0;
};

// How a raw value becomes a value in physical units: raw x scale + offset, in double.
struct Conversion {
  double threshold, scale, offset;
  float replacement;  // where a raw value does not count
};

// Converts raw into values, of the same length. Result: how many counted. A value beyond the
// single range is run-time error 6.
int32_t convert(std::span<const short> raw, const Conversion& how, float* values);
int32_t convert(std::span<const int> raw, const Conversion& how, float* values);
int32_t convert(std::span<const float> raw, const Conversion& how, float* values);
int32_t convert(std::span<const double> raw, const Conversion& how, float* values);

}  // namespace ocxNetNc
