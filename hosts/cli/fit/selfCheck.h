#pragma once

#include <string>

#include "fit/Plan.h"

namespace cli::fit {

// Has the control open the copy, find every variable that is meant to be drawn and read a short
// section of it. Throws Failure with what the control says when it does not.
void selfCheck(const std::string& path, const Plan& plan);

}  // namespace cli::fit
