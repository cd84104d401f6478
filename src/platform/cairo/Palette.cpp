#include "platform/cairo/Palette.h"

namespace platform {

std::size_t Palette::slotOf(uint32_t colour) const {
  std::size_t slot = (colour * 0x9E3779B1U) >> 22U;
  while (slots_[slot].colour != colour && slots_[slot].colour != kFree) slot = (slot + 1) % kSlots;
  return slot;
}

bool Palette::add(uint32_t colour) {
  Slot& slot = slots_[slotOf(colour)];
  if (slot.colour == colour) return true;
  if (colours_.size() == kMostColours) return false;
  slot = {colour, static_cast<uint8_t>(colours_.size())};
  colours_.push_back(colour);
  return true;
}

std::optional<Palette> Palette::of(const PixelRows& picture) {
  Palette palette;
  palette.add(kWhitePixel);
  uint32_t last = kWhitePixel;
  for (int32_t y = 0; y < picture.height(); ++y) {
    if (y > 0 && picture.sameRows(y - 1, y)) continue;
    for (const uint32_t bits : picture.row(y)) {
      const uint32_t colour = bits & 0x00FFFFFFU;
      if (colour == last) continue;
      if (!palette.add(colour)) return std::nullopt;
      last = colour;
    }
  }
  return palette;
}

}  // namespace platform
