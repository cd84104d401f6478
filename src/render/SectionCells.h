#pragma once

#include <span>

#include "colorkey/cellColours.h"
#include "platform/CellBoxes.h"
#include "section/sectionValues.h"

namespace KelvaneMain {

// The blocks of a section: a column of the grid each, from one level to the next, in the colour
// of the upper level's value. Where no value is marked nothing is painted.
class SectionCells final : public platform::CellBoxes {
 public:
  // The edges of the columns and the places of the levels on the surface; the grid must have as
  // many. All must outlive the cells.
  SectionCells(const SectionGrid& grid, std::span<const float> edgeX, std::span<const float> levelY)
      : CellBoxes(edgeX, levelY),
        grid_(grid),
        deepest_(grid.deepestValues()),
        filled_(grid.filledLevels()),
        colourOf_(grid.values().size()) {}

  std::optional<platform::Colour> colour(int32_t column, int32_t level) const override;
  bool mayFail() const override;
  void expect(int32_t column) const override;
  std::size_t pixels(int32_t column, int32_t level, std::span<uint32_t> pixels) const override;

 private:
  std::size_t place(int32_t column, int32_t level) const;
  bool hasGaps(int32_t column) const;

  const SectionGrid& grid_;
  std::span<const int32_t> deepest_, filled_;
  ModColor::CellColours colourOf_;
};

}  // namespace KelvaneMain
