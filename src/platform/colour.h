#pragma once

#include <cstdint>

namespace platform {

// A colour as red + 256 x green + 65536 x blue, each component 0..255.
using Colour = int32_t;
constexpr Colour rgb(int32_t red, int32_t green, int32_t blue) {
  return red + 256 * green + 65536 * blue;
}

}  // namespace platform
