#pragma once

#include <cstdint>

namespace platform {

// The most pixels that any bitmap of ours has: twice the largest screens. 32-bit programs would
// find no memory for much more; 64-bit ones would, gigabytes for a size that a host made up, although
// the system counts the bytes of a bitmap in 32 bits there too.
inline constexpr int64_t kMostPixels = int64_t{1} << 26;

// Whether a bitmap of that size, in pixels, may be made.
inline bool isBitmapSize(int width, int height) {
  return width > 0 && height > 0 && int64_t{width} * height <= kMostPixels;
}

}  // namespace platform
