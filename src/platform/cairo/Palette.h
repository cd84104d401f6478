#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/PixelRows.h"

namespace platform {

// The colours of a picture that has few of them, white first, as pixels 0x00RRGGBB.
class Palette {
 public:
  static constexpr std::size_t kMostColours = 256;
  // Nothing for a picture of more colours.
  static std::optional<Palette> of(const PixelRows& picture);

  const std::vector<uint32_t>& colours() const { return colours_; }
  // The place of a colour that is there.
  uint8_t indexOf(uint32_t colour) const { return slots_[slotOf(colour)].index; }

 private:
  // Open addressing in a table four times as large as what it holds.
  static constexpr std::size_t kSlots = 1024;
  static constexpr uint32_t kFree = 0xFFFFFFFF;
  struct Slot {
    uint32_t colour = kFree;
    uint8_t index = 0;
  };
  std::size_t slotOf(uint32_t colour) const;
  bool add(uint32_t colour);

  std::vector<uint32_t> colours_;
  std::vector<Slot> slots_ = std::vector<Slot>(kSlots);
};

}  // namespace platform
