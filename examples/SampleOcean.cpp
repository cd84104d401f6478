#include "SampleOcean.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sample {
namespace {

struct Eddy {
  double lon, lat;    // where its centre is in the middle of the year
  double radius;      // degrees
  double depression;  // how far it pushes the thermocline down, metres
};

// Warm eddies push the thermocline down, cold ones lift it. The first two lie on the path that
// the documentation draws.
constexpr std::array<Eddy, 6> kEddies = {{{288.15, 33.2, 0.78, 185.0},
                                          {290.0, 33.95, 0.60, -155.0},
                                          {293.5, 31.8, 1.00, -110.0},
                                          {295.8, 34.4, 0.90, 120.0},
                                          {290.2, 37.4, 0.80, 130.0},
                                          {295.2, 38.2, 0.70, -90.0}}};
constexpr double kDriftPerMonth = -0.11;  // degrees; eddies drift to the west

// Degrees of longitude east of the coast, which bends to the west going north.
double offshore(double lon, double lat) {
  const double north = lat - 30.0;
  return lon - (285.9 - 0.30 * north + 0.012 * north * north);
}

// One column of water in one month.
class Column {
 public:
  Column(double lon, double lat, int step);

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

Column::Column(double lon, double lat, int step)
    : season_(season(step)),
      north_((lat - 30.0) / 10.0),
      coast_(rise((1.3 - offshore(lon, lat)) / 0.35)),
      thermocline_(440.0 - 90.0 * north_ - 230.0 * coast_),
      mixedLayer_(70.0 - 48.0 * season_ - 12.0 * coast_) {
  const double drift = kDriftPerMonth * (step - 6);
  for (const Eddy& eddy : kEddies) {
    // The shelf is too shallow for eddies.
    thermocline_ += (1.0 - coast_) * eddy.depression *
                    bump((lon - eddy.lon - drift) * 0.83, lat - eddy.lat, eddy.radius);
  }
}

double Column::temperature(double depth) const {
  const double deep = 3.6 + 1.2 * rise((700.0 - depth) / 220.0);
  const double main = (9.2 - 1.6 * north_) * rise((thermocline_ - depth) / 85.0);
  const double upper = (4.2 - 1.8 * north_ - coast_) * rise((0.46 * thermocline_ - depth) / 42.0);
  const double surface =
      (5.4 + 3.8 * season_ - 2.2 * north_ - 1.2 * coast_) * rise((mixedLayer_ - depth) / 11.0);
  return deep + main + upper + surface;
}

double Column::salinity(double depth) const {
  const double main = 1.25 * rise((thermocline_ - depth) / 95.0);
  // Evaporation makes the water below the mixed layer the saltiest, rivers freshen the shelf.
  const double core = 0.55 * bump((depth - 0.42 * thermocline_) / 100.0, 0.0, 1.0);
  const double fresh =
      (2.6 * coast_ * coast_ + 0.20 + 0.12 * season_) * rise((mixedLayer_ - depth) / 16.0);
  return 34.95 + main + core - fresh;
}

double Column::seaLevel() const { return (thermocline_ - 380.0) / 420.0 + 0.05 * season_; }

}  // namespace

SampleOcean::SampleOcean() {
  title = "A western boundary ocean, monthly means";
  longitudes = evenly(284.0, 0.125, 121);
  latitudes = evenly(30.0, 0.125, 81);
  depths = {0,   10,  20,  30,  40,  50,  60,  70,  85,  100, 115, 130, 145, 160, 180, 200,
            220, 240, 265, 290, 320, 350, 385, 420, 460, 500, 550, 600, 660, 720, 790, 860};
}

double SampleOcean::bottomDepth(double lon, double lat) const {
  const double sea = offshore(lon, lat);
  if (sea <= 0.0) return 0.0;
  const double shelf = 12.0 + 70.0 * sea;
  const double slope = std::max(0.0, sea - 1.2);
  const double deep = shelf + 3200.0 * slope * slope / (3.0 + slope * slope);
  const double x = (lon - 291.3) * 0.83, y = lat - 34.5;
  const double seamount = 300.0 + 1300.0 * std::sqrt(x * x + y * y);
  return std::min(deep, seamount);
}

WaterColumn SampleOcean::water(double lon, double lat, int step,
                               std::span<const double> wanted) const {
  const Column column(lon, lat, step);
  WaterColumn water;
  for (const double depth : wanted) {
    water.temperature.push_back(column.temperature(depth));
    water.salinity.push_back(column.salinity(depth));
  }
  water.seaLevel = column.seaLevel();
  return water;
}

}  // namespace sample
