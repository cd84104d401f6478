#pragma once

#include <optional>
#include <string>

#include "TerminalDesktop.h"
#include "control/KelvaneCtl.h"

namespace cli {

// How the values of a section are shown.
struct ViewRequest {
  bool contours = false;               // contour lines over the cells
  bool profile = false;                // profiles at the path's points instead of the section
  bool single = false;                 // all profiles in one graph
  std::optional<std::string> keyFile;  // colours from a KEW file
  bool autoKey = false;                // colours from the data set's own KEW file
};

// Sets the control as asked for; the data set is open and the variable selected. Throws Failure
// when the key file gives no key for the variable, or when the data set's name gives no name for
// a KEW file of its own that is wanted.
void applyView(control::KelvaneCtl& control, const ViewRequest& view);

// Has the control load the data set's own KEW file or, when there is none, make a key for the
// plotting range of the step drawn last and save it; says on standard error which. Throws
// Failure when there is no key then, when that range is none, or when a new one could not be
// saved.
void initColorKey(control::KelvaneCtl& control, TerminalDesktop& desktop);

}  // namespace cli
