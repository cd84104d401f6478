#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace KelvaneMain {

// Finds the extremes of values that come piece by piece; what is no value does not count.
class Extremes {
 public:
  Extremes();
  void take(std::span<const float> values);

  // The extremes of everything that was taken, which stands in `all` in the order it came: of zeros
  // with different signs the last one stays. Without a value the maximum is kMissingValue and the
  // minimum its opposite.
  float maximum(std::span<const float> all) const;
  float minimum(std::span<const float> all) const;

 private:
  // Every n-th value has its own extremes, so that the processor finds several at a time.
  static constexpr std::size_t kLanes = 32;
  std::array<float, kLanes> most_, least_;
};

}  // namespace KelvaneMain
