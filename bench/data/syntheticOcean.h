#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "dataSets.h"

namespace bench {

// Temperatures with a thermocline, moving eddies, a little noise and a sea floor: smooth and rough
// enough to compress as model output does. The same everywhere, whatever the machine's random
// numbers.
class SyntheticOcean {
 public:
  static constexpr int16_t kFill = -32768;
  static constexpr double kScale = 0.001, kOffset = 15.0;  // value = raw x scale + offset

  explicit SyntheticOcean(const DataSet& set);

  std::vector<float> longitudes() const;
  std::vector<float> latitudes() const;
  const std::vector<float>& depths() const { return depths_; }

  // Makes a time step (from 0) the current one.
  void go(std::size_t step);
  // The packed values of a level (from 0) of the current step, latitude by latitude.
  void level(std::size_t k, std::vector<int16_t>& raw) const;

 private:
  double eddies(double lon, double lat, std::size_t step) const;

  DataSet set_;
  std::vector<float> depths_;
  std::vector<float> warmth_;    // of each place at the surface, above the deepest water
  std::vector<int16_t> bottom_;  // number of levels with water at each place
  uint32_t step_ = 0;
};

}  // namespace bench
