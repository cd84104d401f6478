#include "colorkey/legend.h"

#include <gtest/gtest.h>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "support/RecordingPictureBox.h"
#include "support/sampleSets.h"

namespace {

using support::Operation;
using support::RecordingPictureBox;
using Kind = Operation::Kind;

class LegendTest : public testing::Test {
 protected:
  void SetUp() override { support::resetState(); }
  void TearDown() override { support::resetState(); }
  RecordingPictureBox surface{"surface"};
};

void expectBox(const Operation& box, float x1, float y1, float x2, float y2,
               platform::Colour colour) {
  EXPECT_EQ(box.x1, x1);
  EXPECT_EQ(box.y1, y1);
  EXPECT_EQ(box.x2, x2);
  EXPECT_EQ(box.y2, y2);
  EXPECT_EQ(box.colour, colour);
}

TEST_F(LegendTest, KeyBoundsShowADecimalFromAThousandthOn) {
  struct Row {
    float bound;
    const char* text;
  };
  const Row rows[] = {{0, "0"},       {10, "10"},       {2.5F, "2.5"},   {3, "3"},
                      {2.0005F, "2"}, {2.9995F, "3.0"}, {0.0009F, "0"},  {0.001F, "0.0"},
                      {0.05F, "0.1"}, {0.25F, "0.3"},   {-0.5F, "-0.5"}, {-3, "-3"}};
  for (const Row& row : rows) EXPECT_EQ(ModColor::keyBoundText(row.bound), row.text);
}

TEST_F(LegendTest, TheKeyIsStackedWithItsLastDivisionOnTop) {
  for (int32_t i = 1; i <= 10; ++i) {
    ModColor::AddColorKey(static_cast<float>(i - 1), static_cast<float>(i), 1000 * i);
  }
  ModColor::DrawKeyLegend(surface, 500, 39, 84, 335);
  const auto boxes = surface.of(Kind::Box);
  const auto prints = surface.of(Kind::Print);
  ASSERT_EQ(boxes.size(), 10U);
  ASSERT_EQ(prints.size(), 10U);
  expectBox(boxes.front(), 500, 39, 521, 52, 10000);
  expectBox(boxes[1], 500, 55.25F, 521, 68.25F, 9000);
  expectBox(boxes.back(), 500, 185.25F, 521, 198.25F, 1000);
  EXPECT_EQ(prints.front().text, "9 - 10");
  EXPECT_EQ(prints.back().text, "0 - 1");
  EXPECT_EQ(prints.front().x1, 531.5F);
  EXPECT_EQ(prints.front().y1, 40.625F);
  EXPECT_EQ(prints.front().colour, 0);
}

TEST_F(LegendTest, ManyDivisionsShareTheHeight) {
  for (int32_t i = 1; i <= 96; ++i) ModColor::AddColorKey(0, 1, i);
  ModColor::DrawKeyLegend(surface, 0, 10, 40, 400);
  const auto boxes = surface.of(Kind::Box);
  ASSERT_EQ(boxes.size(), 96U);
  expectBox(boxes[0], 0, 10, 10, 14, 96);
  expectBox(boxes[1], 0, 15, 10, 19, 95);
}

TEST_F(LegendTest, AKeyWithoutDivisionsDrawsNothing) {
  for (const int32_t count : {0, -1}) {
    ModColor::ColorKey.nDivision = count;
    ModColor::DrawKeyLegend(surface, 500, 39, 84, 335);
    EXPECT_TRUE(surface.operations.empty()) << count;
  }
}

TEST_F(LegendTest, TheRampHasFiftyShadesAndALabelAtEveryFifth) {
  ModColor::ValueMin = 3;
  ModColor::ValueSpan = 25.7F;
  ModColor::DrawRampLegend(surface, 500, 39, 84, 324);
  const auto boxes = surface.of(Kind::Box);
  const auto prints = surface.of(Kind::Print);
  ASSERT_EQ(boxes.size(), 50U);
  ASSERT_EQ(prints.size(), 10U);
  expectBox(boxes.front(), 510.5F, 339, 531.5F, 345, ModColor::RampColour(0.02F));
  expectBox(boxes.back(), 510.5F, 45, 531.5F, 51, platform::rgb(245, 0, 0));
  expectBox(boxes[24], 510.5F, 195, 531.5F, 201, platform::rgb(122, 122, 245));
  const std::vector<std::string> labels = {"5.57",  "8.14",  "10.71", "13.28", "15.85",
                                           "18.42", "20.99", "23.56", "26.13", "28.70"};
  EXPECT_EQ(surface.texts(), labels);
  EXPECT_EQ(prints.front().x1, 542.0F);
  EXPECT_EQ(prints.front().y1, 312.0F);
}

TEST_F(LegendTest, AShadeAtZeroCarriesNoSign) {
  ModColor::ValueMin = -1;
  ModColor::ValueSpan = 2;
  ModColor::DrawRampLegend(surface, 500, 39, 84, 324);
  EXPECT_EQ(surface.texts()[4], "0.00");
  EXPECT_EQ(surface.texts()[3], "-0.20");
}

TEST_F(LegendTest, WhatALegendSetsOnItsSurfaceIsPutBack) {
  ModColor::AddColorKey(0, 1, 255);
  surface.ForeColor = 12345;
  surface.FillStyle = platform::FillStyle::Transparent;
  surface.Font.Size = 10;
  ModColor::DrawKeyLegend(surface, 500, 39, 84, 335);
  ModColor::DrawRampLegend(surface, 500, 39, 84, 335);
  EXPECT_EQ(surface.ForeColor, 12345);
  EXPECT_EQ(surface.FillStyle, platform::FillStyle::Transparent);
  EXPECT_EQ(surface.Font.Size, 10.0F);
  ModColor::ColorKey.nDivision = 2;  // more than the lists hold
  EXPECT_ANY_THROW(ModColor::DrawKeyLegend(surface, 500, 39, 84, 335));
  EXPECT_EQ(surface.ForeColor, 12345);
  EXPECT_EQ(surface.FillStyle, platform::FillStyle::Transparent);
}

}  // namespace
