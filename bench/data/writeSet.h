#pragma once

#include <string>

#include "dataSets.h"

namespace bench {

// Writes a data set to a file: complete, or not at all. A failure throws std::runtime_error.
void writeSet(const DataSet& set, const std::string& path);

}  // namespace bench
