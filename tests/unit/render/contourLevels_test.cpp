#include "render/contourLevels.h"

#include <gtest/gtest.h>

#include "contourGrid.h"
#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using OcxContr::ContourLevels;
using OcxContr::ValueRange;
using render_tests::ContourGrid;

using support::kFloatInfinity;
using support::kFloatNan;

std::vector<float> allOf(ContourLevels levels) {
  std::vector<float> found;
  while (const auto level = levels.next()) found.push_back(*level);
  return found;
}

TEST(ContourLevelsTest, AreMultiplesOfTheIntervalWithinDataAndRange) {
  struct Row {
    ValueRange scanned;
    float interval, maximum, minimum, intervalAfter;
    std::vector<float> levels;
  };
  const Row rows[] = {
      {{0.5F, 4.2F}, 1, 5, 0, 1, {1, 2, 3, 4}},
      {{-5.3F, 2.1F}, 1, 3, -6, 1, {-5, -4, -3, -2, -1, 0, 1, 2}},
      {{3.4F, 28.7F}, 5, 28.7F, 3, 5, {5, 10, 15, 20, 25}},
      {{0.2F, 0.9F}, 0.2F, 1, 0, 0.2F, {0.2F, 0.4F, 0.6F, 0.8F}},
      {{5, 5}, 1, 5, 5, 0, {}},
      {{1, 9}, 2, 6, 2, 2, {2, 4, 6}},
      {{0.5F, 4.2F}, -1, 5, 0, -1, {1, 2, 3, 4}},  // the magnitude counts
      {{1, 9}, 10, 9, 0, -0.8F, {1.6F, 2.4F, 3.2F, 4, 4.8F, 5.6F, 6.4F, 7.2F, 8, 8.8F}},
      {{1, 9}, 0, 9, 0, 0, {}},
      {{2, 3}, 1, 9, 5, 1, {}},  // the whole data lie below the range
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.interval);
    float interval = row.interval;
    const auto levels = allOf(ContourLevels(row.scanned, interval, row.maximum, row.minimum));
    EXPECT_EQ(interval, row.intervalAfter);
    ASSERT_EQ(levels.size(), row.levels.size());
    for (std::size_t n = 0; n < levels.size(); ++n) EXPECT_FLOAT_EQ(levels[n], row.levels[n]);
  }
}

TEST(ContourLevelsTest, AReplacedIntervalIsNoLongerHeldToTheRange) {
  float interval = 1;
  const auto levels = allOf(ContourLevels({5, 9}, interval, 6, 5));
  EXPECT_EQ(interval, -0.4F);
  ASSERT_EQ(levels.size(), 10U);
  EXPECT_FLOAT_EQ(levels.front(), 5.2F);
  EXPECT_FLOAT_EQ(levels.back(), 8.8F);
}

TEST(ContourLevelsTest, WithoutAnyValueThereIsNoLevelInTheRange) {
  float interval = 1;
  EXPECT_TRUE(allOf(ContourLevels({}, interval, 0, 0)).empty());
  EXPECT_EQ(interval, 2E19F);
  interval = 1;
  EXPECT_TRUE(allOf(ContourLevels({}, interval, 10, 0)).empty());
  EXPECT_EQ(interval, 1.0F);
}

TEST(ContourLevelsTest, IntervalsThatAreNoNumberGiveNone) {
  for (const float bad : {kFloatNan, kFloatInfinity, -kFloatInfinity}) {
    float interval = bad;
    EXPECT_TRUE(allOf(ContourLevels({0, 10}, interval, kFloatNan, 0)).empty()) << bad;
  }
  float interval = kFloatNan;
  EXPECT_TRUE(allOf(ContourLevels({0, 10}, interval, 10, 0)).empty());
}

TEST(ContourLevelsTest, TheCounterHasSixteenBits) {
  float interval = 1;
  ContourLevels fitting({0, 32767}, interval, 32767.5F, 0);
  for (int32_t k = 0; k <= 32767; ++k) ASSERT_EQ(fitting.next(), static_cast<float>(k));
  EXPECT_THROW(fitting.next(), util::RuntimeError);

  ContourLevels ending({0, 32766.5F}, interval, 32767, 0);
  EXPECT_EQ(allOf(ending).size(), 32767U);

  interval = 1e-9F;
  ContourLevels tiny({1, 9}, interval, 9, 1);
  try {
    while (tiny.next()) {
    }
    FAIL() << "the counter went on";
  } catch (const util::RuntimeError& error) {
    EXPECT_EQ(error.number(), util::kOverflow);
  }
}

TEST(ContourLevelsTest, ALevelIsRoundedToSingle) {
  float interval = 0.1F;
  const auto levels = allOf(ContourLevels({0, 1}, interval, 1, 0));
  ASSERT_EQ(levels.size(), 11U);  // ten times the single 0.1 is above 1 in double only
  EXPECT_EQ(levels.back(), 1.0F);
  EXPECT_EQ(levels[3], static_cast<float>(3 * static_cast<double>(0.1F)));
}

TEST(ContourLevelsTest, TheScanTakesMarksOneToEight) {
  ContourGrid grid({{3, 7, -2}, {40, 5, 6}}, {{1, 8, 0}, {9, 2, 1}});
  EXPECT_EQ(scanRange(grid.field()).largest, 7.0F);
  EXPECT_EQ(scanRange(grid.field()).smallest, 3.0F);
  grid.mark(3, 1) = 5;
  EXPECT_EQ(scanRange(grid.field()).smallest, -2.0F);
  grid.value(1, 1) = kFloatNan;  // never larger, never smaller
  EXPECT_EQ(scanRange(grid.field()).largest, 7.0F);
  const ContourGrid none({{3, 7}, {4, 5}}, {{0, 9}, {9, 0}});
  EXPECT_EQ(scanRange(none.field()).largest, -1E20F);
  EXPECT_EQ(scanRange(none.field()).smallest, 1E20F);
}

}  // namespace
