#include "platform/pixelCover.h"

#include <algorithm>
#include <functional>

#include "platform/PictureBox.h"

namespace platform {
namespace {

// The first and the last cell that cover a pixel.
struct Cover {
  int32_t first = -1, last = -1;
  bool operator==(const Cover&) const = default;
};

// No number makes both comparisons fail.
bool goOneWay(std::span<const float> edges) {
  const auto holdsThroughout = [edges](auto ordered) {
    return std::adjacent_find(edges.begin(), edges.end(), [&](float a, float b) {
             return !ordered(a, b);
           }) == edges.end();
  };
  return holdsThroughout(std::less_equal<>()) || holdsThroughout(std::greater_equal<>());
}

}  // namespace

std::optional<std::vector<PixelRun>> pixelCover(std::span<const float> edges, int32_t size) {
  std::vector<PixelRun> runs;
  if (edges.size() < 2 || size < 1) return runs;
  if (!goOneWay(edges)) return std::nullopt;
  std::vector<Cover> covers(static_cast<std::size_t>(size));
  int32_t before = nearestPixel(edges[0], size);
  for (std::size_t cell = 0; cell + 1 < edges.size(); ++cell) {
    const int32_t behind = nearestPixel(edges[cell + 1], size);
    const int32_t first = std::max(std::min(before, behind), 0);
    const int32_t last = std::min(std::max(before, behind), size - 1);
    for (int32_t pixel = first; pixel <= last; ++pixel) {
      Cover& cover = covers[static_cast<std::size_t>(pixel)];
      cover.last = static_cast<int32_t>(cell);
      if (cover.first < 0) cover.first = cover.last;
    }
    before = behind;
  }
  for (int32_t pixel = 0; pixel < size; ++pixel) {
    const Cover cover = covers[static_cast<std::size_t>(pixel)];
    if (cover.first < 0) continue;
    if (!runs.empty() && Cover{runs.back().first, runs.back().last} == cover) {
      runs.back().end = pixel + 1;
    } else {
      runs.push_back({pixel, pixel + 1, cover.first, cover.last});
    }
  }
  return runs;
}

}  // namespace platform
