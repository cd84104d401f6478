#pragma once

#include "SampleSea.h"

namespace sample {

// A Pacific on two degrees, from 120 east across the date line to 60 west (120 to 300): a warm
// pool in the west and a cold tongue in the east, between them a thermocline that rises to the
// east and swings with the year, gyres on both sides, a rise of the sea floor at the date line.
class SamplePacific : public Sea {
 public:
  SamplePacific();
  double bottomDepth(double lon, double lat) const override;
  WaterColumn water(double lon, double lat, int step,
                    std::span<const double> depths) const override;
};

}  // namespace sample
