#include <cmath>

#include "render/plotFrame.h"
#include "util/exactMath.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

// Beyond the coarse bands, a fifth of the power of ten below the range (extra 0) or above it
// (extra 1). The logarithm has no tolerance: the quotient for 1000000 lies just below 6.
float decadeStep(float range, int32_t extra) {
  const double decade =
      std::floor(util::naturalLog(static_cast<double>(range)) / util::naturalLog(10.0));
  return util::storeSingle(util::powerOfTen(util::roundToLong(decade) + extra) / 5.0);
}

float step(float range, int32_t extra) {
  const float r = std::fabs(range);
  if (r == 0.0F || std::isnan(r)) return r;
  if (r < 1.0F) return decadeStep(r, extra);
  if (r < 5.0F) return 1.0F;
  if (r < 10.0F) return 2.0F;
  if (r < 20.0F) return 5.0F;
  if (r < 100.0F) return 10.0F;
  if (r < 500.0F) return 20.0F;
  if (r < 1000.0F) return 100.0F;
  if (r < 10000.0F) return 500.0F;
  return decadeStep(r, extra);
}

}  // namespace

float DistanceStep(float range) { return step(range, 0); }

float DepthStep(float range) { return step(range, 1); }

}  // namespace KelvaneMain
