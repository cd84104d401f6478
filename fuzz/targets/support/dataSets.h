#pragma once

#include <string>
#include <vector>

namespace fuzz {

// Makes the data sets that random calls work on, once a process, in the scratch folder: regular
// grids of all orders and versions of the format, a grid of cells, values and depths that are no
// numbers, an axis without steps, one without levels, files that are no data sets; and names of
// files that are not there.
const std::vector<std::string>& dataSetNames();

// Whether no data set was written to since.
bool dataSetsAsMade();

}  // namespace fuzz
