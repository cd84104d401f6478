#pragma once

#include <string>

#include "platform/PixelRows.h"

namespace platform {

// The bytes of a PNG file of a surface that is settled and not empty: of a palette where the
// picture has 256 colours at most, of red, green and blue otherwise. Throws std::bad_alloc.
std::string pngPicture(const PixelRows& pixels);

}  // namespace platform
