#pragma once

#include <set>
#include <string>

#include "diagnosis/Diagnosis.h"

namespace diagnosis_test {

// What becomes of a data set in the control, found by calling its members and its reader one after
// the other, along a path over the whole grid.
struct Outcome {
  cli::diagnosis::Verdict verdict = cli::diagnosis::Verdict::DoesNotOpen;
  std::set<std::string> items;  // that are listed
  std::set<std::string> read;   // and of which a section is read
};

Outcome controlOutcome(const std::string& dataSet);

}  // namespace diagnosis_test
