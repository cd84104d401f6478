#include "render/plotFrame.h"

#include "HeldSection.h"
#include "render/drawVSection.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/RuntimeError.h"

namespace {

using namespace KelvaneMain;
using support::RecordingDesktop;

class PlotFrameTest : public render_tests::HeldSection {
 protected:
  // The mapping of seven columns to 200 m on the recording surface.
  void mapSection() {
    plot.WorldX2 = 7;
    plot.WorldY1 = -200;
    const PlotArea area = SetMargins(boxes.picSection);
    ASSERT_EQ(Cartesian(area.width, area.height, 48, static_cast<int32_t>(plot.BottomMargin)), 0);
  }
};

TEST_F(PlotFrameTest, TheSectionTypeIsTheAxisShownNotTheLineKept) {
  section.section_kind = kGeneralPath;
  EXPECT_EQ(sectionType(), 0);
  section.section_kind = kSameLatitude;
  EXPECT_EQ(sectionType(), 2);
  section.section_kind = kSameLongitude;
  EXPECT_EQ(sectionType(), 1);
}

TEST_F(PlotFrameTest, MarginsComeFromTheFont) {
  const PlotArea area = SetMargins(boxes.picSection);
  EXPECT_EQ(plot.TopMargin, 39.0F);
  EXPECT_EQ(plot.BottomMargin, 26.0F);
  EXPECT_EQ(plot.LeftMargin, 48.0F);
  EXPECT_EQ(plot.RightMargin, 42.0F);
  EXPECT_EQ(area.width, 510);
  EXPECT_EQ(area.height, 335);
  EXPECT_EQ(plot.PlotHeightBase, 374.0F);
}

TEST_F(PlotFrameTest, ADegreeAxisTakesAThirdLine) {
  alongLatitude(4);
  const PlotArea area = SetMargins(boxes.picSection);
  EXPECT_EQ(plot.BottomMargin, 39.0F);
  EXPECT_EQ(area.height, 322);
}

TEST_F(PlotFrameTest, SizesAreRoundedHalfToEven) {
  boxes.picSection.Font.Size = 8.0F * 1.1F;  // text 14.3 high, characters 6.6 wide
  const PlotArea area = SetMargins(boxes.picSection);
  EXPECT_EQ(area.width, 501);   // 600 - 52.8 - 46.2
  EXPECT_EQ(area.height, 328);  // 400 - 42.9 - 28.6 = 328.5
}

TEST_F(PlotFrameTest, TheWorldLandsWhereTheOffsetsPutIt) {
  mapSection();
  EXPECT_EQ(plot.ScaleX, 66.0);
  EXPECT_EQ(plot.ScaleY, 1.545);
  struct Row {
    double x, y;
    float sx, sy;
  };
  const Row rows[] = {
      {0, 0, 48, 39}, {7, -200, 510, 348}, {1, -50, 114, 116.25F}, {3.5, -100, 279, 193.5F}};
  for (const Row& row : rows) {
    const SurfacePoint point = WorldToSurface(row.x, row.y);
    EXPECT_EQ(point.x, row.sx);
    EXPECT_EQ(point.y, row.sy);
  }
}

TEST_F(PlotFrameTest, APointBeyondSinglePrecisionIsAnOverflow) {
  mapSection();
  EXPECT_THROW(WorldToSurface(1e300, 0), util::RuntimeError);
  EXPECT_THROW(WorldToSurface(0, -1e300), util::RuntimeError);
}

TEST_F(PlotFrameTest, ADepthRangeOfZeroIsRefusedWithABox) {
  mapSection();
  const double scaleBefore = plot.ScaleX;
  plot.WorldX2 = 10;
  plot.WorldY1 = 0;
  EXPECT_EQ(Cartesian(510, 335, 48, 26), -1);
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0],
            (RecordingDesktop::Message{"[Cartesian] scale parameters out of rangexy4:x=010xy4:y=00",
                                       "KelvaneCtl", platform::MessageIcon::None}));
  EXPECT_EQ(plot.ScaleX, scaleBefore);
}

TEST_F(PlotFrameTest, ASurfaceWithoutRoomIsRefusedWithABox) {
  mapSection();
  const PlotGeometry before = plot;
  EXPECT_EQ(Cartesian(-1, 0, 48, 26), -1);
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0].text, "[Cartesian] screen size out of rangepwidth, phight = -10");
  EXPECT_EQ(plot.ScaleX, before.ScaleX);
  EXPECT_EQ(plot.OffsetX, before.OffsetX);
}

TEST_F(PlotFrameTest, OnePositiveDimensionIsEnough) {
  plot.WorldX2 = 7;
  plot.WorldY1 = -200;
  EXPECT_EQ(Cartesian(1, -5, 0, 0), 0);
  EXPECT_EQ(Cartesian(-5, 1, 0, 0), 0);
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(PlotFrameTest, AWorldWithoutWidthIsADivisionByZero) {
  plot.WorldY1 = -200;
  try {
    Cartesian(510, 335, 48, 26);
    FAIL() << "a world without columns was mapped";
  } catch (const util::RuntimeError& error) {
    EXPECT_EQ(error.number(), util::kDivisionByZero);
  }
}

TEST_F(PlotFrameTest, NeitherBlocksNorAxesFollowARefusal) {
  holdGrid(7, {0});
  plot.WorldX2 = 7;
  EXPECT_EQ(DrawFrameAndAxes(boxes.picSection), -1);
  EXPECT_TRUE(boxes.picSection.operations.empty());
  EXPECT_EQ(desktop.messages.size(), 1U);
}

}  // namespace
