#include "render/profileTicks.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using namespace KelvaneMain;
using Texts = std::vector<std::string>;

Texts labelsOf(const std::vector<ValueTick>& ticks) {
  Texts labels;
  for (const ValueTick& tick : ticks) labels.push_back(tick.label);
  return labels;
}

TEST(ProfileTicks, RunFromTheMinimumUpToTheMaximum) {
  const struct {
    float minimum, maximum, interval;
    Texts labels;
  } cases[] = {
      {9, 17.3F, 1, {"9", "10", "11", "12", "13", "14", "15", "16", "17"}},
      {0, 30, 6, {"0", "6", "12", "18", "24", "30"}},
      {34, 35.375F, 0.4F, {"34", "34.4", "34.8", "35.2"}},
      {0.5F, 1.5F, 0.2F, {"0.5", "0.7", "0.9", "1.1", "1.3", "1.5"}},
      {-9, -1, 1.6F, {"-9", "-7.4", "-5.8", "-4.2", "-2.6", "-1"}},
      {5, 5.1F, 0.2F, {"5"}},
      {0, 0.7142857F, 0.14285714F,
       {"0", "0.1428571", "0.2857143", "0.4285714", "0.5714285", "0.7142857"}},
      {0, 2e7F, 4e6F, {"0", "4000000", "8000000", "1.2E+07", "1.6E+07", "2E+07"}},
      {0, 1e-6F, 2e-7F, {"0", "2E-07", "4E-07", "6E-07", "8E-07", "1E-06"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.minimum);
    EXPECT_EQ(labelsOf(valueTicks(c.minimum, c.maximum, c.interval)), c.labels);
  }
}

TEST(ProfileTicks, LabelsShowNoRoundingNoise) {
  // Of the stored singles, -0.3 + 3 x 0.1 is -7.450581E-09 and -0.3 + 2 x 0.2 is 0.09999999.
  EXPECT_EQ(labelsOf(valueTicks(-0.3F, 0.2F, 0.1F)),
            (Texts{"-0.3", "-0.2", "-0.1", "0", "0.1", "0.2"}));
  EXPECT_EQ(labelsOf(valueTicks(-0.3F, 0.7F, 0.2F)),
            (Texts{"-0.3", "-0.1", "0.1", "0.3", "0.5", "0.7"}));
}

TEST(ProfileTicks, TheMaximumIsATickThatRoundingDoesNotTakeAway) {
  // Ranges up to 1 are cut into five: the last tick is meant to stand at the maximum.
  const struct {
    float minimum, maximum;
  } ranges[] = {{-1, 0.01F},        {-0.3F, 0.7F},  {-1, 1e-4F}, {0.1F, 0.6F}, {-0.7F, -0.1F},
                {0, 1.0F / 3.0F},   {-5.3F, 0.013F}, {1e-20F, 3e-20F}, {-1e20F, 0.9F}};
  for (const auto& range : ranges) {
    const float interval = static_cast<float>(
        (static_cast<double>(range.maximum) - static_cast<double>(range.minimum)) / 5);
    const auto ticks = valueTicks(range.minimum, range.maximum, interval);
    ASSERT_EQ(ticks.size(), 6U) << range.minimum << ' ' << range.maximum;
    EXPECT_EQ(ticks.front().value, range.minimum);
    EXPECT_EQ(ticks.back().value, range.maximum);
  }
}

TEST(ProfileTicks, ATickClearlyAboveTheMaximumIsNoTick) {
  EXPECT_EQ(valueTicks(0, 0.999F, 0.5F).size(), 2U);
  EXPECT_EQ(valueTicks(0, 1.001F, 0.5F).size(), 3U);
  EXPECT_EQ(valueTicks(0, 1.001F, 0.5F).back().value, 1.0F);
}

TEST(ProfileTicks, NoneWithoutAnIntervalAboveZeroOrARange) {
  using support::kFloatInfinity;
  using support::kFloatNan;
  const struct {
    float minimum, maximum, interval;
  } cases[] = {{0, 10, 0},         {0, 10, -1},       {0, 10, kFloatNan},     {10, 0, 1},
               {kFloatNan, 10, 1}, {0, kFloatNan, 1}, {0, 10, kFloatInfinity}};
  for (const auto& c : cases) {
    EXPECT_TRUE(valueTicks(c.minimum, c.maximum, c.interval).empty())
        << c.minimum << ' ' << c.maximum << ' ' << c.interval;
  }
}

TEST(ProfileTicks, MoreThanACounterHoldsAreAnOverflow) {
  EXPECT_EQ(valueTicks(0, 32766, 1).size(), 32767U);
  EXPECT_THROW(valueTicks(0, 32767, 1), util::RuntimeError);
  for (const float interval : {1.0F, 1e-30F}) {
    try {
      valueTicks(0, 1e6F, interval);
      ADD_FAILURE() << "no overflow at " << interval;
    } catch (const util::RuntimeError& error) {
      EXPECT_EQ(error.number(), util::kOverflow);
    }
  }
}

}  // namespace
