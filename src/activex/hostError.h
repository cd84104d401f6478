#pragma once

#include <windows.h>

namespace activex {

// Turns the exception being handled into a run-time error of the host: its number in the code
// that is returned, description and source in the thread's error information. Call it inside a
// catch block.
HRESULT hostError() noexcept;

}  // namespace activex
