#pragma once

#include <windows.h>

namespace platform {

// Virus scanners and indexers open what was just written, for moments; what meets them then is
// tried again for 200 ms. Results are errors of the system, ERROR_SUCCESS for none.

// Another program holds the file.
inline bool isHeld(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

// The same, when a file is to be replaced: one that is open anywhere may refuse that so.
inline bool isHeldOrRefused(DWORD error) { return isHeld(error) || error == ERROR_ACCESS_DENIED; }

// The result of the step, of the last time when it was tried again.
template <typename Step>
DWORD tryForAMoment(bool (*isBusy)(DWORD error), const Step& step) {
  DWORD error = step();
  for (int times = 0; times < 10 && isBusy(error); ++times) {
    Sleep(20);
    error = step();
  }
  return error;
}

}  // namespace platform
