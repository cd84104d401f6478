#include "section/extremes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "section/sectionValues.h"
#include "util/ocxMinmax.h"

using namespace KelvaneMain;

namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

struct Pair {
  float maximum = kMissingValue, minimum = -kMissingValue;
};

// One value after the other.
Pair plainly(const std::vector<float>& values) {
  Pair pair;
  for (const float value : values) {
    if (!isValue(value)) continue;
    pair.maximum = ocxMinmax::Max2(pair.maximum, value);
    pair.minimum = ocxMinmax::Min2(pair.minimum, value);
  }
  return pair;
}

void expectSame(float found, float expected) {
  EXPECT_EQ(found, expected);
  EXPECT_EQ(std::signbit(found), std::signbit(expected)) << expected;
}

// Taken in pieces of every length up to the whole.
void expectPlain(const std::vector<float>& values) {
  const Pair expected = plainly(values);
  for (std::size_t length = 1; length <= values.size(); length += 1 + length / 3) {
    SCOPED_TRACE(testing::Message() << values.size() << " in pieces of " << length);
    Extremes extremes;
    for (std::size_t first = 0; first < values.size(); first += length) {
      extremes.take(std::span(values).subspan(first, std::min(length, values.size() - first)));
    }
    expectSame(extremes.maximum(values), expected.maximum);
    expectSame(extremes.minimum(values), expected.minimum);
  }
}

TEST(ExtremesTest, AreTheMarkersWithoutAValue) {
  expectSame(Extremes().maximum({}), kMissingValue);
  expectSame(Extremes().minimum({}), -kMissingValue);
  expectPlain({kMissingValue, -2e35F, kNan, -kInfinity});
}

TEST(ExtremesTest, AreThoseOfAnyValues) {
  std::mt19937 random(3);
  const float odd[] = {kMissingValue, -2e35F,    kNan, -kNan, kInfinity, -kInfinity, 0.0F, -0.0F,
                       1e36F,         -9.9e34F,  1e35F};
  for (const std::size_t size : {1U, 2U, 31U, 32U, 33U, 64U, 100U, 333U}) {
    for (int turn = 0; turn < 8; ++turn) {
      std::vector<float> values(size);
      for (float& value : values) {
        value = random() % 4 == 0 ? odd[random() % std::size(odd)]
                                  : static_cast<float>(random() % 2000) / 7 - 100;
      }
      expectPlain(values);
    }
  }
}

TEST(ExtremesTest, HaveTheSignOfTheLastZero) {
  for (const bool first : {false, true}) {
    for (const bool last : {false, true}) {
      for (const float other : {-5.0F, 5.0F, kMissingValue}) {
        std::vector<float> values(70, other);
        values[3] = first ? -0.0F : 0.0F;
        values[50] = last ? -0.0F : 0.0F;
        expectPlain(values);
      }
    }
  }
}

}  // namespace
