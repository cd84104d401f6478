#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/gdi/GdiPictureBox.h"

namespace winetest {
namespace {

using platform::Colour;
using platform::GdiPictureBox;

constexpr Colour kWhite = 0xFFFFFF, kRed = 0x0000FF, kBlue = 0xFF0000, kOdd = 0x123456;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

class GdiPicture : public testing::Test {
 protected:
  GdiPicture() { box_.Move(0, 0, 40, 30); }

  // How many pixels have a colour, and that they lie in a rectangle (edges included).
  int inked(Colour colour, int left = 0, int top = 0, int right = 39, int bottom = 29) {
    int count = 0;
    for (int y = 0; y < box_.height(); ++y) {
      for (int x = 0; x < box_.width(); ++x) {
        if (box_.pixel(x, y) != colour) continue;
        ++count;
        EXPECT_TRUE(x >= left && x <= right && y >= top && y <= bottom) << x << ", " << y;
      }
    }
    return count;
  }

  GdiPictureBox box_;
};

TEST_F(GdiPicture, FillsBoxesToBothCorners) {
  box_.Box(5, 6, 10, 8, kOdd);
  EXPECT_EQ(inked(kOdd, 5, 6, 10, 8), 6 * 3);
  box_.Cls();
  box_.Box(10.5F, 8.5F, 5.5F, 6.5F, kOdd);  // halves to even, corners in any order
  EXPECT_EQ(inked(kOdd, 6, 6, 10, 8), 5 * 3);
  box_.Cls();
  box_.Box(-100, -100, 1000, 1000, kOdd);
  EXPECT_EQ(inked(kOdd), 40 * 30);
  box_.Box(-5, -5, -1, -1, kRed);
  box_.Box(kNan, 0, 5, 5, kRed);
  EXPECT_EQ(inked(kRed), 0);
}

TEST_F(GdiPicture, DrawsLinesToBothEnds) {
  box_.Line(3, 4, 12, 4, kRed);
  EXPECT_EQ(inked(kRed, 3, 4, 12, 4), 10);
  box_.Cls();
  box_.Line(7, 20, 7, 5, kRed);
  EXPECT_EQ(inked(kRed, 7, 5, 7, 20), 16);
  box_.Cls();
  box_.Line(9, 9, 9, 9, kRed);
  EXPECT_EQ(inked(kRed, 9, 9, 9, 9), 1);
  box_.Cls();
  box_.Line(2, 2, 11, 11, kRed);
  EXPECT_EQ(inked(kRed, 2, 2, 11, 11), 10);
}

TEST_F(GdiPicture, CutsLinesThatLeaveIt) {
  box_.Line(-3e9F, 10, 3e9F, 10, kRed);
  EXPECT_EQ(inked(kRed, 0, 10, 39, 10), 40);
  box_.Cls();
  box_.Line(10, 2e9F, 10, -3e9F, kRed);
  EXPECT_EQ(inked(kRed, 10, 0, 10, 29), 30);
  box_.Cls();
  box_.Line(-3e9F, -3e9F, 3e9F, 3e9F, kRed);
  EXPECT_EQ(box_.pixel(20, 20), kRed);
  box_.Cls();
  box_.Line(-3e9F, 0, 0, -3e9F, kRed);
  box_.Line(kNan, 0, 10, 10, kRed);
  box_.Line(0, 0, kInfinite, 10, kRed);
  box_.Line(1e9F, 1e9F, 2e9F, 2e9F, kRed);
  EXPECT_EQ(inked(kRed), 0);
}

TEST_F(GdiPicture, DrawsWideLines) {
  box_.DrawWidth = 3;
  box_.Line(10, 10, 20, 10, kBlue);
  EXPECT_EQ(box_.pixel(15, 9), kBlue);
  EXPECT_EQ(box_.pixel(15, 11), kBlue);
  EXPECT_EQ(box_.pixel(15, 13), kWhite);
}

TEST_F(GdiPicture, PrintsInsideTheMeasuredBox) {
  box_.CurrentX = 4;
  box_.CurrentY = 7;
  box_.ForeColor = kRed;
  const auto width = static_cast<int>(box_.TextWidth("Ag"));
  const auto height = static_cast<int>(box_.TextHeight("Ag"));
  box_.Print("Ag");
  EXPECT_GT(inked(kRed, 4, 7, 4 + width - 1, 7 + height - 1), 10);
  EXPECT_EQ(inked(kRed) + inked(kWhite), 40 * 30);  // no grey edges
  EXPECT_EQ(box_.CurrentX, 0.0F);
  EXPECT_EQ(box_.CurrentY, 7.0F + static_cast<float>(height));
}

TEST_F(GdiPicture, MeasuresTheFontThatIsSet) {
  const float height = box_.TextHeight("A"), width = box_.TextWidth("12.50E");
  EXPECT_EQ(height, 13.0F);
  EXPECT_EQ(box_.TextWidth(""), 0.0F);
  box_.Font.Bold = true;
  EXPECT_GT(box_.TextWidth("12.50E"), width);
  box_.Font.Size = 12;
  EXPECT_GT(box_.TextHeight("A"), height);
  for (int i = 0; i < 100; ++i) {
    box_.Font.Size = 5.0F + static_cast<float>(i);
    box_.TextWidth("A");
  }
  box_.Font = {};
  EXPECT_EQ(box_.TextWidth("12.50E"), width);
  EXPECT_EQ(box_.TextHeight("A"), height);
}

TEST_F(GdiPicture, SurvivesAnyText) {
  for (const std::string& text : {std::string("\xFF\xFE\x80"), std::string("a\0b", 3),
                                  std::string(100000, 'x'), std::string("\xF0\x9F\x8C\x8A")}) {
    box_.CurrentX = kNan;
    box_.Print(text);
    box_.CurrentX = box_.CurrentY = 1e30F;
    box_.Print(text);
    EXPECT_GE(box_.TextWidth(text), 0.0F);
  }
  EXPECT_EQ(inked(kWhite), 40 * 30);
}

TEST_F(GdiPicture, CombinesBitByBit) {
  GdiPictureBox other;
  other.Move(0, 0, 20, 60);
  other.Box(0, 0, 10, 10, 0x00FFFF);
  box_.Box(5, 5, 30, 20, 0xFF00FF);
  box_.AndFrom(other);
  EXPECT_EQ(box_.pixel(2, 2), 0x00FFFF);
  EXPECT_EQ(box_.pixel(8, 8), 0x0000FF);
  EXPECT_EQ(box_.pixel(15, 15), 0xFF00FF);  // white is neutral
  EXPECT_EQ(box_.pixel(25, 15), 0xFF00FF);  // beyond the source
  EXPECT_EQ(box_.pixel(35, 25), kWhite);
}

TEST_F(GdiPicture, TakesWhatClearingAndCombiningWouldGive) {
  for (const auto& [width, height] : {std::pair(40, 30), {20, 60}, {60, 20}, {0, 0}}) {
    GdiPictureBox source, plain;
    source.Move(0, 0, width, height);
    plain.Move(0, 0, 40, 30);
    for (int turn = 0; turn < 3; ++turn) {
      source.Cls();
      source.Box(1, 1, 30, 12, kOdd);
      source.CurrentX = static_cast<float>(5 * turn);
      source.Font.Bold = turn == 1;
      source.Print("text");
      source.Line(0, 15, 17, 19, kRed);
      box_.Line(0, 0, 39, 29, kBlue);  // nothing of it may stay
      plain.Cls();
      plain.AndFrom(source);
      box_.TakeFrom(source);
      EXPECT_EQ(source.width(), width);
      for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x) ASSERT_EQ(box_.pixel(x, y), plain.pixel(x, y)) << turn;
      }
    }
  }
}

TEST_F(GdiPicture, BeginsWhiteAtEverySize) {
  box_.Box(0, 0, 39, 29, kRed);
  box_.Move(0, 0, 40, 30);
  EXPECT_EQ(inked(kRed), 40 * 30);  // the same size keeps its contents
  box_.Move(0, 0, 41, 30);
  EXPECT_EQ(inked(kWhite, 0, 0, 40, 29), 41 * 30);
}

TEST_F(GdiPicture, IsEmptyWhereThereIsNoRoom) {
  GdiPictureBox full;
  full.Move(0, 0, 40, 30);
  for (const auto& [width, height] : {std::pair(0, 0),
                                      {-5, 10},
                                      {10, 0},
                                      {2000000000, 2000000000},
                                      {32767, 32767},
                                      {32767, 2049}}) {
    box_.Move(0, 0, width, height);
    EXPECT_EQ(box_.ScaleWidth() * box_.ScaleHeight(), 0.0F) << width << " x " << height;
    box_.Cls();
    box_.Line(0, 0, 5, 5, kRed);
    box_.Box(0, 0, 5, 5, kRed);
    box_.Print("text");
    box_.AndFrom(full);
    full.AndFrom(box_);
    EXPECT_EQ(box_.TextHeight("A"), 13.0F);
    EXPECT_EQ(box_.pixel(0, 0), kWhite);
  }
  box_.Move(0, 0, 3, 3);
  box_.Box(0, 0, 2, 2, kRed);
  EXPECT_EQ(inked(kRed), 9);
}

TEST(GdiPictureRefresh, BringsThePictureToItsViewer) {
  int shown = 0;
  GdiPictureBox box([&] { ++shown; });
  box.Refresh();
  EXPECT_EQ(shown, 1);
  GdiPictureBox().Refresh();
}

}  // namespace
}  // namespace winetest
