#include "platform/clipLine.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/specialValues.h"

using platform::LinePiece;
using platform::clipLine;

namespace {

constexpr double kWidth = 400, kHeight = 300, kThickness = 1;
constexpr double kBorder = kThickness + 2;

std::optional<LinePiece> clipped(const LinePiece& line) {
  return clipLine(line, kWidth, kHeight, kThickness);
}

}  // namespace

TEST(ClipLine, leavesALineInsideAsItIs) {
  const auto piece = clipped({1, 2, 399, 298});
  ASSERT_TRUE(piece);
  EXPECT_EQ(piece->x1, 1);
  EXPECT_EQ(piece->y1, 2);
  EXPECT_EQ(piece->x2, 399);
  EXPECT_EQ(piece->y2, 298);
}

TEST(ClipLine, cutsALineThatPassesThrough) {
  const auto piece = clipped({-1000, 100, 1400, 100});
  ASSERT_TRUE(piece);
  EXPECT_EQ(piece->x1, -kBorder);
  EXPECT_EQ(piece->x2, kWidth + kBorder);
  EXPECT_EQ(piece->y1, 100);
  EXPECT_EQ(piece->y2, 100);
}

TEST(ClipLine, findsNothingOutside) {
  EXPECT_FALSE(clipped({-10, 0, -10, 300}));
  EXPECT_FALSE(clipped({-100, 300, 200, 600}));
}

TEST(ClipLine, findsNothingWithoutFiniteCoordinates) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  using support::kInfinity;
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_FALSE(clipped({bad, 0, 1, 1}));
    EXPECT_FALSE(clipped({0, 0, 1, bad}));
  }
}

// However far away the line comes from, and however its places are rounded.
TEST(ClipLine, endsNearTheSurface) {
  const std::vector<double> places = {-3.4e38, -1e30, -1e16, -1e9, -7, 0, 150.3,
                                      1e7,     1e15,  1e29,  3e38};
  for (const double x1 : places) {
    for (const double y1 : places) {
      for (const double x2 : places) {
        for (const double y2 : places) {
          const auto piece = clipped({x1, y1, x2, y2});
          if (!piece) continue;
          for (const double x : {piece->x1, piece->x2}) {
            ASSERT_GE(x, -kBorder) << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2;
            ASSERT_LE(x, kWidth + kBorder) << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2;
          }
          for (const double y : {piece->y1, piece->y2}) {
            ASSERT_GE(y, -kBorder) << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2;
            ASSERT_LE(y, kHeight + kBorder) << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2;
          }
        }
      }
    }
  }
}
