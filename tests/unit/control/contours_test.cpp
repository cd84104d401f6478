#include "render/settings.h"
#include "section/drawItems.h"
#include "unit/control/ControlTest.h"

using support::Operation;
using Kind = Operation::Kind;
using Texts = std::vector<std::string>;

namespace {

// Contour lines as a host gets to see them: through its members, for a data set on disk.
class Contours : public ControlTest {
 protected:
  void open(const std::vector<KelvaneMain::SectionPoint>& points) {
    ASSERT_EQ(control.NcFile(tinySet()), 1) << control.ErrorMessage();
    ASSERT_EQ(sectionThrough(points), 1) << control.ErrorMessage();
    KelvaneMain::settings.ViewStyle = 1;
  }
  const support::RecordingPictureBox& lines() const { return boxes.picContours; }
};

TEST_F(Contours, OfAGeneralPath) {
  ASSERT_NO_FATAL_FAILURE(open({{350, -1}, {360, 0.5F}}));
  control.Draw();
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(lines().texts(), (Texts{" 10", " 11", " 12", " 13", " 14", " 15", " 16", " 17"}));
  EXPECT_EQ(lines().of(Kind::Cls).size(), 1U);
  EXPECT_EQ(KelvaneMain::DrawItems(1).plot_interval, 1.0F);
}

TEST_F(Contours, AlongALatitude) {
  ASSERT_NO_FATAL_FAILURE(open({{350, 0}, {358, 0}}));
  control.Draw();
  EXPECT_EQ(control.ErrorMessage(), "");
  // 9 cuts but a corner of one cell, in two pieces, which are no line.
  EXPECT_EQ(desktop.progress, 7);
  EXPECT_EQ(lines().texts(), (Texts{" 10", " 11", " 12", " 13", " 14", " 15", " 16"}));
}

TEST_F(Contours, FollowTimeAndSizeAndGoWithTheStyle) {
  ASSERT_NO_FATAL_FAILURE(open({{350, -1}, {360, 0.5F}}));
  control.Draw();
  const Operation first = lines().of(Kind::Line).at(0);
  boxes.forget();
  EXPECT_EQ(control.AdvanceTime(1), 2);
  const Operation later = lines().of(Kind::Line).at(0);
  EXPECT_NE(first.x1, later.x1);
  boxes.forget();
  control.Resize(1200, 800);
  EXPECT_GT(lines().of(Kind::Line).at(0).y1, later.y1);
  boxes.forget();
  KelvaneMain::settings.ViewStyle = 0;
  control.ReDraw();
  EXPECT_TRUE(lines().of(Kind::Line).empty());
  EXPECT_EQ(lines().of(Kind::Cls).size(), 1U);
}

TEST_F(Contours, AreBlackAndOffAfterEveryOpening) {
  ASSERT_NO_FATAL_FAILURE(open({{350, -1}, {360, 0.5F}}));
  KelvaneMain::settings.ContourLineColor = 255;
  control.Draw();
  EXPECT_EQ(lines().of(Kind::Line).at(0).colour, 255);
  ASSERT_NO_FATAL_FAILURE(open({{350, -1}, {360, 0.5F}}));
  control.Draw();
  EXPECT_EQ(lines().of(Kind::Line).back().colour, 0);
  ASSERT_EQ(control.NcFile(tinySet("other.nc")), 1);
  boxes.forget();
  control.Draw();
  EXPECT_TRUE(lines().of(Kind::Line).empty());
}

}  // namespace
