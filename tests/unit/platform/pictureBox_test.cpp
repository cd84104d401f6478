#include "platform/PictureBox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using platform::PixelBox;

using support::kFloatInfinity;
using support::kFloatNan;

TEST(BasicPalette, HasTheSixteenClassicColours) {
  const int32_t expected[] = {0,       8388608,  32768, 8421376,  128, 8388736,  32896, 12632256,
                              8421504, 16711680, 65280, 16776960, 255, 16711935, 65535, 16777215};
  for (int32_t entry = 0; entry < 16; ++entry) {
    EXPECT_EQ(platform::basicPalette(entry), expected[entry]) << "entry " << entry;
  }
}

TEST(BasicPalette, AnEntryOutsideIsASubscriptError) {
  for (const int32_t entry : {-1, 16, std::numeric_limits<int32_t>::max()}) {
    try {
      platform::basicPalette(entry);
      FAIL() << entry << " was accepted";
    } catch (const util::RuntimeError& error) {
      EXPECT_EQ(error.number(), util::kSubscript);
    }
  }
}

struct BoxRow {
  float x1, y1, x2, y2;
  int32_t left, top, right, bottom;
};

TEST(PixelBox, CoversBothCornersRoundedAndClipped) {
  const BoxRow rows[] = {
      {2, 3, 5, 7, 2, 3, 5, 7},
      {5, 7, 2, 3, 2, 3, 5, 7},              // corners in any order
      {2.4F, 2.6F, 4.4F, 4.6F, 2, 3, 4, 5},  // to the nearest pixel
      {0.5F, 1.5F, 2.5F, 3.5F, 0, 2, 2, 4},  // halves to even
      {4, 4, 4, 4, 4, 4, 4, 4},              // a point is one pixel
      {-3, -100, 3, 100, 0, 0, 3, 19},       // clipped to the surface
      {-0.5F, -0.4F, 9.4F, 19.4F, 0, 0, 9, 19},
      {-kFloatInfinity, -1e30F, kFloatInfinity, 1e30F, 0, 0, 9, 19},
  };
  for (const BoxRow& row : rows) {
    const PixelBox box = platform::pixelBox(row.x1, row.y1, row.x2, row.y2, 10, 20);
    SCOPED_TRACE(testing::Message() << row.x1 << ", " << row.y1);
    EXPECT_FALSE(box.empty());
    EXPECT_EQ(box.left, row.left);
    EXPECT_EQ(box.top, row.top);
    EXPECT_EQ(box.right, row.right);
    EXPECT_EQ(box.bottom, row.bottom);
  }
}

TEST(PixelBox, NothingIsCoveredOutsideOrWithoutCoordinates) {
  EXPECT_TRUE(platform::pixelBox(-9, 2, -1, 5, 10, 20).empty());
  EXPECT_TRUE(platform::pixelBox(2, -9, 5, -0.6F, 10, 20).empty());
  EXPECT_TRUE(platform::pixelBox(9.6F, 0, 12, 5, 10, 20).empty());
  EXPECT_TRUE(platform::pixelBox(0, 20, 5, 30, 10, 20).empty());
  EXPECT_TRUE(platform::pixelBox(0, 0, 5, 5, 0, 20).empty());
  EXPECT_TRUE(platform::pixelBox(0, 0, 5, 5, 10, 0).empty());
  for (int corner = 0; corner < 4; ++corner) {
    float at[] = {0, 0, 5, 5};
    at[corner] = kFloatNan;
    EXPECT_TRUE(platform::pixelBox(at[0], at[1], at[2], at[3], 10, 20).empty()) << corner;
  }
}

TEST(PixelBox, NeighbouringCellsLeaveNoSeam) {
  // Column edges as a plot of any width gives them: each box starts at the last pixel of the
  // one before, whatever the edge's fraction.
  for (int column = 0; column < 100; ++column) {
    const float a = 3.3F + 0.73F * static_cast<float>(column);
    const float b = 3.3F + 0.73F * static_cast<float>(column + 1);
    const float c = 3.3F + 0.73F * static_cast<float>(column + 2);
    const PixelBox left = platform::pixelBox(a, 0, b, 1, 200, 10);
    const PixelBox right = platform::pixelBox(b, 0, c, 1, 200, 10);
    EXPECT_EQ(left.right, right.left);
  }
}

TEST(NearestPixels, AreThoseOfEachCoordinate) {
  for (const int32_t size : {1, 10, 3840, 32767}) {
    std::vector<float> places = {-0.0F, -1e30F, 1e30F, -kFloatInfinity, kFloatInfinity};
    for (const int32_t whole : {-2, -1, 0, 1, 2, 3, 8, size - 1, size, size + 1}) {
      for (const float part : {0.0F, 0.25F, 0.5F, 0.75F}) {
        const float place = static_cast<float>(whole) + part;
        for (const float direction : {-kFloatInfinity, place, kFloatInfinity}) {
          places.push_back(std::nextafter(place, direction));
        }
      }
    }
    std::vector<int32_t> found(places.size());
    platform::nearestPixels(places, size, found);
    for (std::size_t n = 0; n < places.size(); ++n) {
      EXPECT_EQ(found[n], platform::nearestPixel(places[n], size)) << places[n];
    }
  }
}

}  // namespace
