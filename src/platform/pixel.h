#pragma once

#include <cstdint>

#include "platform/colour.h"

namespace platform {

// A pixel 0x00RRGGBB of a colour.
constexpr uint32_t pixelOf(Colour colour) {
  const auto bits = static_cast<uint32_t>(colour);
  return (bits & 0xFFU) << 16U | (bits & 0xFF00U) | (bits >> 16U & 0xFFU);
}
constexpr Colour colourOf(uint32_t pixel) {
  return static_cast<Colour>((pixel >> 16U & 0xFFU) | (pixel & 0xFF00U) | (pixel & 0xFFU) << 16U);
}
constexpr uint32_t kWhitePixel = 0x00FFFFFF;

// Stands for a pixel that is left as it was; more than 24 bits.
constexpr uint32_t kNoPixel = 0xFFFFFFFF;

}  // namespace platform
