#pragma once

#include <string>

#include "dataSetFacts.h"
#include "diagnosis/Diagnosis.h"

namespace cli {

// The listing for people: labelled lines, then tables of time steps, levels and items. Empty
// when nothing at all was catalogued.
std::string textForm(const DataSetFacts& facts);
// The diagnosis for people: every check, every variable, the warnings, the verdict and the command
// that helps.
std::string textForm(const diagnosis::Diagnosis& diagnosis);

// All of it for programs: one JSON object, null where something was not found. Its schema is
// docs/info.schema.json.
std::string jsonForm(const DataSetFacts& facts, const diagnosis::Diagnosis& diagnosis);

}  // namespace cli
