#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace platform {

// Neighbouring pixels of one direction that the same cells cover: those from first to last, all
// of them in between too.
struct PixelRun {
  int32_t begin = 0, end = 0;  // pixels begin..end-1
  int32_t first = 0, last = 0;
  bool operator==(const PixelRun&) const = default;
};

// Which cells between these edges cover which of the pixels 0..size-1, by the rule of boxes:
// edges rounded to the nearest pixel, both included. The runs are in the order of the pixels and
// without gaps. Nothing when the edges neither only rise nor only fall.
std::optional<std::vector<PixelRun>> pixelCover(std::span<const float> edges, int32_t size);

}  // namespace platform
