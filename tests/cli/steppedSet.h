#pragma once

#include <string>

namespace cli_test {

// A data set of many time steps on a grid of 4 x 3 cells and 3 levels. The values of temp at
// step t lie between t and t + 11, so that every step has a range of its own.
void makeSteppedSet(const std::string& path, int steps);

// A path through it.
inline constexpr const char* kSteppedPath = "0,0 3,2";

}  // namespace cli_test
