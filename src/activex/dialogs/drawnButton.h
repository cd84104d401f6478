#pragma once

#include <windows.h>

#include <string>

#include "platform/PictureBox.h"

namespace activex {

// Owner-drawn push buttons. Their window texts are not what is seen on them: they are the names
// that a screen reader says.

// A swatch: the colour within a black frame one pixel wide.
void drawSwatch(const DRAWITEMSTRUCT& item, platform::Colour colour);
// A swatch's name: what it is the colour of, then the colour as "#RRGGBB".
std::string swatchName(const std::string& what, platform::Colour colour);

// An ordinary button with a caption.
void drawButton(const DRAWITEMSTRUCT& item, const wchar_t* caption);

}  // namespace activex
