#pragma once

#include <string>

#include "platform/PictureBox.h"

namespace ModColor {

// Legend of the built-in ramp: 50 shades with a value label at every fifth.
void DrawRampLegend(platform::PictureBox& surface, float x, float y, float width, float height);

// Legend of the colour key: a box and a label "low - high" for each division, the last on top.
void DrawKeyLegend(platform::PictureBox& surface, float x, float y, float width, float height);

// "#0.0" when the bound has a fractional part of at least 0.001, else "#0".
std::string keyBoundText(float bound);

}  // namespace ModColor
