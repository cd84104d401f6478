#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "render/plotFrame.h"

namespace {

struct StepRow {
  float range, distance, depth;
};

TEST(TickSteps, AreRoundedByBands) {
  const StepRow rows[] = {
      {0, 0, 0},
      {0.5F, 0.02F, 0.2F},
      {1, 1, 1},
      {4.999F, 1, 1},
      {5, 2, 2},
      {9.99F, 2, 2},
      {10, 5, 5},
      {19, 5, 5},
      {20, 10, 10},
      {99.9F, 10, 10},
      {100, 20, 20},
      {499, 20, 20},
      {500, 100, 100},
      {999, 100, 100},
      {1000, 500, 500},
      {9999, 500, 500},
      {10000, 2000, 20000},
      {25000, 2000, 20000},
      {100000, 20000, 200000},
      {1000000, 20000, 200000},
      {-25, 10, 10},
  };
  for (const StepRow& row : rows) {
    EXPECT_EQ(KelvaneMain::DistanceStep(row.range), row.distance) << row.range;
    EXPECT_EQ(KelvaneMain::DepthStep(row.range), row.depth) << row.range;
  }
}

TEST(TickSteps, BelowOneTheLogarithmOfTheSingleDecides) {
  const StepRow rows[] = {{0.999F, 0.02F, 0.2F},     {0.1F, 0.02F, 0.2F},
                          {0.05F, 0.002F, 0.02F},    {0.01F, 0.0002F, 0.002F},
                          {0.001F, 0.0002F, 0.002F}, {0.0001F, 2E-06F, 2E-05F}};
  for (const StepRow& row : rows) {
    EXPECT_EQ(KelvaneMain::DistanceStep(row.range), row.distance) << row.range;
    EXPECT_EQ(KelvaneMain::DepthStep(row.range), row.depth) << row.range;
  }
}

TEST(TickSteps, NoNumberHasNoStep) {
  EXPECT_TRUE(std::isnan(KelvaneMain::DistanceStep(std::numeric_limits<float>::quiet_NaN())));
}

}  // namespace
