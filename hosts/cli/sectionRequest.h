#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "TerminalDesktop.h"
#include "control/KelvaneCtl.h"
#include "optionText.h"

namespace cli {

// What a section is asked of.
struct SectionRequest {
  std::string dataSet;                  // file name or address
  std::optional<std::string> variable;  // the first item when not given
  std::vector<PathPoint> path;
  int32_t step = 1;
};

// Has the control open the data set. Nothing when it did, otherwise the reason: the control's
// own text or, where it leaves none, which step of the recognition failed.
std::optional<std::string> openDataSet(control::KelvaneCtl& control, const std::string& name);

// Has the control open, select, build the path, read and draw. Throws Failure with the reason
// when the values cannot be had. Otherwise the result is empty, or why the picture of them is
// not complete. Notes for the user go to standard error.
std::string drawSection(control::KelvaneCtl& control, TerminalDesktop& desktop,
                        const SectionRequest& request);

}  // namespace cli
