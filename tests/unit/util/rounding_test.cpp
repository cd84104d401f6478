#include "util/rounding.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>

#include "support/specialValues.h"
#include "util/OneBased.h"
#include "util/RuntimeError.h"
#include "util/ocxMinmax.h"

namespace {

using support::kInfinity;
using support::kNan;

// The number of the run-time error that the action raises; 0 when it raises none.
template <class Action>
int errorOf(const Action& action) {
  try {
    action();
  } catch (const util::RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(Rounding, TakesHalvesToTheEvenNeighbour) {
  const std::pair<double, int32_t> cases[] = {{0.5, 0},
                                              {1.5, 2},
                                              {2.5, 2},
                                              {-0.5, 0},
                                              {-1.5, -2},
                                              {-2.5, -2},
                                              {2.4, 2},
                                              {2.6, 3},
                                              {-2.6, -3},
                                              {254.5, 254},
                                              {255.5, 256},
                                              {0.49999999999999994, 0},
                                              {0, 0},
                                              {-0.0, 0},
                                              {1e-300, 0},
                                              {-1e-300, 0},
                                              {2147483647.25, 2147483647},
                                              {-2147483648.5, INT32_MIN}};
  for (const auto& [value, expected] : cases)
    EXPECT_EQ(util::roundToLong(value), expected) << value;
  EXPECT_EQ(util::roundToInteger(32767.49), 32767);
  EXPECT_EQ(util::roundToInteger(-32768.5), -32768);
}

TEST(Rounding, IgnoresTheRoundingModeOfTheHost) {
  ASSERT_EQ(std::fesetround(FE_UPWARD), 0);
  const int32_t rounded = util::roundToLong(2.25);
  std::fesetround(FE_TONEAREST);
  EXPECT_EQ(rounded, 2);
}

TEST(Rounding, RefusesWhatDoesNotFit) {
  for (const double value : {2147483647.5, -2147483649.0, 1e300, kInfinity, -kInfinity, kNan}) {
    EXPECT_EQ(errorOf([&] { util::roundToLong(value); }), util::kOverflow) << value;
  }
  for (const double value : {32767.5, -32769.0, kNan}) {
    EXPECT_EQ(errorOf([&] { util::roundToInteger(value); }), util::kOverflow) << value;
  }
  for (const double value : {2147483648.0, -2147483649.0, kNan}) {
    EXPECT_EQ(errorOf([&] { util::truncateToLong(value); }), util::kOverflow) << value;
  }
}

TEST(Rounding, TruncatesTowardZero) {
  EXPECT_EQ(util::truncateToLong(2.9), 2);
  EXPECT_EQ(util::truncateToLong(-2.9), -2);
  EXPECT_EQ(util::truncateToLong(2147483647.9), INT32_MAX);
  EXPECT_EQ(util::truncateToLong(-2147483648.9), INT32_MIN);
}

TEST(StoreSingle, RoundsOnceAndKeepsNaN) {
  EXPECT_EQ(util::storeSingle(0.1), 0.1F);
  EXPECT_EQ(util::storeSingle(-1e35), -1e35F);
  EXPECT_EQ(util::storeSingle(1e-60), 0.0F);
  EXPECT_EQ(util::storeSingle(std::numeric_limits<float>::max()),
            std::numeric_limits<float>::max());
  EXPECT_TRUE(std::isnan(util::storeSingle(kNan)));
}

TEST(StoreSingle, OverflowsFromTheFirstMagnitudeThatRoundsBeyondTheRange) {
  const double first = 0x1.ffffffp127;
  EXPECT_EQ(util::storeSingle(std::nextafter(first, 0.0)), std::numeric_limits<float>::max());
  for (const double value : {first, -first, 1e39, kInfinity, -kInfinity}) {
    EXPECT_EQ(errorOf([&] { util::storeSingle(value); }), util::kOverflow) << value;
  }
}

TEST(Counters, OverflowInsteadOfWrapping) {
  EXPECT_EQ(util::addLong(2, -5), -3);
  EXPECT_EQ(util::addLong(INT32_MAX, 0), INT32_MAX);
  EXPECT_EQ(errorOf([] { util::addLong(INT32_MAX, 1); }), util::kOverflow);
  EXPECT_EQ(errorOf([] { util::addLong(INT32_MIN, -1); }), util::kOverflow);
  EXPECT_EQ(util::multiplyLong(-46341, 46340), -2147441940);
  EXPECT_EQ(errorOf([] { util::multiplyLong(65536, 32768); }), util::kOverflow);
  EXPECT_EQ(util::addInteger(32766, 1), 32767);
  EXPECT_EQ(errorOf([] { util::addInteger(32767, 1); }), util::kOverflow);
}

TEST(OneBased, CountsFromOneAndRefusesForeignIndices) {
  util::OneBased<int> list{10, 20, 30};
  EXPECT_EQ(list(1), 10);
  EXPECT_EQ(list(3), 30);
  for (const int64_t index : {int64_t{0}, int64_t{4}, int64_t{-1}, int64_t{1} << 40}) {
    EXPECT_EQ(errorOf([&] { list(index) = 1; }), util::kSubscript) << index;
  }
  EXPECT_EQ(errorOf([&] { list.assign(-1); }), util::kSubscript);
  list.resizeKeeping(4);
  EXPECT_EQ(list(2), 20);
  EXPECT_EQ(list(4), 0);
  EXPECT_EQ(errorOf([&] { list.resizeKeeping(0); }), util::kSubscript);
  EXPECT_EQ(list.size(), 4);
  list.assign(2, 7);
  EXPECT_EQ(list(1), 7);
  EXPECT_EQ(list.size(), 2);
}

TEST(MinMax, ReturnsTheSecondOfEqualArguments) {
  using namespace ocxMinmax;
  EXPECT_EQ(Max2(1, 2), 2.0F);
  EXPECT_EQ(Max2(2, 1), 2.0F);
  EXPECT_EQ(Max2(2, 2), 2.0F);
  EXPECT_TRUE(std::signbit(Max2(0.0F, -0.0F)));
  EXPECT_FALSE(std::signbit(Max2(-0.0F, 0.0F)));
  EXPECT_TRUE(std::signbit(Min2(0.0F, -0.0F)));
  EXPECT_FALSE(std::signbit(Min2(-0.0F, 0.0F)));
}

TEST(MinMax, ChainsFromTheLeft) {
  using namespace ocxMinmax;
  EXPECT_EQ(Max4(1, 4, 2, 3), 4.0F);
  EXPECT_EQ(Min4(4, 1, 2, 3), 1.0F);
  EXPECT_EQ(Max3(-3, -1, -2), -1.0F);
  EXPECT_EQ(Min3(-3, -1, -2), -3.0F);
  EXPECT_EQ(MaxLong(3, 3), 3);
  EXPECT_EQ(MaxLong(5, 2), 5);
  EXPECT_EQ(MaxLong(-1, -7), -1);
}

TEST(MinMax, NaNGivesTheFirstMaximumAndTheSecondMinimum) {
  using namespace ocxMinmax;
  const float nan = static_cast<float>(kNan);
  EXPECT_TRUE(std::isnan(Max2(nan, 1)));
  EXPECT_EQ(Max2(1, nan), 1.0F);
  EXPECT_EQ(Min2(nan, 1), 1.0F);
  EXPECT_TRUE(std::isnan(Min2(1, nan)));
}

}  // namespace
