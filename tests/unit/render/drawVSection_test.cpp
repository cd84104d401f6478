#include "render/drawVSection.h"

#include <limits>

#include "HeldSection.h"
#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "netcdf/ncf.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/lastError.h"

namespace {

using namespace KelvaneMain;
using platform::rgb;
using support::Operation;
using Kind = Operation::Kind;
using Texts = std::vector<std::string>;

class DrawVSectionTest : public render_tests::HeldSection {
 protected:
  void draw() {
    boxes.forget();
    DrawVSection(pictures);
  }
  // The cell blocks: the boxes that are not the legend's.
  std::vector<Operation> blocks() {
    auto found = boxes.picSection.of(Kind::Box);
    std::erase_if(found, [](const Operation& box) { return box.x1 > 512; });
    return found;
  }
  std::vector<Operation> legendBoxes() {
    auto found = boxes.picSection.of(Kind::Box);
    std::erase_if(found, [](const Operation& box) { return box.x1 <= 512; });
    return found;
  }
};

void expectCorners(const Operation& box, float x1, float y1, float x2, float y2) {
  EXPECT_FLOAT_EQ(box.x1, x1);
  EXPECT_FLOAT_EQ(box.y1, y1);
  EXPECT_FLOAT_EQ(box.x2, x2);
  EXPECT_FLOAT_EQ(box.y2, y2);
}

TEST_F(DrawVSectionTest, BlocksFillTheGridLevelByLevel) {
  draw();
  EXPECT_EQ(util::LastError, "");
  const auto found = blocks();
  ASSERT_EQ(found.size(), 14U);
  expectCorners(found[0], 48, 39, 114, 116.25F);
  expectCorners(found[1], 114, 39, 180, 116.25F);
  expectCorners(found[6], 444, 39, 510, 116.25F);
  expectCorners(found[7], 48, 116.25F, 114, 348);
  expectCorners(found[13], 444, 116.25F, 510, 348);
}

TEST_F(DrawVSectionTest, BlocksAreShadedByTheirUpperLevel) {
  draw();
  const auto found = blocks();
  ASSERT_EQ(found.size(), 14U);
  for (std::size_t c = 0; c < 7; ++c) {
    const float fraction = ModColor::valueFraction(render_tests::kHeldValues[0][c]);
    EXPECT_EQ(found[c].colour, ModColor::RampColour(fraction)) << c;
  }
  EXPECT_EQ(found[6].colour, rgb(245, 0, 0));  // the greatest value of the range
  EXPECT_EQ(found[0].colour, rgb(245, 96, 96));
  EXPECT_EQ(found[7].colour, rgb(161, 161, 245));
}

TEST_F(DrawVSectionTest, TheKeptPlottingRangeSetsTheColours) {
  DrawItems(1).maximum = 17.85F;  // a later time step's extremes
  DrawItems(1).minimum = 9.77F;
  section_values.store(1, 1, 17.85F);
  section_values.store(2, 1, 9);
  section_values.store(3, 1, 8.5F);
  draw();
  EXPECT_EQ(ModColor::ValueMin, 9.0F);
  EXPECT_EQ(ModColor::ValueSpan, 8.299999F);
  EXPECT_EQ(blocks()[0].colour, rgb(245, 0, 0));
  EXPECT_EQ(blocks()[1].colour, rgb(255, 255, 255));
  EXPECT_EQ(blocks()[2].colour, rgb(255, 255, 255));
}

TEST_F(DrawVSectionTest, ACellWithoutAValueIsNeverPainted) {
  section_values.store(2, 1, -1e35F);
  section_values.store(5, 2, std::numeric_limits<float>::quiet_NaN());
  draw();
  EXPECT_EQ(util::LastError, "");
  const auto found = blocks();
  ASSERT_EQ(found.size(), 12U);
  for (const Operation& box : found) {
    EXPECT_FALSE(box.x1 == 114.0F && box.y1 == 39.0F);
    EXPECT_FALSE(box.x1 == 312.0F && box.y1 == 116.25F);
  }
}

TEST_F(DrawVSectionTest, TheKeyShadesBlocksAndLegendWhenItIsUsed) {
  ModColor::AddColorKey(0, 13, 255);
  ModColor::AddColorKey(13, 17, 65280);
  ModColor::UseColorKey(true);
  draw();
  EXPECT_EQ(blocks()[0].colour, 65280);
  EXPECT_EQ(blocks()[7].colour, 255);
  EXPECT_EQ(blocks()[6].colour, 16777215);
  const auto legend = legendBoxes();
  ASSERT_EQ(legend.size(), 2U);
  expectCorners(legend[0], 516, 39, 537, 52);
  EXPECT_EQ(legend[0].colour, 65280);
  EXPECT_FALSE(boxes.picSection.printOf("13 - 17").font.Bold);
}

TEST_F(DrawVSectionTest, TheRampLegendStandsAtTheRightInPlainLetters) {
  draw();
  const auto legend = legendBoxes();
  ASSERT_EQ(legend.size(), 50U);
  const float shade = 335.0F / 54.0F;
  expectCorners(legend[49], 526.5F, 39 + shade, 547.5F, 39 + 2 * shade);
  const Operation label = boxes.picSection.printOf("17.30");
  EXPECT_EQ(label.x1, 558.0F);
  EXPECT_FALSE(label.font.Bold);
  EXPECT_FLOAT_EQ(boxes.picSection.printOf("9.83").y1, 39 + 46 * shade - shade / 2);
}

TEST_F(DrawVSectionTest, TheLegendIsDrawnForExactlyOne) {
  for (const int32_t show : {0, 2, -1}) {
    settings.ShowLegend = show;
    draw();
    EXPECT_TRUE(legendBoxes().empty()) << show;
    EXPECT_EQ(blocks().size(), 14U);
  }
}

TEST_F(DrawVSectionTest, TitlesArePrintedForAnythingButZero) {
  settings.ShowTitles = 0;
  draw();
  EXPECT_TRUE(boxes.picDateTime.texts().empty());
  EXPECT_EQ(boxes.picSection.texts()[0], "0 km");
  settings.ShowTitles = -1;
  draw();
  EXPECT_EQ(boxes.picDateTime.texts(), (Texts{"Date/Time: 1990-01-02 12:00:00"}));
  EXPECT_EQ(boxes.picSection.texts()[0], "Data Set: tiny.nc");
  EXPECT_TRUE(boxes.picSection.printOf("Data Set: tiny.nc").font.Bold);
}

TEST_F(DrawVSectionTest, BothAxesAreShownOnEveryDrawing) {
  settings.ShowDistanceAxis = settings.ShowDepthAxis = 0;
  draw();
  EXPECT_EQ(settings.ShowDistanceAxis, 1);
  EXPECT_EQ(settings.ShowDepthAxis, 1);
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 10U + 11U);
  EXPECT_TRUE(boxes.picSection.printOf("0 km").font.Bold);
  EXPECT_EQ(boxes.picSection.printOf("0 m").x1, 27.0F);
}

TEST_F(DrawVSectionTest, APathWithoutLengthHasNoBottomAxis) {
  for (const double length : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    section.section_length_km = length;
    draw();
    EXPECT_EQ(util::LastError, "");
    EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 11U) << length;  // depths only
  }
}

TEST_F(DrawVSectionTest, ThePicturesMeetOnTheVisibleOne) {
  draw();
  const auto& visible = boxes.Picture1.operations;
  ASSERT_EQ(visible.size(), 3U);
  EXPECT_EQ(visible[0].kind, Kind::Cls);
  EXPECT_EQ(visible[1].kind, Kind::And);
  EXPECT_EQ(visible[1].text, "picSection");
  EXPECT_EQ(visible[2].kind, Kind::Refresh);
  const auto& drawn = boxes.picSection.operations;
  ASSERT_GT(drawn.size(), 4U);
  EXPECT_EQ(drawn.front().kind, Kind::Cls);
  const std::size_t end = drawn.size();
  EXPECT_EQ(drawn[end - 3].text, "picContours");
  EXPECT_EQ(drawn[end - 2].text, "picDateTime");
  EXPECT_EQ(drawn[end - 2].kind, Kind::And);
  EXPECT_EQ(drawn[end - 1].kind, Kind::Refresh);
  EXPECT_EQ(boxes.picSection.of(Kind::And).size(), 2U);
  for (const auto* box : {&boxes.picContours, &boxes.picDateTime}) {
    EXPECT_EQ(box->operations.front().kind, Kind::Cls) << box->name;
  }
}

TEST_F(DrawVSectionTest, TheSurfacesKeepTheirFontsAndColours) {
  boxes.picSection.Font.Size = 9;
  boxes.picSection.ForeColor = 77;
  draw();
  EXPECT_EQ(boxes.picSection.Font, (platform::Font{.Size = 9}));
  EXPECT_EQ(boxes.picSection.ForeColor, 77);
}

TEST_F(DrawVSectionTest, ASingleLevelBelowTheSurfaceHasAxesAndNoBlock) {
  holdGrid(7, {100});
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_TRUE(blocks().empty());
  EXPECT_EQ(boxes.picSection.printOf("0 m").y1, 32.5F);
}

TEST_F(DrawVSectionTest, ASingleColumnFillsTheWidth) {
  holdGrid(1, {0, 50});
  draw();
  ASSERT_EQ(blocks().size(), 1U);
  expectCorners(blocks()[0], 48, 39, 510, 348);
}

TEST_F(DrawVSectionTest, ARangeOfNoWidthIsWhiteWithAxesAndLegend) {
  DrawItems(1).plot_max = DrawItems(1).plot_min = 5;
  draw();
  EXPECT_EQ(util::LastError, "");
  for (const Operation& block : blocks()) EXPECT_EQ(block.colour, 16777215);
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 21U);
  EXPECT_EQ(legendBoxes().size(), 50U);
  EXPECT_EQ(boxes.picSection.texts().back(), "5.00");
}

TEST_F(DrawVSectionTest, LevelsAboveTheSurfaceHaveNoDepthTicks) {
  holdGrid(7, {0, -50, -200});
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(boxes.picSection.of(Kind::Line).size(), 10U);  // distances only
}

TEST_F(DrawVSectionTest, TheHeldGridOutlivesItsDataSet) {
  ocxNetNc::ncf = {};
  section.ncols = 3;
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(blocks().size(), 14U);
}

TEST_F(DrawVSectionTest, AWideGridIsDrawnCellByCell) {
  holdGrid(20000, {0, 10, 20, 30, 40, 50});
  draw();
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(blocks().size(), 100000U);
}

}  // namespace
