#include "SampleSea.h"

#include <array>
#include <cmath>

namespace sample {

double midMonth(int step) {
  constexpr std::array<double, kSteps> kMiddles = {15.5,  45.0,  75.5,  106.0, 136.5, 167.0,
                                                   197.5, 228.5, 259.0, 289.5, 320.0, 350.5};
  return kMiddles.at(static_cast<std::size_t>(step));
}

std::vector<double> evenly(double first, double step, int count) {
  std::vector<double> values;
  for (int k = 0; k < count; ++k) values.push_back(first + step * k);
  return values;
}

double rise(double x) { return 0.5 * (1.0 + x / std::sqrt(1.0 + x * x)); }

double bump(double dx, double dy, double radius) {
  const double q = 1.0 + (dx * dx + dy * dy) / (radius * radius);
  return 1.0 / (q * q);
}

double season(int step) {
  constexpr double kHalfRootThree = 0.8660254037844386;
  constexpr std::array<double, kSteps> kSeasons = {
      -kHalfRootThree, -1.0, -kHalfRootThree, -0.5, 0.0, 0.5,
      kHalfRootThree,  1.0,  kHalfRootThree,  0.5,  0.0, -0.5};
  return kSeasons.at(static_cast<std::size_t>(step));
}

}  // namespace sample
