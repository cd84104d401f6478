#pragma once

#include <string>

#include "User.h"

namespace winetest {

// Puts a text on the clipboard, as another program would.
void putOnClipboard(const std::wstring& text);

// Enters a file's name into one of the system's dialogs for files, and takes it.
void chooseName(User& user, const std::wstring& caption, const std::wstring& name);

}  // namespace winetest
