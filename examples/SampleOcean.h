#pragma once

#include "SampleSea.h"

namespace sample {

// A western boundary ocean on an eighth of a degree: a coast in the west with its shelf and
// slope, eddies that drift to the west, a seamount, a main thermocline, and a mixed layer that
// deepens in winter.
class SampleOcean : public Sea {
 public:
  SampleOcean();
  double bottomDepth(double lon, double lat) const override;
  WaterColumn water(double lon, double lat, int step,
                    std::span<const double> depths) const override;
};

}  // namespace sample
