#include "render/contourLevels.h"

#include <cmath>

#include "util/rounding.h"

namespace OcxContr {

using util::asDouble;

ValueRange scanRange(const ContourField& field) {
  ValueRange range;
  for (int32_t k = 1; k <= field.nlevels; ++k) {
    for (int32_t c = 1; c <= field.ncols; ++c) {
      if (!field.counts(c, k)) continue;
      const float value = field.value(c, k);
      if (value > range.largest) range.largest = value;
      if (value < range.smallest) range.smallest = value;
    }
  }
  return range;
}

ContourLevels::ContourLevels(ValueRange scanned, float& interval, float rangeMaximum,
                             float rangeMinimum)
    : range_(scanned) {
  if (std::fabs(asDouble(interval)) >= asDouble(rangeMaximum) - asDouble(rangeMinimum)) {
    interval = util::storeSingle((asDouble(range_.smallest) - asDouble(range_.largest)) / 10.0);
  } else {
    if (range_.largest > rangeMaximum) range_.largest = rangeMaximum;
    if (range_.smallest < rangeMinimum) range_.smallest = rangeMinimum;
  }
  step_ = std::fabs(asDouble(interval));
  start_ = std::trunc(asDouble(range_.smallest) / step_) * step_;
}

std::optional<float> ContourLevels::next() {
  // A field of one value everywhere has the interval 0; it has no lines and is no failure.
  if (!(step_ > 0.0) || !std::isfinite(start_)) return std::nullopt;
  for (;;) {
    counter_ = util::addInteger(counter_, 1);
    const float level = util::storeSingle(step_ * counter_ + start_);
    if (level < range_.smallest) continue;
    if (level > range_.largest) return std::nullopt;
    return level;
  }
}

}  // namespace OcxContr
