#include "render/profileGraph.h"

#include <limits>

#include "HeldSection.h"
#include "section/sectionValues.h"
#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using namespace KelvaneMain;
using support::Operation;
using Kind = Operation::Kind;
using Texts = std::vector<std::string>;

using support::kFloatInfinity;
using support::kFloatNan;

std::vector<double> depthsOf(const std::vector<ProfilePoint>& profile) {
  std::vector<double> depths;
  for (const ProfilePoint& point : profile) depths.push_back(point.depth);
  return depths;
}

// A graph of values 0..10 over 200 m, 100 x 50 units at (40, 60).
class ProfileGraphTest : public render_tests::HeldSection {
 protected:
  void SetUp() override {
    HeldSection::SetUp();
    item.plot_min = 0;
    item.plot_max = 10;
    item.plot_interval = 5;
  }
  ProfileGraph graph() const { return {{40, 60, 100, 50}, item, depthMax}; }
  void drawFrame() {
    ValueLabels labels;
    graph().drawFrame(surface, DepthLabels::Printed, labels);
  }
  std::vector<Operation> profileLines(const std::vector<ProfilePoint>& profile) {
    surface.operations.clear();
    graph().drawProfile(surface, profile);
    return surface.of(Kind::Line);
  }

  support::RecordingPictureBox& surface = boxes.picSection;
  DrawItem item;
  float depthMax = 200;
};

TEST_F(ProfileGraphTest, AProfileIsTheColumnFromTheTopDown) {
  const auto profile = CollectProfile(2);
  EXPECT_EQ(depthsOf(profile), (std::vector<double>{0, 50, 200}));
  ASSERT_EQ(profile.size(), 3U);
  EXPECT_EQ(profile[0].value, 16.59F);
  EXPECT_EQ(profile[1].value, 13.09F);
  EXPECT_EQ(profile[2].value, 9.59F);
}

TEST_F(ProfileGraphTest, LevelsWithoutAValueAreSkipped) {
  EXPECT_EQ(depthsOf(CollectProfile(7)), (std::vector<double>{0, 50}));
  section_values.store(3, 2, kFloatNan);
  section_values.store(3, 1, -2e35F);
  EXPECT_EQ(depthsOf(CollectProfile(3)), (std::vector<double>{200}));
  for (int32_t k = 1; k <= 3; ++k) section_values.store(4, k, -1e35F);
  EXPECT_TRUE(CollectProfile(4).empty());
}

TEST_F(ProfileGraphTest, AColumnThatTheGridDoesNotHaveIsEmpty) {
  for (const int32_t column : {0, -1, 8, std::numeric_limits<int32_t>::max()}) {
    EXPECT_TRUE(CollectProfile(column).empty()) << column;
  }
}

TEST_F(ProfileGraphTest, TheFrameIsARectangleOfThinLines) {
  drawFrame();
  const auto lines = surface.of(Kind::Line);
  ASSERT_GE(lines.size(), 4U);
  const float corners[4][4] = {
      {40, 60, 140, 60}, {140, 60, 140, 110}, {40, 110, 140, 110}, {40, 60, 40, 110}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(lines[i].x1, corners[i][0]);
    EXPECT_EQ(lines[i].y1, corners[i][1]);
    EXPECT_EQ(lines[i].x2, corners[i][2]);
    EXPECT_EQ(lines[i].y2, corners[i][3]);
    EXPECT_EQ(lines[i].drawWidth, 1);
  }
}

TEST_F(ProfileGraphTest, ValuesStandUnderTheirTicksInBold) {
  drawFrame();
  const auto lines = surface.of(Kind::Line);
  ASSERT_EQ(lines.size(), 4U + 11U + 3U);
  EXPECT_EQ(lines[16].x1, 90.0F);
  EXPECT_EQ(lines[16].y1, 110.0F);
  EXPECT_EQ(lines[16].x2, 90.0F);
  EXPECT_EQ(lines[16].y2, 116.5F);
  const Operation five = surface.printOf("5");
  EXPECT_EQ(five.x1, 87.0F);
  EXPECT_EQ(five.y1, 116.5F);
  EXPECT_TRUE(five.font.Bold);
  EXPECT_FALSE(surface.Font.Bold);
}

TEST_F(ProfileGraphTest, DepthLabelsCanBeLeftOutAndTheirTicksStay) {
  ValueLabels labels;
  graph().drawFrame(surface, DepthLabels::LeftOut, labels);
  EXPECT_EQ(surface.of(Kind::Line).size(), 4U + 11U + 3U);
  EXPECT_EQ(surface.texts(), (Texts{"0", "5", "10"}));
}

TEST_F(ProfileGraphTest, AProfileIsLinesOfWidthTwo) {
  surface.ForeColor = 255;
  const auto lines = profileLines({{0, 10}, {50, 4}, {200, 0}});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].x1, 140.0F);
  EXPECT_EQ(lines[0].y1, 60.0F);
  EXPECT_EQ(lines[0].x2, 80.0F);
  EXPECT_EQ(lines[0].y2, 72.5F);
  EXPECT_EQ(lines[1].x1, 80.0F);
  EXPECT_EQ(lines[1].y1, 72.5F);
  EXPECT_EQ(lines[1].x2, 40.0F);
  EXPECT_EQ(lines[1].y2, 110.0F);
  for (const Operation& line : lines) {
    EXPECT_EQ(line.drawWidth, 2);
    EXPECT_EQ(line.colour, 255);
  }
  EXPECT_EQ(surface.DrawWidth, 1);
}

TEST_F(ProfileGraphTest, OneValueOrNoneIsNoLine) {
  EXPECT_TRUE(profileLines({}).empty());
  EXPECT_TRUE(profileLines({{50, 4}}).empty());
}

TEST_F(ProfileGraphTest, ValuesOutsideTheRangeAreDrawnWhereTheyFall) {
  const auto lines = profileLines({{0, 20}, {50, -10}, {400, 5}});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].x1, 240.0F);
  EXPECT_EQ(lines[0].x2, -60.0F);
  EXPECT_EQ(lines[1].y2, 160.0F);
}

TEST_F(ProfileGraphTest, APointBeyondTheSingleRangeIsAnOverflow) {
  for (const float value : {3e38F, -3e38F, kFloatInfinity}) {
    EXPECT_THROW(profileLines({{0, 5}, {50, value}}), util::RuntimeError) << value;
  }
}

TEST_F(ProfileGraphTest, AValueRangeOfZeroHasNoTicksAndNoProfile) {
  item.plot_max = item.plot_min;
  drawFrame();
  EXPECT_EQ(surface.of(Kind::Line).size(), 4U + 11U);
  EXPECT_TRUE(profileLines({{0, 0}, {50, 0}}).empty());
}

TEST_F(ProfileGraphTest, ADepthOfZeroHasNoTicksAndNoProfile) {
  for (const float depth : {0.0F, kFloatNan}) {
    depthMax = depth;
    surface.operations.clear();
    drawFrame();
    EXPECT_EQ(surface.of(Kind::Line).size(), 4U + 3U);
    EXPECT_EQ(surface.texts(), (Texts{"0", "5", "10"}));
    EXPECT_TRUE(profileLines({{0, 1}, {0, 2}}).empty());
  }
}

TEST_F(ProfileGraphTest, LevelsCountedUpwardsHaveNoTicksAndRunDownwards) {
  depthMax = -200;
  drawFrame();
  EXPECT_EQ(surface.of(Kind::Line).size(), 4U + 3U);
  const auto lines = profileLines({{0, 10}, {-50, 4}, {-200, 0}});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].y2, 72.5F);
  EXPECT_EQ(lines[1].y2, 110.0F);
}

TEST_F(ProfileGraphTest, ARangeThatIsNoNumberLeavesTheRectangleAlone) {
  const struct {
    float minimum, maximum;
  } ranges[] = {{kFloatNan, 10}, {0, kFloatNan}, {0, kFloatInfinity}, {-kFloatInfinity, 0}};
  for (const auto& range : ranges) {
    item.plot_min = range.minimum;
    item.plot_max = range.maximum;
    surface.operations.clear();
    drawFrame();
    EXPECT_EQ(surface.of(Kind::Line).size(), 4U + 11U);
    EXPECT_TRUE(profileLines({{0, 1}, {50, 2}}).empty());
  }
}

}  // namespace
