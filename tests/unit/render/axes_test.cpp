#include "render/axes.h"

#include <limits>

#include "HeldSection.h"
#include "section/sectionPath.h"
#include "util/RuntimeError.h"

namespace {

using namespace KelvaneMain;
using support::Operation;
using Kind = Operation::Kind;
using Texts = std::vector<std::string>;

class AxesTest : public render_tests::HeldSection {
 protected:
  support::RecordingPictureBox& surface = boxes.picSection;
};

TEST_F(AxesTest, DistancesRunToTheEndWithTheUnitOnTheFirst) {
  const float unitsPerKm = 462.0F / 999.9736F;
  DrawDistanceAxis(surface, 48, 348, unitsPerKm, 999.9736F, 0);
  EXPECT_EQ(surface.texts(),
            (Texts{"0 km", "100", "200", "300", "400", "500", "600", "700", "800", "900"}));
  const auto lines = surface.of(Kind::Line);
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(lines[0].x1, 48.0F);
  EXPECT_EQ(lines[0].y1, 348.0F);
  EXPECT_EQ(lines[0].x2, 48.0F);
  EXPECT_EQ(lines[0].y2, 354.5F);
  EXPECT_EQ(lines[1].x1, 94.20122F);
  const auto prints = surface.of(Kind::Print);
  EXPECT_EQ(prints[0].x1, 36.0F);  // "0 km" is 24 wide
  EXPECT_EQ(prints[0].y1, 354.5F);
  EXPECT_FLOAT_EQ(prints[1].x1, 85.20122F);
  for (const Operation& print : prints) EXPECT_TRUE(print.font.Bold);
  EXPECT_FALSE(surface.Font.Bold);
}

TEST_F(AxesTest, TheLastTickIsDrawnWhenItEqualsTheRange) {
  DrawDistanceAxis(surface, 0, 100, 10, 20, 0);
  EXPECT_EQ(surface.texts(), (Texts{"0 km", "10", "20"}));
}

TEST_F(AxesTest, ATickValueShowsNoRoundingNoise) {
  DrawDistanceAxis(surface, 0, 100, 10, 0.5F, 0);
  const Texts texts = surface.texts();
  ASSERT_GE(texts.size(), 25U);
  EXPECT_EQ(texts[0], "0 km");
  EXPECT_EQ(texts[1], "0.02");
  EXPECT_EQ(texts[15], "0.3");
}

TEST_F(AxesTest, DepthsGoOutwardsOnTheLeft) {
  DrawDepthAxis(surface, 48, 39, 1.545F, 200, 0);
  EXPECT_EQ(surface.texts(),
            (Texts{"0 m", "20", "40", "60", "80", "100", "120", "140", "160", "180", "200"}));
  const Operation line = surface.of(Kind::Line)[1];
  EXPECT_EQ(line.x1, 48.0F);
  EXPECT_EQ(line.x2, 45.0F);
  EXPECT_FLOAT_EQ(line.y1, 69.9F);
  EXPECT_EQ(line.y1, line.y2);
  const auto prints = surface.of(Kind::Print);
  EXPECT_EQ(prints[0].x1, 27.0F);  // "0 m" is 18 wide and ends at the tick
  EXPECT_EQ(prints[0].y1, 32.5F);
  EXPECT_EQ(prints[10].x1, 27.0F);
  EXPECT_TRUE(prints[10].font.Bold);
  EXPECT_FALSE(surface.Font.Bold);
}

TEST_F(AxesTest, DepthsOnTheRightKeepOneLabelWidthFree) {
  DrawDepthAxis(surface, 300, 39, 1, 1, 0);  // the middle counts as right
  const Operation line = surface.of(Kind::Line)[0];
  EXPECT_EQ(line.x2, 303.0F);
  EXPECT_EQ(surface.of(Kind::Print)[0].x1, 321.0F);
}

TEST_F(AxesTest, ARangeThatIsNotAboveZeroHasNoTicks) {
  for (const float range : {0.0F, -5.0F, std::numeric_limits<float>::quiet_NaN()}) {
    DrawDepthAxis(surface, 48, 39, 1, range, 0);
    DrawDistanceAxis(surface, 48, 39, 1, range, 0);
    EXPECT_TRUE(surface.operations.empty()) << range;
    EXPECT_FALSE(surface.Font.Bold);
  }
}

TEST_F(AxesTest, AnEndlessRangeIsAnOverflowAndLeavesThePlainFont) {
  EXPECT_THROW(DrawDepthAxis(surface, 48, 39, 1, std::numeric_limits<float>::infinity(), 0),
               util::RuntimeError);
  EXPECT_FALSE(surface.Font.Bold);
}

TEST_F(AxesTest, AHugeRangeEndsAfterAFewTicks) {
  DrawDepthAxis(surface, 48, 39, 1e-30F, 1e38F, 0);
  EXPECT_EQ(surface.texts(), (Texts{"0 m", "2E+37", "4E+37", "6E+37", "8E+37", "1E+38"}));
  DrawDistanceAxis(surface, 48, 39, 1e-30F, 1e38F, 0);
  EXPECT_EQ(surface.texts().size(), 6U + 51U);
}

TEST_F(AxesTest, LongitudesAlongAConstantLatitude) {
  alongLatitude(4);
  DrawDistanceAxis(surface, 48, 322, 1, 462, 0);
  EXPECT_EQ(surface.texts(), (Texts{"350E", "352E", "354E", "356E", "358E",
                                    "Longitude (deg) Along Constant Latitude= 0N"}));
  const auto lines = surface.of(Kind::Line);
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0].x1, 48.0F);
  EXPECT_EQ(lines[1].x1, 163.5F);
  EXPECT_EQ(lines[4].x1, 510.0F);
  EXPECT_EQ(lines[4].y2, 328.5F);
  EXPECT_EQ(surface.printOf("350E").x1, 36.0F);
  const Operation title = surface.printOf("Longitude (deg) Along Constant Latitude= 0N");
  EXPECT_EQ(title.x1, 150.0F);  // 43 characters around the middle, 279
  EXPECT_EQ(title.y1, 348.0F);
  EXPECT_TRUE(title.font.Bold);
  EXPECT_FALSE(surface.Font.Bold);
}

TEST_F(AxesTest, LatitudesAlongAConstantLongitude) {
  alongLongitude(3);
  DrawDistanceAxis(surface, 48, 322, 462.0F / 111.110998F, 111.110998F, 0);
  EXPECT_EQ(surface.texts(), (Texts{"1S", "0N", "Latitude (deg) Along Constant Longitude= 354E"}));
  EXPECT_FLOAT_EQ(surface.of(Kind::Line)[1].x1, 356.0F);  // two thirds of the way
}

}  // namespace
