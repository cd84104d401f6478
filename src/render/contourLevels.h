#pragma once

#include <cstdint>
#include <optional>

#include "render/contourField.h"

namespace OcxContr {

struct ValueRange {
  float smallest = 1E20F, largest = -1E20F;
};

// The extremes of the values that count; as constructed when there are none.
ValueRange scanRange(const ContourField& field);

// The contour levels of one drawing, upwards: whole multiples of the interval within the data and
// the plotting range.
class ContourLevels {
 public:
  // An interval that is not smaller than the plotting range is replaced by a negative tenth of
  // the data range; only its magnitude counts. An interval of 0, or one that is no finite
  // number, gives no level.
  ContourLevels(ValueRange scanned, float& interval, float rangeMaximum, float rangeMinimum);

  // The next level; none when the range is passed. The counter has 16 bits: more levels than it
  // counts, or one beyond the single range, are run-time error 6.
  std::optional<float> next();

 private:
  ValueRange range_;
  double step_ = 0, start_ = 0;
  int16_t counter_ = -1;
};

}  // namespace OcxContr
