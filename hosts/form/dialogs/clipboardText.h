#pragma once

#include <windows.h>

#include <string>

namespace form {

// The text on the clipboard; empty when there is none.
std::wstring clipboardText(HWND owner);

}  // namespace form
