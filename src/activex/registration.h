#pragma once

#include <windows.h>

#include "activex/registrationRoot.h"

namespace activex {

// Writes everything that hosts look up about the control, or nothing: when a write fails the
// earlier ones are taken back, and an earlier registration is what it was. The result says which
// half failed: SELFREG_E_CLASS or SELFREG_E_TYPELIB.
HRESULT registerControl(Scope scope);

// Removes every key that registerControl writes for that scope. Absent ones are no failure. The
// ProgIDs are common to both bitnesses: they go with the last class that they lead to.
HRESULT unregisterControl(Scope scope);

}  // namespace activex
