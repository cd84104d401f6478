#pragma once

#include <string_view>

#include "util/lastError.h"

namespace ModColor {

// Runs a routine of a dialog: false when it fails, which is reported under its tag and goes no
// further.
template <class Routine>
bool attempt(std::string_view tag, Routine routine) {
  try {
    routine();
    return true;
  } catch (...) {
    util::reportTagged(tag);
    return false;
  }
}

}  // namespace ModColor
