#pragma once

#include <string>
#include <vector>

namespace cli {

// The names with commas between them for a line of text: ten at most, then "and N more".
std::string nameList(const std::vector<std::string>& names);

}  // namespace cli
