#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "model/pictureSize.h"

namespace form {

// Asks for the address of a data set. Nothing when the user thinks better of it.
std::optional<std::wstring> askAddress(HWND owner, const std::wstring& preset);

// Asks for the size of a picture, preset to the given one.
std::optional<PictureSize> askPictureSize(HWND owner, const PictureSize& preset);

// The program's name, version and bitness.
void showAbout(HWND owner);

}  // namespace form
