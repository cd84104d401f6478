#include <gtest/gtest.h>

#include "Picture.h"

// What the comparison must and must not let pass, on a picture of the gallery.
namespace {

using pictures::Picture;

class PictureComparison : public testing::Test {
 protected:
  void SetUp() override { ASSERT_FALSE(drawn_.empty()); }
  std::string difference() { return differenceOf(expected_, drawn_, marks_); }
  // Gives a rectangle the colour of a pixel, or any other.
  void paint(int left, int top, int width, int height, uint32_t colour) {
    for (int y = top; y < top + height; ++y) {
      for (int x = left; x < left + width; ++x) drawn_.set(x, y, colour);
    }
  }
  // The first pixel from the left, then from the top, that is black in a rectangle.
  bool findInk(int left, int top, int width, int height, int& inkX, int& inkY) const {
    for (inkX = left; inkX < left + width; ++inkX) {
      for (inkY = top; inkY < top + height; ++inkY) {
        if (drawn_.at(inkX, inkY) == 0) return true;
      }
    }
    return false;
  }

  const Picture expected_ = Picture::load(GALLERY "/contours.png");
  Picture drawn_ = Picture::load(GALLERY "/contours.png");
  Picture marks_;
};

TEST_F(PictureComparison, TheSamePictureIsTheSame) { EXPECT_EQ(difference(), ""); }

TEST_F(PictureComparison, SofterEdgesAreTheSame) {
  // Another tone beside every dark pixel of the titles, as another text renderer has it.
  for (int y = 0; y < 36; ++y) {
    for (int x = 1; x < drawn_.width(); ++x) {
      const uint32_t tone = drawn_.at(x, y) & 0xFF;
      if (tone > 40 && tone < 215) drawn_.set(x, y, (tone + 30) * 0x010101);
    }
  }
  EXPECT_EQ(difference(), "");
}

TEST_F(PictureComparison, ACellOfAnotherColourIsAnother) {
  paint(400, 150, 12, 16, 0x0000F5);
  EXPECT_NE(difference(), "");
  EXPECT_EQ(marks_.at(405, 155), 0U);
  EXPECT_EQ(marks_.at(300, 155), 0xFFFFFFU);
}

TEST_F(PictureComparison, ALabelThatIsMissingIsAnother) {
  paint(0, 90, 34, 16, 0xFFFFFF);  // "100" at the depth axis
  EXPECT_NE(difference(), "");
}

TEST_F(PictureComparison, ALineInAnotherPlaceIsAnother) {
  int x = 0, y = 0;
  ASSERT_TRUE(findInk(820, 310, 40, 30, x, y));  // the line of 6 degrees behind the seamount
  for (int column = x; column < x + 24; ++column) {
    drawn_.set(column, y, drawn_.at(column, y + 4));
    drawn_.set(column, y + 2, 0);
  }
  EXPECT_NE(difference(), "");
}

TEST_F(PictureComparison, AnotherSizeOrNoPictureIsAnother) {
  drawn_ = Picture(10, 10);
  EXPECT_EQ(difference(), "another size");
  drawn_ = Picture::load(GALLERY "/nothing.png");
  EXPECT_EQ(difference(), "it was not drawn");
}

}  // namespace
