#pragma once

#include "fit/Request.h"

namespace cli {

// Writes a copy of a data set that the control can draw, and says what it changed on standard
// output. Throws Failure with the reason when there can be none; then no file is left.
void fitDataSet(const fit::Request& request);

}  // namespace cli
