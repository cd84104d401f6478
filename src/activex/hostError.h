#pragma once

#include <windows.h>

namespace activex {

// Turns the exception being handled into a run-time error of the host: its number in the code
// that is returned, description and source in the thread's error information. Call it inside a
// catch block.
HRESULT hostError() noexcept;

// Refuses a call because another member is still running, with a text that says so.
HRESULT busyError() noexcept;

// Hands the thread's error information to a caller of Invoke, with the code that a member failed
// with. The caller owns the texts; where there is no exception to fill they are dropped.
void giveException(HRESULT code, EXCEPINFO* exception) noexcept;

}  // namespace activex
