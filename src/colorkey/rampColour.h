#pragma once

#include <cstdint>

#include "platform/PictureBox.h"

namespace ModColor {

extern int32_t RampDirection;  // 0 fraction as it is; 1 reversed; otherwise taken as 0
extern float ValueMin;         // value of fraction 0
extern float ValueSpan;        // value range of fractions 0..1

// A fraction as the ramp takes it, after RampDirection.
float rampFraction(float t);

// The built-in ramp that bUseKey selects, for a fraction t of the value range. White at 0, at
// and below it, above 1 and for NaN.
platform::Colour RampColour(float t);

// (value - ValueMin) / ValueSpan, at most 1; 0 when the span is 0. One below the single range is
// run-time error 6.
float valueFraction(float value);

}  // namespace ModColor
