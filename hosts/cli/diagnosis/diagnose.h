#pragma once

#include <string>

#include "dataSetFacts.h"
#include "diagnosis/Diagnosis.h"

namespace cli::diagnosis {

struct Examination {
  DataSetFacts facts;   // what the control found
  Diagnosis diagnosis;  // how it got there, and what it did not get to
};

// Has a control of its own open a data set, a file or an address, and draw a short section of it;
// then goes through every rule, also where the control gave up early.
Examination examine(const std::string& dataSet);

}  // namespace cli::diagnosis
