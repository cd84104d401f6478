#include <algorithm>

#include "section/drawItems.h"
#include "unit/control/ControlTest.h"

using Kind = support::Operation::Kind;

namespace {

// Remembers the order in which the pictures of a control are placed.
class OrderedBox : public support::RecordingPictureBox {
 public:
  OrderedBox(const std::string& boxName, std::vector<std::string>& moved)
      : RecordingPictureBox(boxName), moved_(moved) {}
  void Move(int32_t left, int32_t top, int32_t width, int32_t height) override {
    moved_.push_back(name);
    RecordingPictureBox::Move(left, top, width, height);
  }

 private:
  std::vector<std::string>& moved_;
};

class Resizing : public ControlTest {
 protected:
  std::size_t drawings() const { return boxes.Picture1.of(Kind::Refresh).size(); }
};

TEST_F(Resizing, PlacesThePicturesInOrder) {
  std::vector<std::string> moved;
  OrderedBox visible("Picture1", moved), date("picDateTime", moved), image("picSection", moved),
      contours("picContours", moved);
  control::KelvaneCtl sized({visible, date, image, contours}, desktop);
  sized.Resize(320, 200);
  EXPECT_EQ(moved,
            (std::vector<std::string>{"picDateTime", "picSection", "picContours", "Picture1"}));
  for (const OrderedBox* box : {&visible, &date, &image, &contours}) {
    const support::Operation move = box->of(Kind::Move).at(0);
    EXPECT_EQ(move.x1, 0);
    EXPECT_EQ(move.y1, 0);
    EXPECT_EQ(move.x2, 320);
    EXPECT_EQ(move.y2, 200);
  }
}

TEST_F(Resizing, DrawsOnceForEachChangeOfSize) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.Draw();
  boxes.forget();
  control.Resize(320, 200);
  EXPECT_EQ(drawings(), 1U);
  control.Resize(320, 200);
  EXPECT_EQ(drawings(), 1U);
  control.Resize(320, 201);
  EXPECT_EQ(drawings(), 2U);
  control.Resize(600, 201);
  EXPECT_EQ(drawings(), 3U);
}

TEST_F(Resizing, RepaintsTheHeldSectionAfterAPathThatFailed) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.Draw();
  ASSERT_EQ(sectionThrough({{0, 0}, {0.2F, 0.1F}}), -1);
  const std::string reason = control.ErrorMessage();
  boxes.forget();
  control.Resize(601, 400);
  EXPECT_EQ(control.ErrorMessage(), reason);
  EXPECT_FALSE(boxes.picSection.of(Kind::Line).empty());  // ticks of the depth axis
  const auto texts = boxes.picSection.texts();
  EXPECT_NE(std::find(texts.begin(), texts.end(), "0 m"), texts.end());
  EXPECT_EQ(boxes.picSection.of(Kind::Box).size(), 58U);  // 4 columns x 2 and the legend
}

TEST_F(Resizing, DrawsNothingWithoutAPixel) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.Draw();
  boxes.forget();
  control.Resize(0, 0);
  control.Resize(0, 200);
  control.Resize(300, 0);
  control.Resize(-7, 100);
  control.Draw();
  control.ReDraw();
  control.AdvanceTime(1);
  EXPECT_EQ(drawings(), 0U);
  EXPECT_TRUE(boxes.picSection.of(Kind::Print).empty());
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(KelvaneMain::TimeShown, 2) << "values are read all the same";
  control.Resize(300, 200);
  EXPECT_EQ(drawings(), 1U);
}

TEST_F(Resizing, BeforeTheFirstDataSetDrawsNothing) {
  control.Resize(300, 200);
  EXPECT_EQ(drawings(), 0U);
  EXPECT_EQ(boxes.Picture1.ScaleWidth(), 300);
}

}  // namespace
