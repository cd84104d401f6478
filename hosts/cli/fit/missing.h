#pragma once

#include <vector>

#include "header/header.h"

// What the control takes for missing.
namespace cli::fit {

// The number that the control believes to stand for a missing value: the first one of the last
// attribute that begins with "missing" or "_fill", without regard to case; 0 when it knows none.
double controlMissing(const Attributes& attributes);

// The control would take this value for missing: within one percent of that number or beyond it.
bool takenForMissing(double value, double missing);

// The number is one of those that stand for missing values. Large ones need not be the same to the
// last bit: attributes and values are often of different precision.
bool standsForMissing(double value, const std::vector<double>& missing);

// What the copies have for missing where the data had nothing suitable: the library's own.
inline constexpr double kNewFill = static_cast<double>(NC_FILL_FLOAT);

}  // namespace cli::fit
