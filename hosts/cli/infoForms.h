#pragma once

#include <string>

#include "dataSetFacts.h"

namespace cli {

// The listing for people: labelled lines, then tables of time steps, levels and items. Empty
// when nothing at all was catalogued.
std::string textForm(const DataSetFacts& facts);

// The listing for programs: one JSON object, null where something was not found.
std::string jsonForm(const DataSetFacts& facts);

}  // namespace cli
