#pragma once

#include <optional>

#include "header/header.h"

namespace cli::diagnosis {

// A value of a variable of the open data set that the control takes for missing although it is
// none of the numbers that stand for that, as it is stored. Up to three stretches of a variable are
// looked at, at its beginning, middle and end: all of a small one. Nothing when there is no such
// value, or when values cannot be read.
std::optional<double> lostValue(const Header& header, const Variable& variable);

}  // namespace cli::diagnosis
