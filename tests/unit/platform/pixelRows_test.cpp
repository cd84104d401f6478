#include "platform/PixelRows.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using platform::kWhitePixel;
using platform::PixelRows;

class PixelRowsTest : public testing::Test {
 protected:
  std::vector<uint32_t> memory = std::vector<uint32_t>(4 * 3, 0U), other = memory;
  PixelRows rows{memory.data(), 4, 4, 3}, source{other.data(), 4, 4, 3};
};

TEST_F(PixelRowsTest, CountAsWhiteFromTheBeginning) {
  EXPECT_EQ(rows.pixel(3, 2), kWhitePixel);
  rows.settle();
  EXPECT_EQ(memory, std::vector<uint32_t>(12, kWhitePixel));
}

TEST_F(PixelRowsTest, TakeInkOnWhiteAlsoAfterTheyWereCleared) {
  rows.fill({1, 1, 2, 1}, 0x0000FF);
  rows.clear();
  EXPECT_EQ(rows.pixel(1, 1), kWhitePixel);
  rows.fill({2, 1, 2, 1}, 0x00FF00);
  rows.settle();
  EXPECT_EQ(std::vector<uint32_t>(memory.begin() + 4, memory.begin() + 8),
            (std::vector<uint32_t>{kWhitePixel, kWhitePixel, 0x00FF00, kWhitePixel}));
}

TEST_F(PixelRowsTest, AreReadyForOthersWhereTheyWereOpened) {
  rows.open(-5, 1);
  EXPECT_EQ(memory[0], kWhitePixel);
  EXPECT_EQ(memory[7], kWhitePixel);
  memory[5] = 7;  // ink of somebody else
  EXPECT_EQ(rows.pixel(1, 1), 7U);
  rows.clear();
  rows.settle();
  EXPECT_EQ(memory[5], kWhitePixel);
}

TEST_F(PixelRowsTest, CombineBitByBitWithWhiteNeutral) {
  rows.fill({0, 0, 3, 1}, 0xF0F0F0);
  source.fill({1, 1, 2, 2}, 0x3C3C3C);
  rows.andFrom(source);
  EXPECT_EQ(rows.pixel(0, 0), 0xF0F0F0U);
  EXPECT_EQ(rows.pixel(0, 1), 0xF0F0F0U);
  EXPECT_EQ(rows.pixel(1, 1), 0x303030U);
  EXPECT_EQ(rows.pixel(1, 2), 0x3C3C3CU);
  EXPECT_EQ(rows.pixel(3, 2), kWhitePixel);
}

TEST_F(PixelRowsTest, CombineWhatBothHave) {
  std::vector<uint32_t> small(2 * 1, 0U);
  PixelRows corner(small.data(), 2, 2, 1);
  corner.fill({0, 0, 1, 0}, 0x010203);
  rows.andFrom(corner);
  EXPECT_EQ(rows.pixel(1, 0), 0x030201U);
  EXPECT_EQ(rows.pixel(2, 0), kWhitePixel);
  corner.andFrom(source);
  EXPECT_EQ(corner.pixel(0, 0), 0x030201U);
}

}  // namespace
