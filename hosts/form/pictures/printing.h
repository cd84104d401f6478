#pragma once

#include <windows.h>

#include <string>

#include "Dispatch.h"
#include "model/pictureSize.h"

namespace form {

// Asks for a printer and prints the control's picture on one page of it. True when it was printed,
// false when the user thought better of it. host::HostError when it cannot be printed.
bool printPicture(HWND owner, const std::wstring& title, host::Object& control,
                  const PictureSize& view);

}  // namespace form
