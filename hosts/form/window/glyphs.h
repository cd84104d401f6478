#pragma once

#include <windows.h>

namespace form {

enum class Glyph { First, Previous, Play, Pause, Next, Last };

// The sign as an icon of size x size pixels in the colour of buttons' texts, its edges smooth.
// Null when there is no memory. The caller destroys it.
HICON makeGlyph(Glyph glyph, int size);

}  // namespace form
