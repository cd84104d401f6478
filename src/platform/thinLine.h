#pragma once

#include "platform/PixelRows.h"
#include "platform/clipLine.h"

namespace platform {

// Draws a line one pixel wide, without grey: one pixel a step between the pixels of the two ends,
// both included, so that lines that share an end share its pixel and look continuous. Every
// surface draws contour lines by this rule, so that they are the same everywhere. The ends may
// lie outside of the surface, by no more than clipLine() leaves.
void drawThinLine(PixelRows& rows, const LinePiece& line, Colour colour);

}  // namespace platform
