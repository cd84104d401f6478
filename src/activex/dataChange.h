#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/ComPtr.h"

namespace activex {

// Sends every sink that a holder keeps the object's data as it is now, each in the form it asked
// for, or the mere news where it wants no more. The sending is done here and not left to the
// holder, since not every system's holder frees the data that it has sent.
void sendDataChange(IUnknown& object, ComPtr<IDataAdviseHolder> holder);

}  // namespace activex
