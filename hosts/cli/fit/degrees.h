#pragma once

#include <vector>

// Longitudes on their circle.
namespace cli::fit {

// The same longitude in west..west + 360, without the upper end; one a hair below west is west.
double eastOf(double west, double lon);

// The span of longitudes that leaves out their widest gap: from west (as some of them says it) to
// east. All around when no gap is wider than twice the widest of the others; then -180 or 0 to 360
// more.
struct Span {
  double west = 0, east = 0;
  bool whole = false;
};
Span spanOf(const std::vector<double>& lons);

}  // namespace cli::fit
