#pragma once

#include <windows.h>

namespace activex {

class BottomUpBitmap;
struct Instance;

// Whether all places are within what the system can draw.
bool isDrawable(const RECT& bounds);

// Draws what is seen of the control into bounds of any device context, at the size it was last
// given: upright whichever corners bounds names, and pixel for pixel where the sizes agree; in a
// metafile, in the context's own coordinates. False when the device refuses.
bool drawPicture(Instance& instance, HDC dc, const RECT& bounds);
// The same of a copy of it.
bool drawPicture(const BottomUpBitmap& copy, HDC dc, const RECT& bounds);

}  // namespace activex
