#include "colorkey/colorKey.h"

#include "util/rounding.h"

namespace ModColor {

Key ColorKey;
int32_t bUseKey = 0;

void AddColorKey(float low, float high, platform::Colour color) {
  const int32_t count = util::addLong(ColorKey.nDivision, 1);
  // After a failed load (-1) the range 1..0 fails with the count at 0, and the next addition works.
  if (count < 1) ColorKey.nDivision = count;
  ColorKey.color.resizeKeeping(count);
  ColorKey.low.resizeKeeping(count);
  ColorKey.high.resizeKeeping(count);
  ColorKey.low(count) = low;
  ColorKey.high(count) = high;
  ColorKey.color(count) = color;
  ColorKey.nDivision = count;
}

void NewColorKey() {
  ColorKey.nDivision = 0;
  ColorKey.high.clear();
  ColorKey.low.clear();
  ColorKey.color.clear();
}

void UseColorKey(bool use) { bUseKey = use && ColorKey.nDivision > 0 ? -1 : 0; }

platform::Colour KeyColour(float value) {
  for (int32_t i = 1; i <= ColorKey.nDivision; ++i) {
    if (ColorKey.low(i) <= value && value < ColorKey.high(i)) return ColorKey.color(i);
  }
  return platform::basicPalette(15);
}

}  // namespace ModColor
