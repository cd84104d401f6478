#include "platform/CellBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "platform/PixelRows.h"
#include "platform/pixelCover.h"
#include "support/specialValues.h"

// Cells resolved by pixel look exactly like cells painted one after another.
namespace {

using platform::CellBoxes;
using platform::Colour;
using platform::PixelRows;
using platform::PixelRun;

using support::kFloatInfinity;
using support::kFloatNan;

constexpr Colour kUnset = -1;

// Colours of cells in painting order; kUnset for those that are left out.
class Grid final : public CellBoxes {
 public:
  Grid(std::span<const float> x, std::span<const float> y, std::vector<Colour> colours)
      : CellBoxes(x, y), colours_(std::move(colours)) {}
  std::optional<Colour> colour(int32_t column, int32_t level) const override {
    const Colour found = colours_[static_cast<std::size_t>(level * columns() + column)];
    if (found == kUnset) return std::nullopt;
    return found;
  }
  bool mayFail() const override { return false; }

 private:
  std::vector<Colour> colours_;
};

// A surface in memory, painted through PixelRows or by the rule of boxes alone.
struct Surface {
  int32_t width, height;
  std::vector<uint32_t> memory;
  PixelRows rows;

  Surface(int32_t w, int32_t h)
      : width(w),
        height(h),
        memory(static_cast<std::size_t>(w * h), 0x123456U),
        rows(memory.data(), w, w, h) {}

  void boxEach(const CellBoxes& cells) {
    const auto x = cells.x(), y = cells.y();
    for (int32_t level = 0; level < cells.levels(); ++level) {
      const auto k = static_cast<std::size_t>(level);
      for (int32_t column = 0; column < cells.columns(); ++column) {
        const auto c = static_cast<std::size_t>(column);
        if (const auto colour = cells.colour(column, level)) {
          rows.fill(platform::pixelBox(x[c], y[k], x[c + 1], y[k + 1], width, height), *colour);
        }
      }
    }
  }
  std::vector<uint32_t> picture() {
    rows.settle();
    std::vector<uint32_t> pixels = memory;
    for (uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    return pixels;
  }
};

class CellBoxesTest : public testing::Test {
 protected:
  std::mt19937 random{7};
  int32_t below(int32_t count) {
    return static_cast<int32_t>(random() % static_cast<uint32_t>(count));
  }
  // Edges from somewhere to somewhere, often on halves of pixels, often equal.
  std::vector<float> edges(int32_t count, int32_t size) {
    std::vector<float> found;
    const int32_t twice = 2 * size + 20;
    for (int32_t n = 0; n < count; ++n) {
      const float place = static_cast<float>(below(twice) - 10) / 2.0F;
      found.push_back(below(3) == 0 ? place + 0.3F * static_cast<float>(below(3)) : place);
    }
    std::ranges::sort(found);
    if (below(20) == 0) found.front() = below(2) == 0 ? -kFloatInfinity : -3e30F;
    if (below(3) == 0) std::ranges::reverse(found);
    return found;
  }
  std::vector<Colour> colours(std::size_t count) {
    const int32_t missing = below(4);
    std::vector<Colour> found(count);
    for (Colour& colour : found) {
      colour = below(4) < missing ? kUnset : below(0x1000000);
    }
    return found;
  }
  // Ink of several kinds below the cells: rows untouched, inked, cleared.
  void prepare(Surface& one, Surface& other) {
    const auto both = [&](auto step) {
      step(one.rows);
      step(other.rows);
    };
    for (int32_t count = below(3); count > 0; --count) {
      const int32_t top = below(one.height), colour = below(0x1000000);
      both([&](PixelRows& rows) {
        rows.fill({0, top, one.width / 2, std::min(one.height - 1, top + 3)}, colour);
      });
      if (below(2) == 0) both([](PixelRows& rows) { rows.clear(); });
    }
  }
};

TEST_F(CellBoxesTest, AreThePictureOfEveryBoxPaintedInTurn) {
  int painted = 0;
  for (int round = 0; round < 3000; ++round) {
    Surface fast(1 + below(60), 1 + below(40));
    Surface plain(fast.width, fast.height);
    const auto x = edges(1 + below(below(4) == 0 ? 400 : 30), fast.width);
    const auto y = edges(1 + below(below(4) == 0 ? 200 : 12), fast.height);
    const Grid cells(x, y, colours((x.size() - 1) * (y.size() - 1)));
    prepare(fast, plain);
    ASSERT_TRUE(fast.rows.paint(cells)) << round;
    plain.boxEach(cells);
    ASSERT_EQ(fast.picture(), plain.picture()) << round;
    painted += cells.columns() * cells.levels() > 0 ? 1 : 0;
  }
  EXPECT_GT(painted, 2000);
}

// Wider than what is worked on at a time, and with rows below and above the cells.
TEST_F(CellBoxesTest, AreTheSameInPicturesOfSeveralParts) {
  for (const int32_t columns : {3, 300, 1100, 5000}) {
    Surface fast(1200, 90), plain(1200, 90);
    std::vector<float> x, y;
    for (int32_t c = 0; c <= columns; ++c) {
      x.push_back(40.0F + 1100.0F * static_cast<float>(c) / static_cast<float>(columns));
    }
    for (int32_t k = 0; k <= 400; ++k) y.push_back(7.3F + 0.2F * static_cast<float>(k));
    const Grid cells(x, y, colours((x.size() - 1) * (y.size() - 1)));
    ASSERT_TRUE(fast.rows.paint(cells));
    plain.boxEach(cells);
    ASSERT_TRUE(fast.picture() == plain.picture()) << columns;
  }
}

TEST_F(CellBoxesTest, WithEdgesThatGoBackAndForthAreLeftToTheOneByOneWay) {
  Surface surface(10, 10);
  const std::vector<float> rising = {1, 4, 9};
  for (const std::vector<float>& odd :
       {std::vector<float>{1, 5, 3}, {5, 1, 3, 3}, {1, kFloatNan, 4}, {kFloatNan, kFloatNan}}) {
    EXPECT_FALSE(surface.rows.paint(Grid(odd, rising, std::vector<Colour>(6, 7))));
    EXPECT_FALSE(surface.rows.paint(Grid(rising, odd, std::vector<Colour>(6, 7))));
  }
  EXPECT_EQ(surface.picture(), Surface(10, 10).picture());
}

TEST_F(CellBoxesTest, CostTheirPixelsAndNotTheirNumber) {
  // Counts what a painting asks for.
  class Counted final : public CellBoxes {
   public:
    using CellBoxes::CellBoxes;
    std::optional<Colour> colour(int32_t, int32_t) const override { return 5; }
    bool mayFail() const override { return false; }
    std::size_t pixels(int32_t, int32_t, std::span<uint32_t> pixels) const override {
      asked += pixels.size();
      std::ranges::fill(pixels, 5U);
      return pixels.size();
    }
    mutable std::size_t asked = 0;
  };
  Surface surface(100, 60);
  std::vector<float> x(20001), y(61);
  for (std::size_t c = 0; c < x.size(); ++c) x[c] = static_cast<float>(c) / 200.0F;
  for (std::size_t k = 0; k < y.size(); ++k) y[k] = static_cast<float>(k);
  const Counted cells(x, y);
  ASSERT_TRUE(surface.rows.paint(cells));
  EXPECT_LE(cells.asked, 101U * 60U);
}

TEST(PixelCover, TellsWhichCellsReachWhichPixels) {
  const std::vector<float> wide = {0.5F, 3, 5.4F, 20};
  EXPECT_EQ(platform::pixelCover(wide, 8),
            (std::vector<PixelRun>{
                {0, 3, 0, 0}, {3, 4, 0, 1}, {4, 5, 1, 1}, {5, 6, 1, 2}, {6, 8, 2, 2}}));
  const std::vector<float> narrow = {1, 1.2F, 1.4F, 1.6F, 2};
  EXPECT_EQ(platform::pixelCover(narrow, 8), (std::vector<PixelRun>{{1, 2, 0, 2}, {2, 3, 2, 3}}));
  const std::vector<float> falling = {2, 1, 0};
  EXPECT_EQ(platform::pixelCover(falling, 2), (std::vector<PixelRun>{{0, 1, 1, 1}, {1, 2, 0, 1}}));
  EXPECT_TRUE(platform::pixelCover(std::vector<float>{3}, 8)->empty());
  EXPECT_TRUE(platform::pixelCover(wide, 0)->empty());
}

}  // namespace
