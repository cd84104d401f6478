#pragma once

#include <windows.h>

#include "activex/registrationJournal.h"
#include "activex/registrationRoot.h"

namespace activex {

// The type library's half of a registration: where the library's file is, and which interfaces it
// describes. Written key by key, since the system's own calls choose the part of the registry by
// themselves and leave half of it behind when they fail.

// SELFREG_E_TYPELIB when anything cannot be written; taking back what was is the caller's.
HRESULT writeTypeLibrary(RegistrationJournal& journal);
// Removes our platform's part of it, and all of it when no other platform's is left. What is not
// there is no failure.
HRESULT removeTypeLibrary(const RegistrationRoot& root);

}  // namespace activex
