#pragma once

#include <set>

#include "fit/Input.h"
#include "fit/Plan.h"
#include "fit/Request.h"

namespace cli::fit {

// What a copy of the data set that the control draws is like. refilled are the input's variables
// of which the control was seen to misread values. Throws Failure with the reason when there can
// be no such copy.
Plan makePlan(const Input& input, const Request& request, const std::set<int>& refilled = {});

}  // namespace cli::fit
