#include "colorkey/rampColour.h"

#include <gtest/gtest.h>

#include <cmath>

#include "colorkey/cellColours.h"
#include "colorkey/colorKey.h"
#include "support/sampleSets.h"
#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using support::kFloatInfinity;
using support::kFloatNan;

class RampTest : public testing::Test {
 protected:
  void SetUp() override { support::resetState(); }
  void TearDown() override { support::resetState(); }
};

struct RampRow {
  int32_t scheme, direction;
  float t;
  int32_t r, g, b;
};

void expectColours(const std::vector<RampRow>& rows) {
  for (const RampRow& row : rows) {
    ModColor::bUseKey = row.scheme;
    ModColor::RampDirection = row.direction;
    EXPECT_EQ(ModColor::RampColour(row.t), platform::rgb(row.r, row.g, row.b))
        << "scheme " << row.scheme << ", direction " << row.direction << ", t " << row.t;
  }
}

TEST_F(RampTest, TheThreeBandsRestartAtWhite) {
  expectColours({
      {0, 0, -0.1F, 255, 255, 255},
      {0, 0, 0, 255, 255, 255},
      {0, 0, 1e-8F, 255, 255, 255},
      {0, 0, 0.001F, 244, 245, 244},
      {0, 0, 0.01F, 238, 245, 238},
      {0, 0, 0.1F, 171, 245, 171},
      {0, 0, 0.25F, 61, 245, 61},
      {0, 0, 0.3F, 24, 245, 24},
      {0, 0, 0.33333334F, 0, 245, 0},
      {0, 0, 0.33333337F, 245, 245, 245},
      {0, 0, 0.35F, 233, 233, 245},
      {0, 0, 0.4F, 196, 196, 245},
      {0, 0, 0.5F, 122, 122, 245},
      {0, 0, 0.6666667F, 0, 0, 245},
      {0, 0, 0.66666675F, 245, 245, 245},
      {0, 0, 0.7F, 245, 220, 220},
      {0, 0, 0.8F, 245, 147, 147},
      {0, 0, 0.9F, 245, 73, 73},
      {0, 0, 0.99F, 245, 7, 7},
      {0, 0, 1, 245, 0, 0},
      {0, 0, 1.0000001F, 255, 255, 255},
      {0, 0, kFloatNan, 255, 255, 255},
      {0, 0, kFloatInfinity, 255, 255, 255},
      {0, 0, -kFloatInfinity, 255, 255, 255},
  });
}

TEST_F(RampTest, TheOtherSchemes) {
  expectColours({
      {1, 0, 0.5F, 128, 128, 128},
      {1, 0, 0.1F, 229, 229, 229},
      {1, 0, 1, 0, 0, 0},
      {2, 0, 0.25F, 255, 128, 128},
      {2, 0, 0.5F, 255, 0, 0},
      {2, 0, 0.75F, 128, 0, 0},
      {2, 0, 1, 0, 0, 0},
      {3, 0, 0.25F, 128, 255, 128},
      {3, 0, 0.5F, 0, 255, 0},
      {3, 0, 1, 0, 0, 0},
      {4, 0, 0.4F, 51, 51, 255},
      {4, 0, 0.6F, 0, 0, 204},
      {5, 0, 0.5F, 255, 255, 255},
      {-1, 0, 0.5F, 255, 255, 255},
  });
}

TEST_F(RampTest, TheDirectionTurnsOrStopsTheFraction) {
  expectColours({{0, 1, 1, 255, 255, 255},
                 {0, 1, 0, 245, 0, 0},
                 {0, 1, 0.5F, 122, 122, 245},
                 {0, 1, kFloatNan, 255, 255, 255},
                 {0, 2, 0.5F, 255, 255, 255},
                 {0, -1, 0.5F, 255, 255, 255}});
}

TEST_F(RampTest, TheFractionIsCappedAboveOnly) {
  ModColor::ValueMin = 9;
  ModColor::ValueSpan = 8.3F;
  EXPECT_EQ(ModColor::valueFraction(9), 0.0F);
  EXPECT_EQ(ModColor::valueFraction(17.85F), 1.0F);
  EXPECT_EQ(ModColor::valueFraction(kFloatInfinity), 1.0F);
  EXPECT_LT(ModColor::valueFraction(8), 0.0F);
  EXPECT_TRUE(std::isnan(ModColor::valueFraction(kFloatNan)));
  EXPECT_EQ(ModColor::CellColours()(17.85F), platform::rgb(245, 0, 0));
  EXPECT_EQ(ModColor::CellColours()(9), platform::rgb(255, 255, 255));
  EXPECT_EQ(ModColor::CellColours()(8), platform::rgb(255, 255, 255));
  EXPECT_EQ(ModColor::CellColours()(kFloatNan), platform::rgb(255, 255, 255));
}

TEST_F(RampTest, ARangeOfNoWidthIsWhite) {
  ModColor::ValueMin = 5;
  ModColor::ValueSpan = 0;
  for (const float value : {4.0F, 5.0F, 6.0F, kFloatNan}) {
    EXPECT_EQ(ModColor::CellColours()(value), platform::rgb(255, 255, 255)) << value;
  }
}

TEST_F(RampTest, AFractionBeyondSinglePrecisionIsAnOverflow) {
  ModColor::ValueMin = 1e30F;
  ModColor::ValueSpan = 1e-20F;
  EXPECT_THROW(ModColor::valueFraction(0), util::RuntimeError);
  EXPECT_EQ(ModColor::valueFraction(2e30F), 1.0F);
}

}  // namespace
