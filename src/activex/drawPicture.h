#pragma once

#include <windows.h>

namespace activex {

class Body;

// Draws the visible picture into bounds of any device context, at the size it was last given:
// upright and pixel for pixel where the sizes agree; in a metafile, in the context's own
// coordinates. False when the device refuses.
bool drawPicture(Body& body, HDC dc, const RECT& bounds);

}  // namespace activex
