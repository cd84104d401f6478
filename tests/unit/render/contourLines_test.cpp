#include "render/contourLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "contourGrid.h"
#include "render/contourLevels.h"
#include "render/plotFrame.h"
#include "support/RecordingDesktop.h"
#include "support/RecordingPictureBox.h"
#include "util/RuntimeError.h"

namespace {

using OcxContr::ContourStyle;
using render_tests::ContourGrid;
using support::Operation;
using Kind = Operation::Kind;

// Lines on a surface where a column is 100 units wide and a metre 10 high.
class ContourLinesTest : public testing::Test {
 protected:
  struct Point {
    double x, y;
  };

  void SetUp() override {
    KelvaneMain::plot = {};
    KelvaneMain::plot.ScaleX = 100;
    KelvaneMain::plot.ScaleY = 10;
  }
  void TearDown() override { KelvaneMain::plot = {}; }

  void draw(const ContourGrid& grid, float interval, float maximum, float minimum) {
    picture.operations.clear();
    after = interval;
    const double depth = grid.depths.back();
    OcxContr::DrawContourLines(picture, grid.field(), after,
                               {.rangeMaximum = maximum,
                                .rangeMinimum = minimum,
                                .lineColour = 200,
                                .yStep = -depth / std::max(grid.nlevels - 1, 1)});
  }
  // Expects exactly one polyline with one label.
  void expectOneLine(const std::vector<Point>& world, const std::string& label,
                     std::size_t labelled) {
    const auto& found = picture.operations;
    ASSERT_EQ(found.size(), world.size() - 1 + 2);
    for (std::size_t p = 1; p < world.size(); ++p) {
      SCOPED_TRACE(p);
      const Operation& line = found[p - 1];
      EXPECT_EQ(line.kind, Kind::Line);
      EXPECT_FLOAT_EQ(line.x1, static_cast<float>(100 * world[p - 1].x));
      EXPECT_FLOAT_EQ(line.y1, static_cast<float>(-10 * world[p - 1].y));
      EXPECT_FLOAT_EQ(line.x2, static_cast<float>(100 * world[p].x));
      EXPECT_FLOAT_EQ(line.y2, static_cast<float>(-10 * world[p].y));
      EXPECT_EQ(line.colour, 200);
    }
    const Operation& print = found[world.size() - 1];
    EXPECT_EQ(print.kind, Kind::Print);
    EXPECT_EQ(print.text, label);
    EXPECT_FLOAT_EQ(print.x1, static_cast<float>(100 * world[labelled - 1].x));
    EXPECT_FLOAT_EQ(print.y1, static_cast<float>(-10 * world[labelled - 1].y));
    EXPECT_EQ(print.colour, 200);
    EXPECT_EQ(found.back().kind, Kind::Refresh);
    EXPECT_EQ(desktop.progress, 1);
  }

  support::RecordingDesktop desktop;
  platform::DesktopScope scope{desktop};
  support::RecordingPictureBox picture{"picContours"};
  float after = 0;
};

TEST_F(ContourLinesTest, ARingAroundAPeak) {
  draw(ContourGrid({{0, 0, 0}, {0, 4, 0}, {0, 0, 0}}), 2, 3.5F, 1);
  const double sixth = 1.0 / 6;
  expectOneLine({{1 + sixth, -40 * sixth},
                 {1.5, -5},
                 {2 - sixth, -40 * sixth},
                 {2, -10},
                 {2 - sixth, -100 * sixth},
                 {1.5, -20},
                 {1 + sixth, -100 * sixth},
                 {1, -10},
                 {1 + sixth, -40 * sixth}},
                " 2", 4);
}

TEST_F(ContourLinesTest, AnInclinedLineFromTheBottomUp) {
  draw(ContourGrid({{0, 1, 2, 3}, {1, 2, 3, 4}, {2, 3, 4, 5}}), 2.5F, 4, 1);
  expectOneLine({{1, -30},
                 {1.25, -25},
                 {1.5, -20},
                 {1.75, -15},
                 {2, -10},
                 {2.25, -7.5},
                 {2.5, -5},
                 {2.75, -2.5},
                 {3, 0}},
                " 2.5", 4);
}

TEST_F(ContourLinesTest, ALevelLineFromTheRight) {
  draw(ContourGrid({{0, 0, 0, 0, 0}, {4, 4, 4, 4, 4}}), 1, 1.9F, 0.5F);
  expectOneLine({{4.5, -2.5},
                 {4.25, -2.5},
                 {3.75, -2.5},
                 {3.5, -2.5},
                 {3.25, -2.5},
                 {2.75, -2.5},
                 {2.5, -2.5},
                 {2.25, -2.5},
                 {1.75, -2.5},
                 {1.5, -2.5},
                 {1.25, -2.5},
                 {0.75, -2.5},
                 {0.5, -2.5}},
                " 1", 6);
}

TEST_F(ContourLinesTest, NegativeLevelsAreLabelledWithoutABlank) {
  draw(ContourGrid({{0, 0, 0}, {0, -4, 0}, {0, 0, 0}}), 2, -1, -3.5F);
  EXPECT_EQ(picture.texts(), std::vector<std::string>{"-2"});
}

TEST_F(ContourLinesTest, FewerThanThreePiecesAreNoLine) {
  const ContourGrid grid({{0, 4}, {8, 4}});
  draw(grid, 4, 8.5F, 0.5F);  // two pieces at 4, two at 8
  EXPECT_TRUE(picture.operations.empty());
  EXPECT_EQ(desktop.progress, 0);
  draw(ContourGrid({{0, 1}, {0, 1}}), 0.5F, 0.9F, 0.1F);
  EXPECT_EQ(picture.of(Kind::Line).size(), 3U);  // three pieces at 0.5
}

TEST_F(ContourLinesTest, LinesOfLessThanSevenPointsHaveNoLabel) {
  for (int32_t columns = 2; columns <= 5; ++columns) {
    // A level line crosses three triangles of every cell, one of which it only touches.
    ContourGrid grid(columns, 2);
    for (int32_t c = 1; c <= columns; ++c) grid.value(c, 2) = 4;
    draw(grid, 1, 1.9F, 0.5F);
    const std::size_t points = picture.of(Kind::Line).size() + 1;
    EXPECT_EQ(points, 3 * static_cast<std::size_t>(columns - 1) + 1);
    EXPECT_EQ(picture.texts().size(), points >= 7 ? 1U : 0U) << points;
  }
  // Seven points: the middle is the fourth, halves go to the even one.
  ContourGrid seven(3, 2);
  for (int32_t c = 1; c <= 3; ++c) seven.value(c, 2) = 4;
  draw(seven, 1, 1.9F, 0.5F);
  const auto lines = picture.of(Kind::Line);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(picture.printOf(" 1").x1, lines[2].x2);
}

TEST_F(ContourLinesTest, TheIntervalIsReplacedForTheCaller) {
  const ContourGrid grid({{1, 9}, {1, 9}});
  draw(grid, 10, 9, 0);
  EXPECT_EQ(after, -0.8F);
  EXPECT_EQ(desktop.progress, 10);
  draw(grid, 2, 9, 0);
  EXPECT_EQ(after, 2.0F);
}

TEST_F(ContourLinesTest, NothingIsDrawnOfOneValueOrOfNone) {
  draw(ContourGrid({{5, 5, 5}, {5, 5, 5}}), 1, 5, 5);
  EXPECT_EQ(after, 0.0F);
  draw(ContourGrid({{5, 7}, {6, 5}}, {{0, 0}, {0, 0}}), 1, 10, 0);
  draw(ContourGrid({{5, 7}, {6, 5}}, {{0, 0}, {0, 0}}), 1, 0, 0);
  draw(ContourGrid({{1, 2, 3}}), 1, 3, 1);
  draw(ContourGrid({{1}, {2}, {3}}), 1, 3, 1);
  EXPECT_TRUE(picture.operations.empty());
}

TEST_F(ContourLinesTest, TheForeColourIsPutBack) {
  picture.ForeColor = 77;
  draw(ContourGrid({{0, 0, 0}, {0, 4, 0}, {0, 0, 0}}), 1, 4, 0);
  EXPECT_EQ(picture.ForeColor, 77);
  EXPECT_EQ(picture.of(Kind::Print).size(), 4U);
  KelvaneMain::plot.ScaleX = 1e39;  // the mapping leaves the single range
  EXPECT_THROW(draw(ContourGrid({{0, 4}, {0, 4}}), 1, 4, 0), util::RuntimeError);
  EXPECT_EQ(picture.ForeColor, 77);
}

TEST_F(ContourLinesTest, MoreLevelsThanAreCountedAreAnOverflow) {
  picture.ForeColor = 77;
  try {
    draw(ContourGrid({{0, 4}, {0, 4}}), 1e-6F, 4, 0);
    FAIL() << "the levels never end";
  } catch (const util::RuntimeError& error) {
    EXPECT_EQ(error.number(), util::kOverflow);
  }
  EXPECT_EQ(picture.ForeColor, 77);
  EXPECT_EQ(desktop.progress, 32767);  // all that were counted are drawn; level 0 has no line
}

// The most levels that can be asked for, none of them with a line in a large field.
TEST_F(ContourLinesTest, TheMostLevelsOfNothingEndSoon) {
  ContourGrid grid(4000, 100);
  for (int32_t c = 2000; c <= 4000; ++c) {
    for (int32_t k = 1; k <= 100; ++k) grid.value(c, k) = 4;
  }
  for (int32_t k = 1; k <= 100; ++k) grid.mark(2000, k) = 0;
  EXPECT_THROW(draw(grid, 1e-6F, 5, 0), util::RuntimeError);
  EXPECT_TRUE(picture.operations.empty());
}

TEST_F(ContourLinesTest, LevelsWithoutADepthHaveNoLines) {
  ContourGrid grid({{0, 1, 2, 3}, {1, 2, 3, 4}, {2, 3, 4, 5}});
  grid.depths[3] = std::numeric_limits<double>::quiet_NaN();
  float interval = 1;
  OcxContr::DrawContourLines(picture, grid.field(), interval,
                             {.rangeMaximum = 5, .rangeMinimum = 0, .lineColour = 0, .yStep = -10});
  ASSERT_FALSE(picture.operations.empty());
  for (const Operation& line : picture.of(Kind::Line)) {
    EXPECT_LE(line.y1, 100.0F);
    EXPECT_LE(line.y2, 100.0F);
  }
}

}  // namespace
