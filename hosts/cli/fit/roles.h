#pragma once

#include <string>

#include "header/header.h"

// What a variable is by the conventions of its kind: from its attributes, then its name.
namespace cli::fit {

bool isLongitude(const Variable& variable);
bool isLatitude(const Variable& variable);
bool isTime(const Variable& variable);
// The kinds of vertical coordinates decide how they are named, and which way is down.
enum class Vertical { None, Depth, Height, Pressure, Sigma, Level };
Vertical verticalOf(const Variable& variable);

// The same for a dimension without a variable.
bool soundsLikeTime(const std::string& dimension);
Vertical verticalOfName(const std::string& dimension);

// "radian", "radians", ...
bool isRadians(const std::string& units);

}  // namespace cli::fit
