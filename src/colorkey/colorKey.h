#pragma once

#include <cstdint>

#include "platform/PictureBox.h"
#include "util/OneBased.h"

namespace ModColor {

// The colour key: which colour shades which range of values. The lists and the count can
// disagree; every reader goes by nDivision. Nothing is sorted or checked.
struct Key {
  int32_t nDivision = 0;  // 0 no key; -1 the last load found none, or failed
  util::OneBased<float> low;
  util::OneBased<float> high;
  util::OneBased<platform::Colour> color;
};
extern Key ColorKey;

// -1: shade through the key; 0..4: the built-in ramp of that number.
extern int32_t bUseKey;

// Adds a division at the end. Run-time error 6 when the count overflows (it keeps its value);
// error 9 when the count was -1 (it becomes 0).
void AddColorKey(float low, float high, platform::Colour color);
void NewColorKey();
// In use only when wanted and the key has a division.
void UseColorKey(bool use);

// Colour of the first division with low <= value < high; white when there is none.
platform::Colour KeyColour(float value);

}  // namespace ModColor
