#pragma once

#include <span>
#include <string>
#include <vector>

namespace sample {

inline constexpr int kSteps = 12;  // the months of one year

double midMonth(int step);  // step from 0, days since the start of 2020

// The water below one place in one month, one value a level from the surface down.
struct WaterColumn {
  std::vector<double> temperature;  // degrees Celsius
  std::vector<double> salinity;     // practical salinity
  double seaLevel = 0;              // metres
};

// A made-up sea on its grid. Everything is made of additions, multiplications, divisions and
// square roots, which are rounded the same way everywhere, so that a data set is the same on
// every machine.
class Sea {
 public:
  virtual ~Sea() = default;
  Sea(const Sea&) = delete;
  Sea& operator=(const Sea&) = delete;

  // Depth of the sea floor in metres; 0 or less on land.
  virtual double bottomDepth(double lon, double lat) const = 0;
  // The water at the depths given; step from 0.
  virtual WaterColumn water(double lon, double lat, int step,
                            std::span<const double> depths) const = 0;

  std::string title;
  std::vector<double> longitudes;  // degrees east, ascending
  std::vector<double> latitudes;   // degrees north, ascending
  std::vector<double> depths;      // metres, downwards from 0

 protected:
  Sea() = default;
};

// count numbers from first, step apart.
std::vector<double> evenly(double first, double step, int count);

// From 0 far below zero to 1 far above it, a half at zero.
double rise(double x);

// 1 at the centre, falling to a quarter one radius away.
double bump(double dx, double dy, double radius);

// cos(2 pi (month - August) / 12) of the month: -1 in February, 1 in August.
double season(int step);

}  // namespace sample
