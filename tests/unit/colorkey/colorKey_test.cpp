#include "colorkey/colorKey.h"

#include <gtest/gtest.h>

#include <limits>

#include "colorkey/cellColours.h"
#include "colorkey/rampColour.h"
#include "support/sampleSets.h"
#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using ModColor::ColorKey;

constexpr platform::Colour kWhite = 16777215;
using support::kFloatNan;

class ColorKeyTest : public testing::Test {
 protected:
  void SetUp() override { support::resetState(); }
  void TearDown() override { support::resetState(); }
};

int errorOfAddition() {
  try {
    ModColor::AddColorKey(0, 1, 255);
  } catch (const util::RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST_F(ColorKeyTest, AdditionsAreKeptInOrderWithoutSortingOrChecks) {
  ModColor::AddColorKey(10, 20, 65280);
  ModColor::AddColorKey(30, 5, -1);
  EXPECT_EQ(ColorKey.nDivision, 2);
  EXPECT_EQ(ColorKey.low(1), 10.0F);
  EXPECT_EQ(ColorKey.high(1), 20.0F);
  EXPECT_EQ(ColorKey.color(1), 65280);
  EXPECT_EQ(ColorKey.low(2), 30.0F);
  EXPECT_EQ(ColorKey.high(2), 5.0F);
  EXPECT_EQ(ColorKey.color(2), -1);
  EXPECT_EQ(ModColor::bUseKey, 0);
}

TEST_F(ColorKeyTest, TheFirstAdditionAfterAFailedLoadFailsAndTheNextWorks) {
  ColorKey.nDivision = -1;
  EXPECT_EQ(errorOfAddition(), util::kSubscript);
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_EQ(errorOfAddition(), 0);
  EXPECT_EQ(ColorKey.nDivision, 1);
}

TEST_F(ColorKeyTest, AnOverflowKeepsTheCount) {
  ColorKey.nDivision = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(errorOfAddition(), util::kOverflow);
  EXPECT_EQ(ColorKey.nDivision, std::numeric_limits<int32_t>::max());
}

TEST_F(ColorKeyTest, ANewKeyIsEmptyAndLeavesItsUseAlone) {
  ModColor::AddColorKey(0, 1, 255);
  ModColor::UseColorKey(true);
  ModColor::NewColorKey();
  EXPECT_EQ(ColorKey.nDivision, 0);
  EXPECT_TRUE(ColorKey.low.empty());
  EXPECT_TRUE(ColorKey.high.empty());
  EXPECT_TRUE(ColorKey.color.empty());
  EXPECT_EQ(ModColor::bUseKey, -1);
}

TEST_F(ColorKeyTest, AKeyIsUsedOnlyWhenItHasADivision) {
  ModColor::UseColorKey(true);
  EXPECT_EQ(ModColor::bUseKey, 0);
  ColorKey.nDivision = -1;
  ModColor::UseColorKey(true);
  EXPECT_EQ(ModColor::bUseKey, 0);
  ColorKey.nDivision = 0;
  ModColor::AddColorKey(0, 1, 255);
  ModColor::UseColorKey(true);
  EXPECT_EQ(ModColor::bUseKey, -1);
  ModColor::UseColorKey(false);
  EXPECT_EQ(ModColor::bUseKey, 0);
}

TEST_F(ColorKeyTest, AValueTakesTheFirstDivisionThatContainsIt) {
  ModColor::AddColorKey(0, 10, 255);
  ModColor::AddColorKey(10, 20, 65280);
  ModColor::AddColorKey(15, 30, 16711680);
  ModColor::AddColorKey(40, 35, 1);
  struct Row {
    float value;
    platform::Colour colour;
  };
  const Row rows[] = {{-0.001F, kWhite}, {0, 255},       {9.999F, 255},       {10, 65280},
                      {19.999F, 65280},  {20, 16711680}, {29.999F, 16711680}, {30, kWhite},
                      {37, kWhite},      {40, kWhite},   {kFloatNan, kWhite}, {-1e35F, kWhite}};
  for (const Row& row : rows) {
    EXPECT_EQ(ModColor::KeyColour(row.value), row.colour) << row.value;
  }
}

TEST_F(ColorKeyTest, AKeyWithoutDivisionsColoursEverythingWhite) {
  for (const int32_t count : {0, -1}) {
    ColorKey.nDivision = count;
    EXPECT_EQ(ModColor::KeyColour(5), kWhite) << count;
  }
}

TEST_F(ColorKeyTest, ACountBeyondTheListsIsASubscriptError) {
  ColorKey.nDivision = 3;
  EXPECT_THROW(ModColor::KeyColour(5), util::RuntimeError);
}

TEST_F(ColorKeyTest, ACellIsShadedThroughTheKeyOrTheRamp) {
  ModColor::AddColorKey(0, 10, 255);
  ModColor::ValueMin = 0;
  ModColor::ValueSpan = 10;
  EXPECT_EQ(ModColor::CellColours()(5), platform::rgb(122, 122, 245));
  ModColor::UseColorKey(true);
  EXPECT_EQ(ModColor::CellColours()(5), 255);
}

}  // namespace
