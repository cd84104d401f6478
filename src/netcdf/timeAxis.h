#pragma once

#include <cstdint>

#include "util/calendar.h"

namespace ocxNetNc {

// First stage of SetGeoWindow: the values, units, origin and labels of the time axis. Skipped
// (1) without a time axis. 1, or -1 with the reason in LastError.
int32_t LoadTimeAxis();

// Second stage: the level depths. The same results.
int32_t LoadVerticalAxis();

// The calendar date of time step index (1..ntime); date zero when no date can be formed: a
// season, month or unknown unit, an index outside the stored values, a sum outside the
// calendar.
util::Date TimeValueToDate(int32_t index);

}  // namespace ocxNetNc
