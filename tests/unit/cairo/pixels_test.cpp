#include <gtest/gtest.h>

#include <string>

#include "platform/cairo/CairoPixelBox.h"
#include "support/specialValues.h"

namespace {

using platform::CairoPixelBox;
using platform::Colour;
using platform::Lettering;
using platform::rgb;

using support::kFloatInfinity;
using support::kFloatNan;
constexpr Colour kWhite = rgb(255, 255, 255);

class PixelsTest : public testing::Test {
 protected:
  void SetUp() override { box.Move(0, 0, 40, 30); }

  // The rectangle of all pixels that are not white; right < left when there are none.
  struct Extent {
    int32_t left = 9999, top = 9999, right = -1, bottom = -1;
    bool operator==(const Extent&) const = default;
  };
  static Extent inked(const CairoPixelBox& surface) {
    Extent extent;
    for (int32_t y = 0; y < static_cast<int32_t>(surface.ScaleHeight()); ++y) {
      for (int32_t x = 0; x < static_cast<int32_t>(surface.ScaleWidth()); ++x) {
        if (surface.pixel(x, y) == kWhite) continue;
        extent = {std::min(extent.left, x), std::min(extent.top, y), std::max(extent.right, x),
                  std::max(extent.bottom, y)};
      }
    }
    return extent;
  }
  // Expects exactly the pixels of the rectangle in the colour, and white everywhere else.
  static void expectFilled(const CairoPixelBox& surface, const Extent& extent, Colour colour) {
    EXPECT_EQ(inked(surface), extent);
    for (int32_t y = extent.top; y <= extent.bottom; ++y) {
      for (int32_t x = extent.left; x <= extent.right; ++x) {
        ASSERT_EQ(surface.pixel(x, y), colour) << x << ", " << y;
      }
    }
  }

  Lettering lettering{Lettering::Grid::WholePixels};
  CairoPixelBox box{lettering};
};

TEST_F(PixelsTest, ABoxFillsBothCornersWithoutSoftEdges) {
  box.Box(2.4F, 3.6F, 7.5F, 9.2F, rgb(1, 22, 233));
  expectFilled(box, {2, 4, 8, 9}, rgb(1, 22, 233));
}

TEST_F(PixelsTest, ABoxIsClippedToTheSurface) {
  box.Box(-1e30F, 28, kFloatInfinity, 99, 255);
  expectFilled(box, {0, 28, 39, 29}, 255);
  box.Cls();
  box.Box(kFloatNan, 1, 5, 5, 255);
  box.Box(-9, -9, -1, -1, 255);
  EXPECT_EQ(inked(box), Extent{});
}

TEST_F(PixelsTest, ColoursBeyondTwentyFourBitsLoseThem) {
  box.Box(0, 0, 0, 0, -1);
  box.Box(1, 0, 1, 0, 0x7F010203);
  EXPECT_EQ(box.pixel(0, 0), kWhite);
  EXPECT_EQ(box.pixel(1, 0), rgb(3, 2, 1));
}

TEST_F(PixelsTest, LinesAlongTheAxesAreCrisp) {
  box.Line(3, 5.3F, 12, 5.3F, 0);
  expectFilled(box, {3, 5, 12, 5}, 0);
  box.Cls();
  box.Line(7.6F, 20, 7.6F, 4, 0);
  expectFilled(box, {8, 4, 8, 20}, 0);
  box.Cls();
  box.Line(9, 9, 9, 9, 0);
  expectFilled(box, {9, 9, 9, 9}, 0);
}

TEST_F(PixelsTest, ThickLinesGrowAroundTheirPlace) {
  box.DrawWidth = 2;
  box.Line(3, 5, 12, 5, 0);
  expectFilled(box, {3, 4, 12, 5}, 0);
  box.Cls();
  box.DrawWidth = 3;
  box.Line(8, 4, 8, 20, 0);
  expectFilled(box, {7, 4, 9, 20}, 0);
}

TEST_F(PixelsTest, LinesOfAllDirectionsMeetWithoutAStep) {
  for (const int32_t thickness : {1, 2, 3}) {
    box.Cls();
    box.DrawWidth = thickness;
    box.Line(20, 2, 20, 12, 0);
    const Extent straight = inked(box);
    box.Cls();
    box.Line(20, 2, 20.001F, 12, 0);
    for (int32_t x = 15; x < 25; ++x) {
      const bool inside = x >= straight.left && x <= straight.right;
      EXPECT_NEAR(box.pixel(x, 7) & 0xFF, inside ? 0 : 255, 2) << thickness << " at " << x;
    }
  }
}

TEST_F(PixelsTest, ASlantedLineCoversItsEndsAndNothingElse) {
  box.Line(5, 5, 15, 10, 0);
  EXPECT_LT(box.pixel(5, 5) & 0xFF, 128);
  EXPECT_LT(box.pixel(15, 10) & 0xFF, 128);
  EXPECT_LT(box.pixel(9, 7) & 0xFF, 128);
  const Extent extent = inked(box);
  EXPECT_GE(extent.left, 4);
  EXPECT_LE(extent.right, 16);
  EXPECT_GE(extent.top, 4);
  EXPECT_LE(extent.bottom, 11);
}

TEST_F(PixelsTest, ALineFromFarOutsideKeepsItsDirection) {
  box.Line(-1e9F, -1e9F, 1e9F, 1e9F, 0);
  for (int32_t place = 0; place < 30; ++place) {
    EXPECT_LT(box.pixel(place, place) & 0xFF, 64) << place;
  }
  EXPECT_EQ(box.pixel(20, 10), kWhite);
}

TEST_F(PixelsTest, LinesWithoutAPlaceDrawNothing) {
  box.Line(kFloatNan, 0, 5, 5, 0);
  box.Line(0, 0, 5, kFloatNan, 0);
  box.Line(-kFloatInfinity, 0, kFloatInfinity, 20, 0);
  box.Line(0, 100, 40, 130, 0);
  EXPECT_EQ(inked(box), Extent{});
}

TEST_F(PixelsTest, TheTransferIsTheBitwiseAndOfEveryPixel) {
  CairoPixelBox source(lettering);
  source.Move(0, 0, 20, 99);
  source.Box(0, 0, 19, 98, rgb(0xF0, 0x0F, 0xAA));
  source.Box(5, 5, 5, 5, kWhite);
  box.Box(0, 0, 39, 29, rgb(0x3C, 0x3C, 0xFF));
  box.AndFrom(source);
  EXPECT_EQ(box.pixel(0, 0), rgb(0x30, 0x0C, 0xAA));
  EXPECT_EQ(box.pixel(19, 29), rgb(0x30, 0x0C, 0xAA));
  EXPECT_EQ(box.pixel(5, 5), rgb(0x3C, 0x3C, 0xFF));
  EXPECT_EQ(box.pixel(20, 0), rgb(0x3C, 0x3C, 0xFF));
}

TEST_F(PixelsTest, DrawingAndTransfersTakeTurns) {
  CairoPixelBox source(lettering);
  source.Move(0, 0, 40, 30);
  for (int32_t turn = 0; turn < 3; ++turn) {
    const auto y = static_cast<float>(8 * turn);
    source.Line(0, y, 30, y + 4, 0);  // drawn by Cairo
    source.Box(35, y, 36, y, 0);      // written straight
    box.AndFrom(source);
    EXPECT_LT(box.pixel(0, 8 * turn) & 0xFF, 128);
    EXPECT_EQ(box.pixel(35, 8 * turn), 0);
  }
}

TEST_F(PixelsTest, TakingIsClearingAndCombining) {
  struct Row {
    int32_t width, height;
  };
  for (const Row& row : {Row{40, 30}, {20, 99}, {99, 20}, {0, 0}}) {
    CairoPixelBox source(lettering), plain(lettering);
    source.Move(0, 0, row.width, row.height);
    plain.Move(0, 0, 40, 30);
    for (int32_t turn = 0; turn < 3; ++turn) {
      source.Cls();
      source.Box(1, 1, 30, 12, rgb(0xF0, 0x0F, 0xAA));
      source.CurrentX = static_cast<float>(5 * turn);
      source.Print("text");             // drawn by Cairo
      source.Box(3, 13, 3, 14, 0);      // written straight
      box.Line(0, 0, 39, 29, 0);        // nothing of it may stay
      box.CurrentX = box.CurrentY = 9;
      plain.Cls();
      plain.AndFrom(source);
      box.TakeFrom(source);
      EXPECT_EQ(box.CurrentX + box.CurrentY, 0.0F);
      EXPECT_EQ(source.ScaleWidth(), static_cast<float>(row.width));
      for (int32_t y = 0; y < 30; ++y) {
        for (int32_t x = 0; x < 40; ++x) ASSERT_EQ(box.pixel(x, y), plain.pixel(x, y)) << turn;
      }
    }
  }
}

TEST_F(PixelsTest, TextStaysInsideItsMeasuredLine) {
  box.Move(0, 0, 300, 60);
  for (const float points : {8.0F, 12.0F, 20.0F}) {
    for (const bool bold : {false, true}) {
      for (const bool underline : {false, true}) {
        box.Cls();
        box.Font = {.Size = points, .Bold = bold, .Underline = underline};
        box.CurrentX = 10;
        box.CurrentY = 7;
        const std::string text = "Agjy|12 [degC]";
        const float width = box.TextWidth(text);
        const float height = box.TextHeight(text);
        box.Print(text);
        EXPECT_EQ(box.CurrentX, 0.0F);
        EXPECT_EQ(box.CurrentY, 7 + height);
        const Extent extent = inked(box);
        ASSERT_GE(extent.right, extent.left) << "no ink";
        EXPECT_GE(extent.left, 9);
        EXPECT_LE(extent.right, 11 + static_cast<int32_t>(width));
        EXPECT_GE(extent.top, 7);
        EXPECT_LE(extent.bottom, 7 + static_cast<int32_t>(height));
        EXPECT_GT(extent.right - extent.left, static_cast<int32_t>(width * 0.8F));
        EXPECT_GT(extent.bottom - extent.top, static_cast<int32_t>(height * 0.5F));
      }
    }
  }
}

TEST_F(PixelsTest, TextTakesTheForeColour) {
  box.ForeColor = rgb(200, 0, 0);
  box.Font.Bold = true;
  box.Font.Size = 16;
  box.Print("I");
  bool found = false;
  for (int32_t x = 0; x < 20; ++x) found = found || box.pixel(x, 15) == rgb(200, 0, 0);
  EXPECT_TRUE(found);
}

TEST_F(PixelsTest, MeasuresAreWholePixelsAndAddUp) {
  EXPECT_EQ(box.TextWidth(""), 0.0F);
  const float one = box.TextWidth("0");
  EXPECT_EQ(one, static_cast<float>(static_cast<int32_t>(one)));
  EXPECT_EQ(box.TextWidth("0000"), 4 * one);
  EXPECT_EQ(box.TextWidth(" -2000 "), 2 * box.TextWidth(" ") + box.TextWidth("-") + 4 * one);
  EXPECT_EQ(box.TextHeight("A"), box.TextHeight("gy|"));
  EXPECT_GE(box.TextHeight("A"), 10.0F);
  EXPECT_LE(box.TextHeight("A"), 16.0F);
  const float before = box.TextWidth("Latitude");
  box.Font.Bold = true;
  EXPECT_GT(box.TextWidth("Latitude"), before);
  box.Font.Bold = false;
  box.Font.Size = 16;
  EXPECT_GT(box.TextHeight("A"), 18.0F);
  box.Font.Size = 8;
  EXPECT_EQ(box.TextWidth("Latitude"), before);
}

TEST_F(PixelsTest, StrangeTextsFontsAndPlacesAreSurvived) {
  const std::string texts[] = {std::string("a\0b", 3),
                               "\xFF\xFE",
                               "\xED\xA0\x80",
                               "\xEF\xBF\xBF",
                               "line\nbreak\ttab",
                               "\xC2\xB0"
                               "C",
                               std::string(5000, 'W')};
  for (const std::string& text : texts) {
    box.CurrentX = box.CurrentY = 0;
    box.Print(text);
    EXPECT_GT(box.TextWidth(text), 0.0F);
  }
  for (const float size : {0.0F, -5.0F, kFloatNan, kFloatInfinity, 1e9F}) {
    box.Font.Size = size;
    box.Print("x");
    EXPECT_GT(box.TextHeight("x"), 0.0F);
  }
  box.Font.Size = 8;
  for (const float place : {kFloatNan, kFloatInfinity, -kFloatInfinity, 1e30F}) {
    box.CurrentX = place;
    box.CurrentY = place;
    box.Print("x");
  }
  // The surface still draws.
  box.Cls();
  box.CurrentX = box.CurrentY = 2;
  box.Print("M");
  EXPECT_NE(inked(box), Extent{});
}

TEST_F(PixelsTest, ANewSizeIsAWhiteSurfaceAndTheSameSizeIsNot) {
  box.Box(0, 0, 9, 9, 255);
  box.CurrentX = 5;
  box.Move(100, 100, 40, 30);
  EXPECT_EQ(box.pixel(0, 0), 255);
  box.Move(0, 0, 41, 30);
  EXPECT_EQ(inked(box), Extent{});
  EXPECT_EQ(box.ScaleWidth(), 41.0F);
  EXPECT_EQ(box.ScaleHeight(), 30.0F);
}

TEST_F(PixelsTest, AnEmptyOrImpossibleSurfaceTakesNoInk) {
  struct Row {
    int32_t width, height;
  };
  const Row rows[] = {{0, 0}, {-5, 20}, {20, 0}, {32767, 32767}, {2000000000, 2000000000}};
  for (const Row& row : rows) {
    box.Move(0, 0, row.width, row.height);
    EXPECT_EQ(box.ScaleWidth() * box.ScaleHeight(), 0.0F) << row.width;
    EXPECT_TRUE(box.pixels().empty());
    box.Cls();
    box.Box(0, 0, 5, 5, 255);
    box.Line(0, 0, 5, 9, 255);
    box.Line(0, 0, 5, 0, 255);
    box.Print("text");
    EXPECT_GT(box.TextWidth("text"), 0.0F);
    box.AndFrom(box);
  }
  box.Move(0, 0, 40000, 1);
  EXPECT_EQ(box.ScaleWidth(), 32767.0F);
}

}  // namespace
