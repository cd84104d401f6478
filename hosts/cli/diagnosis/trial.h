#pragma once

#include <string>

#include "TerminalDesktop.h"
#include "control/KelvaneCtl.h"
#include "diagnosis/Diagnosis.h"

namespace cli::diagnosis {

// How far the control really came with a data set, and what it said.
struct Trial {
  Verdict verdict = Verdict::DoesNotOpen;
  std::string message;  // of the failure
  std::string item;     // what was drawn, along how many columns
  int columns = 0;
};

// Has the control, which has the data set open, draw a short section in the middle of the grid, of
// the named item or the first one.
Trial tryShortSection(control::KelvaneCtl& control, TerminalDesktop& desktop,
                      const std::string& item);

}  // namespace cli::diagnosis
