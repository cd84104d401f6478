#pragma once

#include <array>

namespace sample {

// The grid of the made-up ocean: an eighth of a degree, levels closer together near the surface.
inline constexpr int kLongitudes = 121;
inline constexpr int kLatitudes = 81;
inline constexpr int kSteps = 12;  // the months of one year
inline constexpr std::array<double, 32> kDepths = {
    0,   10,  20,  30,  40,  50,  60,  70,  85,  100, 115, 130, 145, 160, 180, 200,
    220, 240, 265, 290, 320, 350, 385, 420, 460, 500, 550, 600, 660, 720, 790, 860};
inline constexpr int kLevels = static_cast<int>(kDepths.size());

double longitude(int i);    // i from 0, degrees east
double latitude(int j);     // j from 0, degrees north
double midMonth(int step);  // step from 0, days since the start of 2020

// Depth of the sea floor in metres; 0 or less on land.
double bottomDepth(double lon, double lat);

// One column of water in one month. Everything is made of additions, divisions and square
// roots, which are rounded the same way everywhere, so that the data set is the same on every
// machine.
class WaterColumn {
 public:
  WaterColumn(double lon, double lat, int step);

  double temperature(double depth) const;  // degrees Celsius
  double salinity(double depth) const;     // practical salinity
  double seaLevel() const;                 // metres

 private:
  double season_;       // -1 in the coldest month, 1 in the warmest
  double north_;        // 0 at the southern edge of the grid, 1 at the northern
  double coast_;        // 1 on the inner shelf, 0 far from it
  double thermocline_;  // depth of the middle of the main thermocline
  double mixedLayer_;   // depth of the mixed layer
};

}  // namespace sample
