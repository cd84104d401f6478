#include "SamplePacific.h"

#include <algorithm>
#include <cmath>

namespace sample {
namespace {

// Longitude of the western shore: Asia retreats to the east going north, Australia bulges.
double westernShore(double lat) {
  return lat >= 0.0 ? 119.0 + 0.012 * lat * lat : 119.0 + 33.0 * bump(lat + 25.0, 0.0, 12.0);
}

// Longitude of the eastern shore, along both Americas.
double easternShore(double lat) {
  return lat >= 0.0 ? 283.0 - 70.0 * lat / std::sqrt(lat * lat + 2025.0)
                    : 279.0 - 10.0 * lat / std::sqrt(lat * lat + 81.0);
}

// From the water of the depths to that of the surface, by the thermocline's depth and width.
double above(double depth, double thermocline, double width) {
  return rise((thermocline - depth) / width) / rise(thermocline / width);
}

// Depth of the thermocline. Its slope along the equator lies furthest to the east in February.
double thermoclineDepth(double lon, double lat, int step) {
  const double slope = rise((lon - 208.0 + 16.0 * season(step)) / 30.0);
  const double equator = 190.0 - 150.0 * slope;
  const double gyres = 170.0 * (bump(lat - 25.0, 0.0, 13.0) + bump(lat + 25.0, 0.0, 13.0));
  const double ridge = -45.0 * bump(lat - 8.0, 0.0, 3.0);
  return std::max(25.0, equator + gyres * (1.0 - (lon - 120.0) / 300.0) + ridge);
}

double surfaceTemperature(double lon, double lat, int step) {
  const double q = lat / 38.0;
  const double zonal = 1.5 + 27.5 / (1.0 + q * q * q * q);
  const double summer = 3.2 * season(step) * lat / std::sqrt(lat * lat + 625.0);
  const double tongue = -6.0 * rise((lon - 228.0 + 10.0 * season(step)) / 26.0);
  return zonal + summer + tongue * bump(lat + 1.0, 0.0, 6.0);
}

}  // namespace

SamplePacific::SamplePacific() {
  title = "A Pacific, monthly means";
  longitudes = evenly(120.0, 2.0, 91);
  latitudes = evenly(-60.0, 2.0, 61);
  depths = {0,   10,  20,  30,  40,  50,  60,  75,  90,  105, 120, 140, 160,
            180, 200, 225, 250, 275, 300, 330, 360, 400, 440, 490, 540, 600};
}

double SamplePacific::bottomDepth(double lon, double lat) const {
  const double west = lon - westernShore(lat), east = easternShore(lat) - lon;
  if (west <= 0.0 || east <= 0.0) return 0.0;
  const double shore = 40.0 + std::min(14.0 * west * west, 45.0 * east * east);
  const double x = lon - 181.0, y = lat + 1.0;
  const double risingFloor = 130.0 + 75.0 * std::sqrt(x * x + y * y);
  return std::min({shore, risingFloor, 5000.0});
}

WaterColumn SamplePacific::water(double lon, double lat, int step,
                                 std::span<const double> wanted) const {
  const double thermocline = thermoclineDepth(lon, lat, step);
  const double width = 22.0 + 0.22 * thermocline;
  const double q = lat / 48.0;
  const double warmth = 1.0 / (1.0 + q * q * q * q);
  const auto deep = [warmth](double depth) {
    return 2.0 + 6.5 * warmth * rise((520.0 - depth) / 240.0);
  };
  const double surface = surfaceTemperature(lon, lat, step) - deep(0.0);
  const double salty = 1.3 * (bump(lat - 26.0, 0.0, 11.0) + 1.2 * bump(lat + 20.0, 0.0, 12.0));
  const double rain =
      1.1 * rise((170.0 - lon) / 22.0) * bump(lat, 0.0, 14.0) + 0.7 * bump(lat - 8.0, 0.0, 5.0);
  WaterColumn water;
  for (const double depth : wanted) {
    const double upper = above(depth, thermocline, width);
    water.temperature.push_back(deep(depth) + surface * upper);
    water.salinity.push_back(34.55 + salty * upper - rain * above(depth, 0.4 * thermocline, 14.0) +
                             0.15 * bump(depth - thermocline, 0.0, 90.0));
  }
  water.seaLevel = (thermocline - 150.0) / 250.0;
  return water;
}

}  // namespace sample
