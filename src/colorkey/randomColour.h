#pragma once

#include <algorithm>

#include "platform/PictureBox.h"
#include "util/rounding.h"

namespace ModColor {

// A colour component for a random number in [0, 1): the nearest of 0..256, halves to even, with
// 256 taken as 255.
inline int32_t randomComponent(double uniform) {
  return std::min(util::roundToLong(uniform * 256.0), 255);
}

// Red, green and blue from three random numbers, drawn in this order.
template <class Uniform>
platform::Colour randomColour(Uniform uniform) {
  const int32_t red = randomComponent(uniform());
  const int32_t green = randomComponent(uniform());
  const int32_t blue = randomComponent(uniform());
  return platform::rgb(red, green, blue);
}

}  // namespace ModColor
