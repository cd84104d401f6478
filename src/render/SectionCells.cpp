#include "render/SectionCells.h"

#include <algorithm>
#include <array>
#include <limits>

namespace KelvaneMain {
namespace {

constexpr std::size_t kAtATime = 256;

}  // namespace
std::optional<platform::Colour> SectionCells::colour(int32_t column, int32_t level) const {
  if (grid_.mark(column + 1, level + 1) == 0) return std::nullopt;
  return colourOf_(grid_.value(column + 1, level + 1));
}

// Every marked value is above the missing one. Where that does not settle it the values do.
bool SectionCells::mayFail() const {
  if (!colourOf_.mayFail(kMissingValue)) return false;
  float lowest = std::numeric_limits<float>::infinity();
  for (std::size_t point = 0; point < grid_.values().size(); ++point) {
    if (grid_.marks()[point] != 0) lowest = std::min(lowest, grid_.values()[point]);
  }
  return colourOf_.mayFail(lowest);
}

std::size_t SectionCells::place(int32_t column, int32_t level) const {
  return static_cast<std::size_t>(column) * static_cast<std::size_t>(grid_.nlevels()) +
         static_cast<std::size_t>(level);
}

// Between the values of a column. Where there are none the marks need not be read.
bool SectionCells::hasGaps(int32_t column) const {
  const auto c = static_cast<std::size_t>(column);
  return filled_[c] != deepest_[c];
}

void SectionCells::expect(int32_t column) const {
  const auto wet = static_cast<std::size_t>(deepest_[static_cast<std::size_t>(column)]);
  const auto fetch = [wet](const auto* entries) {
    constexpr std::size_t kCacheLine = 64 / sizeof *entries;
    for (std::size_t k = 0; k < wet; k += kCacheLine) __builtin_prefetch(entries + k);
  };
  fetch(grid_.values().data() + place(column, 0));
  if (hasGaps(column)) fetch(grid_.marks().data() + place(column, 0));
}

std::size_t SectionCells::pixels(int32_t column, int32_t level,
                                 std::span<uint32_t> pixels) const {
  // Below the bottom of the sea there is nothing, many levels long.
  const int32_t wet = deepest_[static_cast<std::size_t>(column)] - level;
  if (wet <= 0) return 0;
  const std::size_t count = std::min(pixels.size(), static_cast<std::size_t>(wet));
  const auto values = grid_.values().subspan(place(column, level), count);
  std::array<platform::Colour, kAtATime> found;
  for (std::size_t done = 0; done < count; done += kAtATime) {
    const std::size_t part = std::min(kAtATime, count - done);
    colourOf_.lookUp(values.subspan(done, part), found);
    for (std::size_t k = 0; k < part; ++k) pixels[done + k] = platform::pixelOf(found[k]);
  }
  if (!hasGaps(column)) return count;
  const auto marks = grid_.marks().subspan(place(column, level), count);
  for (std::size_t k = 0; k < count; ++k) {
    pixels[k] = marks[k] == 0 ? platform::kNoPixel : pixels[k];
  }
  return count;
}

}  // namespace KelvaneMain
