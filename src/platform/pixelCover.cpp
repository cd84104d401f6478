#include "platform/pixelCover.h"

#include <algorithm>

#include "platform/PictureBox.h"

namespace platform {
namespace {

enum class Direction { Rising, Falling, BackAndForth };

// No number makes both comparisons fail.
Direction directionOf(std::span<const float> edges) {
  int32_t rises = 1, falls = 1;
  for (std::size_t n = 1; n < edges.size(); ++n) {
    rises &= int32_t{edges[n - 1] <= edges[n]};
    falls &= int32_t{edges[n - 1] >= edges[n]};
  }
  if (rises != 0) return Direction::Rising;
  return falls != 0 ? Direction::Falling : Direction::BackAndForth;
}

// Of rising edges, as pixels.
std::vector<PixelRun> risingCover(std::span<const int32_t> edges, int32_t size) {
  std::vector<PixelRun> runs;
  runs.reserve(static_cast<std::size_t>(size));
  const std::size_t cells = edges.size() - 1;
  std::size_t first = 0, last = 0;
  const int32_t end = std::min(edges.back(), size - 1);
  for (int32_t pixel = std::max(edges.front(), 0); pixel <= end; ++pixel) {
    while (edges[first + 1] < pixel) ++first;
    while (last + 1 < cells && edges[last + 1] <= pixel) ++last;
    const auto from = static_cast<int32_t>(first), to = static_cast<int32_t>(last);
    if (!runs.empty() && runs.back().first == from && runs.back().last == to) {
      runs.back().end = pixel + 1;
    } else {
      runs.push_back({pixel, pixel + 1, from, to});
    }
  }
  return runs;
}

}  // namespace

std::optional<std::vector<PixelRun>> pixelCover(std::span<const float> edges, int32_t size) {
  if (edges.size() < 2 || size < 1) return std::vector<PixelRun>();
  const Direction direction = directionOf(edges);
  if (direction == Direction::BackAndForth) return std::nullopt;
  std::vector<int32_t> pixels(edges.size());
  nearestPixels(edges, size, pixels);
  if (direction == Direction::Rising) return risingCover(pixels, size);
  // Those that fall rise in the mirror.
  for (int32_t& pixel : pixels) pixel = size - 1 - pixel;
  std::vector<PixelRun> runs = risingCover(pixels, size);
  std::ranges::reverse(runs);
  for (PixelRun& run : runs) {
    const int32_t begin = size - run.end;
    run.end = size - run.begin;
    run.begin = begin;
  }
  return runs;
}

}  // namespace platform
