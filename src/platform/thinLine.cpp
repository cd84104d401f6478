#include "platform/thinLine.h"

#include <algorithm>
#include <cstdlib>

#include "util/rounding.h"

namespace platform {

void drawThinLine(PixelRows& rows, const LinePiece& line, Colour colour) {
  int32_t x = util::roundToLong(line.x1), y = util::roundToLong(line.y1);
  const int32_t endX = util::roundToLong(line.x2), endY = util::roundToLong(line.y2);
  const int32_t dx = std::abs(endX - x), dy = std::abs(endY - y);
  const int32_t stepX = endX < x ? -1 : 1, stepY = endY < y ? -1 : 1;
  const uint32_t pixel = pixelOf(colour);
  rows.open(std::min(y, endY), std::max(y, endY));
  for (int32_t error = dx - dy;;) {
    if (x >= 0 && y >= 0 && x < rows.width() && y < rows.height()) rows.start(y)[x] = pixel;
    if (x == endX && y == endY) return;
    const int32_t twice = 2 * error;
    if (twice > -dy) {
      error -= dy;
      x += stepX;
    }
    if (twice < dx) {
      error += dx;
      y += stepY;
    }
  }
}

}  // namespace platform
