#include "colorkey/rampSteps.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "colorkey/cellColours.h"
#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "support/sampleSets.h"
#include "support/specialValues.h"

namespace {

using ModColor::ColourSteps;

using support::kFloatInfinity;
using support::kFloatNan;

struct Range {
  float min, span;
};
constexpr Range kRanges[] = {{0, 30},          {-1.9F, 33.3F}, {1000, 1e-3F}, {-1, 1},
                             {-5e-6F, 1.7e-6F}, {0, 1},         {1e30F, 1e30F}, {16777216, 8}};

class RampSteps : public testing::Test {
 protected:
  RampSteps() { support::resetState(); }
  ~RampSteps() override { support::resetState(); }

  static platform::Colour plain(float value) {
    return ModColor::RampColour(ModColor::valueFraction(value));
  }
  template <class Check>
  static void forEveryRamp(Check check) {
    for (const Range range : kRanges) {
      for (const int32_t direction : {0, 1, 2}) {
        for (const int32_t scheme : {0, 1, 2, 3, 4, 5}) {
          ModColor::ValueMin = range.min;
          ModColor::ValueSpan = range.span;
          ModColor::RampDirection = direction;
          ModColor::bUseKey = scheme;
          check(range);
        }
      }
    }
  }
};

TEST_F(RampSteps, AreWhereTheColourChangesToTheLastBit) {
  std::size_t most = 0;
  forEveryRamp([&](Range) {
    const std::vector<ColourSteps::Step> steps = ModColor::rampSteps();
    most = std::max(most, steps.size());
    for (const ColourSteps::Step& step : steps) {
      ASSERT_EQ(step.colour, plain(step.from)) << step.from;
      const float before = std::nextafter(step.from, -kFloatInfinity);
      ASSERT_NE(step.colour, plain(before)) << step.from;
    }
  });
  EXPECT_GT(most, 700U);
}

TEST_F(RampSteps, GiveEveryValueItsColour) {
  std::mt19937 random{5};
  forEveryRamp([&](Range range) {
    const ModColor::CellColours many(1000000), few(1);
    std::vector<float> values = {
        0.0F, -0.0F, 1e35F, kFloatInfinity, kFloatNan, range.min, range.min + range.span};
    for (int n = 0; n < 2000; ++n) {
      const auto place = static_cast<float>(random() % 4000) / 2000.0F - 0.5F;
      values.push_back(range.min + range.span * place);
    }
    std::vector<platform::Colour> found(values.size());
    many.lookUp(values, found);
    for (std::size_t n = 0; n < values.size(); ++n) {
      ASSERT_EQ(found[n], plain(values[n])) << values[n];
      ASSERT_EQ(many(values[n]), found[n]) << values[n];
      ASSERT_EQ(few(values[n]), found[n]) << values[n];
    }
  });
}

TEST_F(RampSteps, AreAskedForRangesThatAreNumbersOnly) {
  for (const float span : {0.0F, -1.0F, kFloatInfinity, kFloatNan}) {
    ModColor::ValueSpan = span;
    EXPECT_FALSE(ModColor::hasRampSteps()) << span;
    EXPECT_EQ(ModColor::CellColours(1000000)(3.0F), plain(3.0F)) << span;
  }
}

TEST_F(RampSteps, TellWhetherAValueCanFail) {
  ModColor::ValueSpan = 30;
  EXPECT_FALSE(ModColor::CellColours().mayFail(-1e35F));
  ModColor::ValueSpan = 1e-6F;
  EXPECT_TRUE(ModColor::CellColours().mayFail(-1e35F));
  EXPECT_FALSE(ModColor::CellColours().mayFail(-1e3F));
  ModColor::ValueSpan = 0;
  EXPECT_FALSE(ModColor::CellColours().mayFail(-1e35F));
  ModColor::ValueSpan = -1;
  EXPECT_TRUE(ModColor::CellColours().mayFail(0));
}

}  // namespace
