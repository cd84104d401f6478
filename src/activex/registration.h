#pragma once

#include <windows.h>

namespace activex {

// Writes everything that hosts look up about the control, or nothing: when a write fails the
// earlier ones are taken back. The result says which half failed.
HRESULT registerControl();
// Removes every key that registerControl writes. Absent ones are no failure.
HRESULT unregisterControl();

}  // namespace activex
