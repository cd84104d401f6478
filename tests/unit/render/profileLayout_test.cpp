#include "render/profileLayout.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "render/plotFrame.h"
#include "support/RecordingPictureBox.h"
#include "support/sampleSets.h"

namespace {

using namespace KelvaneMain;

class ProfileLayout : public testing::Test {
 protected:
  void TearDown() override { support::resetState(); }
  support::RecordingPictureBox surface{"picSection"};  // 600 x 400, letters of 6 x 13
};

TEST_F(ProfileLayout, MarginsFollowTheSideOfTheDepthLabels) {
  const struct {
    LabelSide side;
    float left, right;
  } cases[] = {{LabelSide::Left, 42, 12}, {LabelSide::None, 18, 18}, {LabelSide::Right, 12, 42}};
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.side));
    const GraphLayout layout = LayoutGraphs(surface, 1, 1, c.side);
    EXPECT_EQ(plot.TopMargin, 52.0F);
    EXPECT_EQ(plot.BottomMargin, 52.0F);
    EXPECT_EQ(plot.LeftMargin, c.left);
    EXPECT_EQ(plot.RightMargin, c.right);
    EXPECT_EQ(layout.left, c.left);
    EXPECT_EQ(layout.top, 52.0F);
    EXPECT_EQ(layout.width, 600.0F - c.left - c.right);
    EXPECT_EQ(layout.height, 296.0F);
  }
}

TEST_F(ProfileLayout, OneGraphFillsTheFreeRoom) {
  const GraphArea area = LayoutGraphs(surface, 1, 1, LabelSide::Left).area(1, 1);
  EXPECT_EQ(area.x, 42.0F);
  EXPECT_EQ(area.y, 52.0F);
  EXPECT_EQ(area.width, 546.0F);
  EXPECT_EQ(area.height, 296.0F);
}

TEST_F(ProfileLayout, GraphsSideBySideAreATwentiethApart) {
  const GraphLayout layout = LayoutGraphs(surface, 1, 3, LabelSide::Left);
  EXPECT_FLOAT_EQ(layout.gapX, 27.3F);
  const float lefts[] = {42.0F, 233.1F, 424.2F};
  for (int32_t column = 1; column <= 3; ++column) {
    const GraphArea area = layout.area(1, column);
    EXPECT_FLOAT_EQ(area.x, lefts[column - 1]);
    EXPECT_EQ(area.y, 52.0F);
    EXPECT_FLOAT_EQ(area.width, 163.8F);
    EXPECT_EQ(area.height, 296.0F);
  }
  EXPECT_FLOAT_EQ(layout.area(1, 3).x + layout.width, 588.0F);
}

TEST_F(ProfileLayout, RowsAreATwentiethApartToo) {
  const GraphLayout layout = LayoutGraphs(surface, 2, 2, LabelSide::Left);
  EXPECT_FLOAT_EQ(layout.gapY, 14.8F);
  EXPECT_FLOAT_EQ(layout.height, 140.6F);
  EXPECT_FLOAT_EQ(layout.area(2, 1).y, 207.4F);
  EXPECT_FLOAT_EQ(layout.area(2, 1).y + layout.height, 348.0F);
  EXPECT_EQ(layout.area(2, 1).x, 42.0F);
  EXPECT_FLOAT_EQ(layout.area(2, 2).x, 328.65F);
}

TEST_F(ProfileLayout, TheGapsOfManyGraphsLeaveNoRoomForThem) {
  const struct {
    int32_t graphs;
    bool room;
  } cases[] = {{1, true},   {8, true},   {15, true},          {20, true},
               {21, false}, {40, false}, {INT32_MIN, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(LayoutGraphs(surface, 1, c.graphs, LabelSide::Left).hasRoom(), c.room) << c.graphs;
  }
}

TEST_F(ProfileLayout, ASmallSurfaceHasNoRoomBetweenTheMargins) {
  surface.Move(0, 0, 30, 30);
  const GraphLayout layout = LayoutGraphs(surface, 1, 2, LabelSide::Left);
  EXPECT_LT(layout.width, 0.0F);
  EXPECT_LT(layout.height, 0.0F);
  EXPECT_FALSE(layout.hasRoom());
}

}  // namespace
