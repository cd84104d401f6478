#include "render/SectionCells.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "platform/pixel.h"
#include "support/sampleSets.h"

// The pixels of whole columns are those of their cells.
namespace {

using KelvaneMain::kMissingValue;
using KelvaneMain::SectionCells;
using KelvaneMain::SectionGrid;

class SectionCellsTest : public testing::Test {
 protected:
  SectionCellsTest() {
    support::resetState();
    ModColor::ValueMin = 0;
    ModColor::ValueSpan = 30;
  }
  ~SectionCellsTest() override { support::resetState(); }

  // Seas of several depths, land, and here and there a gap.
  SectionGrid grid(int32_t columns, int32_t levels) {
    SectionGrid made;
    made.size(columns, levels);
    for (int32_t c = 1; c <= columns; ++c) {
      const int32_t deepest = below(levels + 1);
      for (int32_t k = 1; k <= deepest; ++k) {
        const bool gap = c % 3 == 0 && below(4) == 0;
        made.store(c, k, gap ? kMissingValue : static_cast<float>(below(320)) / 10.0F - 1.0F);
      }
    }
    return made;
  }
  static void check(const SectionGrid& grid) {
    const std::vector<float> x(static_cast<std::size_t>(grid.ncols()) + 1);
    const std::vector<float> y(static_cast<std::size_t>(grid.nlevels()) + 1);
    const SectionCells cells(grid, x, y);
    std::vector<uint32_t> pixels(y.size() - 1);
    for (int32_t column = 0; column < cells.columns(); ++column) {
      for (const int32_t from : {0, 1, grid.nlevels() / 2}) {
        const auto part = std::span(pixels).subspan(static_cast<std::size_t>(from));
        cells.expect(column);
        const auto known = static_cast<int32_t>(cells.pixels(column, from, part));
        for (int32_t level = from; level < grid.nlevels(); ++level) {
          const auto colour = cells.colour(column, level);
          if (level >= from + known) {
            ASSERT_FALSE(colour) << column << ", " << level;
            continue;
          }
          const uint32_t pixel = part[static_cast<std::size_t>(level - from)];
          ASSERT_EQ(pixel, colour ? platform::pixelOf(*colour) : platform::kNoPixel)
              << column << ", " << level;
        }
      }
    }
  }

  int32_t below(int32_t count) {
    return static_cast<int32_t>(random_() % static_cast<uint32_t>(count));
  }
  std::mt19937 random_{3};
};

TEST_F(SectionCellsTest, HaveThePixelsOfTheRamp) {
  for (const int32_t levels : {1, 2, 50, 700}) check(grid(30, levels));
}

TEST_F(SectionCellsTest, HaveThePixelsOfTheKey) {
  ModColor::NewColorKey();
  // Colours of more than 24 bits too.
  for (int32_t n = 0; n < 20; ++n) {
    ModColor::AddColorKey(static_cast<float>(n), static_cast<float>(n) + 0.7F, n * -100000000);
  }
  ModColor::UseColorKey(true);
  for (const int32_t levels : {2, 50, 700}) check(grid(30, levels));
}

}  // namespace
