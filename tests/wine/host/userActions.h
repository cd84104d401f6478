#pragma once

#include <string>

#include "User.h"

namespace winetest {

// Puts a text on the clipboard, as another program would.
void putOnClipboard(const std::wstring& text);

// Enters a file's name into one of the system's dialogs for files, and takes it: the dialog, which
// may have something to ask.
HWND enterName(User& user, const std::wstring& caption, const std::wstring& name);
// The same, until the dialog has gone.
void chooseName(User& user, const std::wstring& caption, const std::wstring& name);

}  // namespace winetest
