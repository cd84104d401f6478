#include "colorkey/randomColour.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

TEST(RandomColour, AComponentIsTheNearestNumberAndAtMost255) {
  struct Row {
    double uniform;
    int32_t component;
  };
  const Row rows[] = {{0, 0},
                      {0.5 / 256, 0},
                      {1.5 / 256, 2},
                      {2.5 / 256, 2},
                      {std::nextafter(2.5 / 256, 1.0), 3},
                      {0.5, 128},
                      {254.5 / 256, 254},
                      {255.0 / 256, 255},
                      {255.5 / 256, 255},
                      {std::nextafter(1.0, 0.0), 255}};
  for (const Row& row : rows) {
    EXPECT_EQ(ModColor::randomComponent(row.uniform), row.component) << row.uniform;
  }
}

TEST(RandomColour, RedIsDrawnFirstThenGreenThenBlue) {
  const std::vector<double> numbers = {1.0 / 256, 2.0 / 256, 3.0 / 256};
  std::size_t next = 0;
  EXPECT_EQ(ModColor::randomColour([&] { return numbers[next++]; }), 1 + 256 * 2 + 65536 * 3);
  EXPECT_EQ(next, 3U);
}

}  // namespace
