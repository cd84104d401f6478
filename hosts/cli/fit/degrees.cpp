#include "fit/degrees.h"

#include <algorithm>
#include <cmath>

namespace cli::fit {

double eastOf(double west, double lon) {
  constexpr double kHair = 1e-5;
  double distance = std::fmod(lon - west, 360.0);
  if (distance < 0) distance += 360.0;
  if (distance > 360.0 - kHair) distance = 0;
  // Without detours where there is nothing to turn: the number itself.
  return std::fabs(west + distance - lon) < kHair ? lon : west + distance;
}

Span spanOf(const std::vector<double>& lons) {
  std::vector<double> places;
  places.reserve(lons.size());
  bool negative = false;
  for (const double lon : lons) {
    if (!std::isfinite(lon)) continue;
    places.push_back(eastOf(0.0, lon));
    negative = negative || lon < 0;
  }
  if (places.empty()) return {};
  std::ranges::sort(places);
  double widest = places.front() + 360.0 - places.back(), second = 0, from = places.front();
  for (std::size_t at = 1; at < places.size(); ++at) {
    const double gap = places[at] - places[at - 1];
    if (gap > widest) {
      second = widest;
      widest = gap;
      from = places[at];
    } else {
      second = std::max(second, gap);
    }
  }
  if (places.size() > 2 && widest <= 2 * second + 1e-9) {
    const double west = negative ? -180.0 : 0.0;
    return {west, west + 360.0, true};
  }
  const double width = 360.0 - widest;
  const double west = negative && from >= 180.0 ? from - 360.0 : from;
  return {west, west + width, false};
}

}  // namespace cli::fit
