#pragma once

#include <string>

namespace fuzz {

struct Counts {
  long opened = 0, valuesRead = 0, valuesRefused = 0;
};

// Opens a data set, reads every attribute and, twice, every variable: whole, and with a stride.
void readAll(const std::string& name, Counts& counts);

}  // namespace fuzz
