#pragma once

#include <functional>
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
};

// Has the control open the data set. Nothing when it did, otherwise the reason: the control's
// own text or, where it leaves none, which step of the recognition failed.
std::optional<std::string> openDataSet(control::KelvaneCtl& control, const std::string& name);

// A reason with the data set's name before it.
std::string aboutDataSet(const std::string& name, const std::string& reason);

// Has the control open the data set, select the variable and build the path. Throws Failure
// with the reason. Notes for the user go to standard error.
void prepareSection(control::KelvaneCtl& control, const SectionRequest& request);

// Calls a member that reads and draws. Throws Failure with the reason when the values cannot
// be had. Otherwise the result is empty, or why the picture of them is not complete.
std::string shortfallOf(control::KelvaneCtl& control, TerminalDesktop& desktop,
                        const std::function<void()>& member);

// Every value of the section read last is missing.
bool sectionIsEmpty();
// Notes that on standard error, if it is so.
void noteEmptySection();
// The name of the item shown.
std::string shownName();

}  // namespace cli
