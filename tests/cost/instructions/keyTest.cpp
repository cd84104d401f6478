// Keys of many divisions: prepared once for a drawing, then asked for the colour of every cell.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "colorkey/cellColours.h"
#include "colorkey/colorKey.h"
#include "growth.h"

namespace cost {
namespace {

constexpr double kTop = 30.0;

void divide(double low, double high, int32_t colour) {
  ModColor::AddColorKey(static_cast<float>(low), static_cast<float>(high), colour);
}

// One above the other.
void makeKey(int32_t divisions) {
  ModColor::NewColorKey();
  const double step = kTop / divisions;
  for (int32_t n = 0; n < divisions; ++n) divide(n * step, (n + 1) * step, n);
}

// In any order, each reaching over the next.
void makeOverlappingKey(int32_t divisions) {
  ModColor::NewColorKey();
  const double step = kTop / divisions;
  for (int32_t n = 0; n < divisions; ++n) {
    const double low = step * static_cast<double>(int64_t{n} * 7919 % divisions);
    divide(low, low + 2 * step, n);
  }
}

// Half of the divisions crowded at the bottom of the range, the others above them.
constexpr double kCrowd = kTop / 100'000;
void makeUnevenKey(int32_t divisions) {
  ModColor::NewColorKey();
  const int32_t half = divisions / 2;
  const double narrow = kCrowd / half, wide = (kTop - kCrowd) / half;
  for (int32_t n = 0; n < half; ++n) divide(n * narrow, (n + 1) * narrow, n);
  for (int32_t n = 0; n < half; ++n) divide(kCrowd + n * wide, kCrowd + (n + 1) * wide, n);
}

int64_t preparing() {
  return instructions([] { const ModColor::KeyLookup lookup; });
}

// The colours of many values through the key as it stands.
int64_t lookingUp(double highest) {
  std::mt19937 random(11);
  std::vector<float> values(20'000);
  for (float& value : values) {
    value = static_cast<float>(highest * static_cast<double>(random() % 100'000) / 100'000);
  }
  std::vector<platform::Colour> colours(values.size());
  const ModColor::KeyLookup lookup;
  return instructions([&] { lookup.lookUp(values, colours); });
}

class Key : public testing::Test {
 protected:
  ~Key() override { ModColor::NewColorKey(); }
};

TEST_F(Key, IsPreparedInProportionToItsDivisions) {
  const double each = costOfEach("divisions in order", 2500, 4, [](int32_t divisions) {
    makeKey(divisions);
    return preparing();
  });
  EXPECT_LE(each, kInProportion);
}

TEST_F(Key, IsPreparedBySortingDivisionsThatOverlap) {
  const double each = costOfEach("divisions that overlap", 1000, 8, [](int32_t divisions) {
    makeOverlappingKey(divisions);
    return preparing();
  });
  EXPECT_LE(each, kWithTrees);
}

TEST_F(Key, GivesAColourWhateverItsDivisions) {
  makeKey(10);
  const int64_t few = lookingUp(kTop);
  makeKey(30'000);
  EXPECT_LE(ratio("colours of 30,000 divisions", lookingUp(kTop), few), 1.1);
}

// Values in the crowd are found by halving: twice as many divisions, one step more.
TEST_F(Key, HalvesItsWayThroughACrowdOfDivisions) {
  makeUnevenKey(1000);
  const int64_t few = lookingUp(kCrowd);
  makeUnevenKey(32'000);
  EXPECT_LE(ratio("colours of 32,000 uneven divisions", lookingUp(kCrowd), few), 2.0);
}

}  // namespace
}  // namespace cost
