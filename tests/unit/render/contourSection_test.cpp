#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "HeldSection.h"
#include "render/contourLevels.h"
#include "render/drawVSection.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "util/lastError.h"

// Contour lines as a part of the whole picture.
namespace {

using namespace KelvaneMain;
using support::Operation;
using Kind = Operation::Kind;

class ContourSectionTest : public render_tests::HeldSection {
 protected:
  void SetUp() override {
    HeldSection::SetUp();
    settings.ViewStyle = 1;
    settings.ContourLineColor = 77;
  }
  void draw() {
    boxes.forget();
    DrawVSection(pictures);
  }
  // Levels of the held grid with the plotting range of the item shown.
  static std::vector<float> levels() {
    const OcxContr::ContourField field{section_values.ncols(), section_values.nlevels(),
                                       section_values.values(), section_values.marks(),
                                       section_values.depths};
    float interval = DrawItems(1).plot_interval;
    OcxContr::ContourLevels all(OcxContr::scanRange(field), interval, DrawItems(1).plot_max,
                                DrawItems(1).plot_min);
    std::vector<float> found;
    while (const auto level = all.next()) found.push_back(*level);
    return found;
  }
};

TEST_F(ContourSectionTest, LinesAndLabelsStandOnTheirOwnSurface) {
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(levels(), (std::vector<float>{10, 11, 12, 13, 14, 15, 16, 17}));
  const auto& found = boxes.picContours.operations;
  ASSERT_GT(found.size(), 2U);
  EXPECT_EQ(found.front().kind, Kind::Cls);
  EXPECT_EQ(found.back().kind, Kind::Refresh);
  EXPECT_EQ(boxes.picContours.of(Kind::Cls).size(), 1U);
  EXPECT_TRUE(boxes.picContours.of(Kind::Box).empty());
  for (const Operation& line : boxes.picContours.of(Kind::Line)) {
    EXPECT_EQ(line.colour, 77);
    EXPECT_EQ(line.drawWidth, 1);
    EXPECT_GE(line.x1, 81.0F);  // half a column inside the frame
    EXPECT_LE(line.x2, 477.0F);
    EXPECT_GE(line.y1, 39.0F);
    EXPECT_LE(line.y2, 348.0F);
  }
  for (const Operation& print : boxes.picContours.of(Kind::Print)) {
    EXPECT_EQ(print.colour, 77);
    EXPECT_EQ(print.font, platform::Font{});
  }
  EXPECT_EQ(boxes.picContours.texts(),
            (std::vector<std::string>{" 10", " 11", " 12", " 13", " 14", " 15", " 16", " 17"}));
  EXPECT_EQ(std::ssize(boxes.picContours.of(Kind::Refresh)), desktop.progress);
}

TEST_F(ContourSectionTest, ALineRunsFromTheFirstColumnToTheLast) {
  DrawItems(1).plot_max = 13.5F;  // of the whole degrees, 13 alone is left
  DrawItems(1).plot_min = 12.4F;
  draw();
  EXPECT_EQ(boxes.picContours.texts(), std::vector<std::string>{" 13"});
  const auto lines = boxes.picContours.of(Kind::Line);
  ASSERT_FALSE(lines.empty());
  // 16.22 at the surface and 12.72 at 50 m: 13 lies at 46 m in the first column.
  const float x = 48 + 33, y = static_cast<float>(39 + 46 * 1.545);
  int32_t atTheLeft = 0;
  for (const Operation& line : lines) {
    for (const auto& [endX, endY] : {std::pair(line.x1, line.y1), std::pair(line.x2, line.y2)}) {
      if (endX != x) continue;
      EXPECT_NEAR(endY, y, 1e-3);
      ++atTheLeft;
    }
  }
  EXPECT_GT(atTheLeft, 0);
  // One polyline: every line begins where the one before it ended.
  for (std::size_t n = 1; n < lines.size(); ++n) {
    EXPECT_EQ(lines[n].x1, lines[n - 1].x2);
    EXPECT_EQ(lines[n].y1, lines[n - 1].y2);
  }
}

TEST_F(ContourSectionTest, LinesChangeNothingOnTheOtherSurfaces) {
  support::RecordingPictures without;
  platform::Pictures blank = without.pictures();
  settings.ViewStyle = 0;
  DrawVSection(blank);
  EXPECT_EQ(without.picContours.operations.size(), 1U);
  settings.ViewStyle = 1;
  draw();
  const auto same = [](const auto& one, const auto& other) {
    ASSERT_EQ(one.operations.size(), other.operations.size()) << one.name;
    for (std::size_t n = 0; n < one.operations.size(); ++n) {
      EXPECT_EQ(one.operations[n].kind, other.operations[n].kind);
      EXPECT_EQ(one.operations[n].text, other.operations[n].text);
      EXPECT_EQ(one.operations[n].x1, other.operations[n].x1);
    }
  };
  same(boxes.picSection, without.picSection);  // the transfers included
  same(boxes.picDateTime, without.picDateTime);
  same(boxes.Picture1, without.Picture1);
}

TEST_F(ContourSectionTest, AnyStyleAboveZeroHasLines) {
  for (const int32_t style : {-1, 0, 1, 2, 1000}) {
    settings.ViewStyle = style;
    draw();
    EXPECT_EQ(!boxes.picContours.of(Kind::Line).empty(), style > 0) << style;
  }
}

TEST_F(ContourSectionTest, LegendAndLinesAreIndependent) {
  settings.ShowLegend = 0;
  draw();
  EXPECT_FALSE(boxes.picContours.of(Kind::Line).empty());
}

TEST_F(ContourSectionTest, TheNumberOfLevelsIsRaisedToOneAndDecidesNothing) {
  draw();
  const auto lines = boxes.picContours.operations.size();
  for (const int32_t number : {-5, 0, 1, 7}) {
    settings.ContourLevels = number;
    draw();
    EXPECT_EQ(settings.ContourLevels, std::max(number, 1));
    EXPECT_EQ(boxes.picContours.operations.size(), lines);
  }
}

TEST_F(ContourSectionTest, TheItemKeepsItsInterval) {
  DrawItems(1).plot_interval = 100;  // replaced while drawing
  draw();
  EXPECT_EQ(DrawItems(1).plot_interval, 100.0F);
  EXPECT_EQ(desktop.progress, std::ssize(boxes.picContours.of(Kind::Refresh)));
  EXPECT_EQ(levels().size(), 10U);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(ContourSectionTest, TheSurfaceKeepsItsState) {
  boxes.picContours.ForeColor = 5;
  boxes.picContours.DrawWidth = 3;
  draw();
  EXPECT_EQ(boxes.picContours.ForeColor, 5);
  EXPECT_EQ(boxes.picContours.DrawWidth, 3);
  ASSERT_FALSE(boxes.picContours.of(Kind::Line).empty());
  for (const Operation& line : boxes.picContours.of(Kind::Line)) {
    EXPECT_EQ(line.drawWidth, 1);
    EXPECT_EQ(line.colour, 77);
  }
}

// Two gaps of two columns, on either side of the diagonal of one column by one mean level step.
TEST_F(ContourSectionTest, LinesAreJoinedOverOneStepInBothDirections) {
  DrawItems(1).plot_max = 19;
  DrawItems(1).plot_min = 12;
  DrawItems(1).plot_interval = 5;  // of the multiples, 15 alone is within the range
  for (const auto& [ncols, polylines] : {std::pair(6, 1), std::pair(5, 2)}) {
    holdGrid(ncols, {0, 20, 200});
    for (int32_t c = 1; c <= ncols; ++c) {
      section_values.store(c, 1, 10);
      section_values.store(c, 2, 20);
      section_values.store(c, 3, 20);
    }
    for (int32_t k = 1; k <= 3; ++k) section_values.store(3, k, -1e35F);
    draw();
    const double column = 462.0 / ncols, levelStep = 309.0 / 2;
    const double gap = 4 * column * column, tolerance = column * column + levelStep * levelStep;
    ASSERT_EQ(gap <= tolerance, polylines == 1);
    ASSERT_GT(gap, column * column + 309.0 * 309.0 / 9);
    // The picture is refreshed after every polyline.
    EXPECT_EQ(std::ssize(boxes.picContours.of(Kind::Refresh)), polylines) << ncols;
  }
}

TEST_F(ContourSectionTest, AFieldOfOneValueAndASingleLevelHaveNoLines) {
  holdGrid(7, {0, 50, 200});
  DrawItems(1).plot_max = DrawItems(1).plot_min = 13.15F;
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(boxes.picContours.of(Kind::Line).empty());
  holdGrid(7, {100});
  draw();
  EXPECT_EQ(util::LastError, "");
  holdGrid(1, {0, 50, 200});
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(boxes.picContours.of(Kind::Line).empty());
}

TEST_F(ContourSectionTest, WithoutAFrameThereAreNoLines) {
  holdGrid(7, {0, 0});
  section_values.store(1, 1, 9);
  draw();
  EXPECT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(boxes.picContours.operations.size(), 1U);
}

TEST_F(ContourSectionTest, TooManyLevelsAreReportedAndWhatWasDrawnIsShown) {
  DrawItems(1).plot_interval = 1e-5F;
  draw();
  EXPECT_EQ(util::LastError, "DrawVSection KelvaneMain: 6, KelvaneCtl, Overflow");
  EXPECT_FALSE(boxes.picContours.of(Kind::Line).empty());
  const auto& drawn = boxes.picSection.operations;
  EXPECT_EQ(drawn[drawn.size() - 3].text, "picContours");
  EXPECT_EQ(boxes.Picture1.operations.back().kind, Kind::Refresh);
  EXPECT_EQ(boxes.picContours.ForeColor, 0);
}

TEST_F(ContourSectionTest, ALatitudeRowHasItsOwnLevels) {
  alongLatitude(4);
  const std::vector<std::vector<float>> rows = {{15.82F, 16.19F, 16.56F, 16.93F},
                                                {12.32F, 12.69F, 13.06F, 13.43F},
                                                {8.82F, 9.19F, 9.56F, 9.93F}};
  for (int32_t k = 1; k <= 3; ++k) {
    for (int32_t c = 1; c <= 4; ++c) {
      const auto& row = rows[static_cast<std::size_t>(k - 1)];
      section_values.store(c, k, row[static_cast<std::size_t>(c - 1)]);
    }
  }
  DrawItems(1).plot_max = 16.93F;
  DrawItems(1).plot_min = 8;
  EXPECT_EQ(levels(), (std::vector<float>{9, 10, 11, 12, 13, 14, 15, 16}));
}

}  // namespace
