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

void SectionCells::fillIn(int32_t column, int32_t level,
                          std::span<platform::Colour> colours) const {
  // Below the bottom of the sea there is nothing, many levels long.
  const int32_t wet = deepest_[static_cast<std::size_t>(column)] - level;
  if (wet <= 0) return;
  colours = colours.first(std::min(colours.size(), static_cast<std::size_t>(wet)));
  const auto first = static_cast<std::size_t>(column) * static_cast<std::size_t>(grid_.nlevels()) +
                     static_cast<std::size_t>(level);
  const auto marks = grid_.marks().subspan(first, colours.size());
  const auto values = grid_.values().subspan(first, colours.size());
  std::array<platform::Colour, kAtATime> found;
  for (std::size_t done = 0; done < colours.size(); done += kAtATime) {
    const auto part = colours.subspan(done, std::min(kAtATime, colours.size() - done));
    const auto partMarks = marks.subspan(done, part.size());
    colourOf_.lookUp(values.subspan(done, part.size()), std::span(found).first(part.size()));
    for (std::size_t k = 0; k < part.size(); ++k) {
      const bool wanted = part[k] == kUnset && partMarks[k] != 0;
      part[k] = wanted ? found[k] & 0xFFFFFF : part[k];
    }
  }
}

}  // namespace KelvaneMain
