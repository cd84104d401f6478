#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/PictureBox.h"

namespace activex {

// The system's colour chooser, preset to a colour; nothing when the user cancels. The user's
// custom colours live as long as the library is loaded.
std::optional<platform::Colour> chooseColor(HWND owner, platform::Colour preset);

// The system's open-file dialog for KEW files: the file's full name, or nothing when the user
// cancels. The current folder of the host stays what it is.
std::optional<std::string> chooseKewFile(HWND owner);

}  // namespace activex
