#pragma once

#include <string>

namespace cost {

// A data set made for these tests: a regional grid of 600 x 400 x 50, "classic" or with one
// deflated chunk a level in "levels", and "long" for sections of 20,000 columns by 50 levels.
// One time step each, so that advancing reads the same step again.
inline std::string dataFile(const std::string& name) { return COST_DATA "/" + name + ".nc"; }

}  // namespace cost
