#include "colorkey/keyRows.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/specialValues.h"
#include "util/RuntimeError.h"

using ModColor::colourRamp;
using ModColor::equalDivisions;
using ModColor::RowRange;
using platform::Colour;
using platform::rgb;

namespace {

using support::kInfinity;

template <class Call>
int errorOf(Call call) {
  try {
    call();
  } catch (const util::RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(EqualDivisions, AscendFromTheMinimum) {
  const struct {
    double minimum, maximum;
    int32_t divisions;
    std::vector<RowRange> rows;
  } table[] = {
      {0, 10, 1, {{0, 10}}},
      {10, 0, 2, {{10, 15}, {15, 20}}},
      {0, 1, 4, {{0, 0.25}, {0.25, 0.5}, {0.5, 0.75}, {0.75, 1}}},
      {-5, 5, 5, {{-5, -3}, {-3, -1}, {-1, 1}, {1, 3}, {3, 5}}},
      {0, 100, 3, {{0, 100.0 / 3}, {100.0 / 3, 200.0 / 3}, {200.0 / 3, 100}}},
      {7, 7, 2, {{7, 7}, {7, 7}}},
  };
  for (const auto& [minimum, maximum, divisions, rows] : table) {
    EXPECT_EQ(equalDivisions(minimum, maximum, divisions), rows) << minimum << ".." << maximum;
  }
}

TEST(EqualDivisions, AreComputedFromTheStepAndNotAddedUp) {
  const auto ranges = equalDivisions(0.3, 1.3, 10);
  ASSERT_EQ(ranges.size(), 10U);
  const double step = (1.3 - 0.3) / 10;
  EXPECT_EQ(ranges[7].low, 7 * step + 0.3);
  EXPECT_EQ(ranges[6].high, ranges[7].low);
}

TEST(EqualDivisions, AreAsManyAsSixteenBitsCount) {
  const auto ranges = equalDivisions(0, 32767, 32767);
  ASSERT_EQ(ranges.size(), 32767U);
  EXPECT_EQ(ranges.back(), (RowRange{32766, 32767}));
  EXPECT_EQ(errorOf([] { equalDivisions(0, 1, 32768); }), util::kOverflow);
  EXPECT_EQ(errorOf([] { equalDivisions(0, 1, std::numeric_limits<int32_t>::max()); }),
            util::kOverflow);
}

TEST(EqualDivisions, FailWithoutADivisionOrWithoutAnEnd) {
  for (const int32_t divisions : {0, -1, std::numeric_limits<int32_t>::min()}) {
    EXPECT_EQ(errorOf([&] { equalDivisions(0, 10, divisions); }), util::kDivisionByZero);
  }
  EXPECT_EQ(errorOf([] { equalDivisions(-1e308, 1e308, 2); }), util::kOverflow);
  EXPECT_EQ(errorOf([] { equalDivisions(1.5e308, 0, 3); }), util::kOverflow);
  EXPECT_EQ(errorOf([] { equalDivisions(0, kInfinity, 3); }), util::kOverflow);
  EXPECT_EQ(errorOf([] { equalDivisions(0, std::numeric_limits<double>::quiet_NaN(), 3); }),
            util::kOverflow);
}

// The steps are whole numbers of rows, not of rows less one.
TEST(ColourRamp, StopsAStepShortOfTheLastColour) {
  const struct {
    Colour first, last;
    std::vector<Colour> rows;
  } table[] = {
      {0, 255, {0, 26, 52, 78, 104, 130, 156, 182, 208, 234}},
      {255, 16711680, {255}},
      {255, 16711680, {rgb(255, 0, 0), rgb(127, 0, 128)}},
      {255, 16711680, {rgb(255, 0, 0), rgb(191, 0, 64), rgb(127, 0, 128), rgb(63, 0, 192)}},
      {65280, 65280, {65280, 65280, 65280}},
      {0, 5, {0, 2}},  // 2.5 to the even 2
      {0, 3, {0, 2}},  // 1.5 to the even 2
      {5, 0, {5, 3}},  // -2.5 to the even -2
      {16777215,
       0,
       {rgb(255, 255, 255), rgb(229, 229, 229), rgb(203, 203, 203), rgb(177, 177, 177),
        rgb(151, 151, 151), rgb(125, 125, 125), rgb(99, 99, 99), rgb(73, 73, 73), rgb(47, 47, 47),
        rgb(21, 21, 21)}},
      {rgb(1, 2, 3), rgb(11, 22, 33), {rgb(1, 2, 3), rgb(6, 12, 18)}},
  };
  for (const auto& [first, last, rows] : table) {
    EXPECT_EQ(colourRamp(first, last, static_cast<int32_t>(rows.size())), rows)
        << first << " to " << last;
  }
}

TEST(ColourRamp, KeepsComponentsApartWhereTheRoundedStepRunsBeyond) {
  const auto fading = colourRamp(255, 0, 170);  // 1.5 a row, rounded to 2
  ASSERT_EQ(fading.size(), 170U);
  EXPECT_EQ(fading[0], 255);
  EXPECT_EQ(fading[127], 1);
  EXPECT_EQ(fading[128], 0);
  EXPECT_EQ(fading[169], 0);
  const auto growing = colourRamp(0, rgb(255, 0, 255), 170);
  EXPECT_EQ(growing[127], rgb(254, 0, 254));
  EXPECT_EQ(growing[128], rgb(255, 0, 255));
  EXPECT_EQ(growing[169], rgb(255, 0, 255));
  const auto stuck = colourRamp(10, 15, 32767);  // a step of 0
  EXPECT_EQ(stuck[32766], 10);
}

TEST(ColourRamp, GoesByTwentyFourBits) {
  EXPECT_EQ(colourRamp(-1, 0, 1), (std::vector<Colour>{16777215}));
  EXPECT_EQ(colourRamp(0x7F000010, 0x7F000010, 2), (std::vector<Colour>{16, 16}));
  EXPECT_EQ(errorOf([] { colourRamp(0, 1, 0); }), util::kDivisionByZero);
}

}  // namespace
