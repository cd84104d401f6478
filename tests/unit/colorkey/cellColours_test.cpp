#include "colorkey/cellColours.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "support/sampleSets.h"
#include "support/specialValues.h"
#include "util/RuntimeError.h"

namespace {

using ModColor::ColorKey;
using ModColor::KeyLookup;

using support::kFloatInfinity;
using support::kFloatNan;
constexpr float kLargest = std::numeric_limits<float>::max();
constexpr float kLeast = std::numeric_limits<float>::denorm_min();
constexpr int64_t kSubscriptError = int64_t{1} << 40;

constexpr std::array kSpecial = {0.0F,      -0.0F,      kLeast,    -kLeast,        1.0F,
                                 -1.0F,     kLargest,   -kLargest, kFloatInfinity, -kFloatInfinity,
                                 kFloatNan, -kFloatNan, 0.1F,      16777216.0F};

class CellColours : public testing::Test {
 protected:
  CellColours() { support::resetState(); }
  ~CellColours() override { support::resetState(); }

  // A colour, or a number that is none for the subscript error.
  template <class Lookup>
  static int64_t resultOf(const Lookup& lookup, float value) {
    try {
      return lookup(value);
    } catch (const util::RuntimeError& error) {
      return kSubscriptError + error.number();
    }
  }

  static void expectAsInKey(const KeyLookup& lookup, float value) {
    ASSERT_EQ(resultOf(lookup, value), resultOf(ModColor::KeyColour, value)) << value;
  }

  std::mt19937 random{20};
  uint32_t below(uint32_t count) { return static_cast<uint32_t>(random() % count); }
  // One of a few numbers, so that bounds and values meet, now and then a special one.
  float latticeNumber() {
    if (below(12) == 0) return kSpecial[below(kSpecial.size())];
    return static_cast<float>(below(16)) / 4.0F - 2.0F;
  }
};

TEST_F(CellColours, AreThoseOfTheKeyForRandomKeysAndValues) {
  for (int round = 0; round < 3000; ++round) {
    ModColor::NewColorKey();
    const uint32_t count = below(20);
    for (uint32_t i = 0; i < count; ++i) {
      const float low = latticeNumber();
      ModColor::AddColorKey(low, latticeNumber(), static_cast<int32_t>(i));
    }
    // The count and the lists can disagree.
    if (below(4) == 0) ColorKey.nDivision += static_cast<int32_t>(below(5)) - 2;
    const KeyLookup lookup;
    for (int n = 0; n < 40; ++n) ASSERT_NO_FATAL_FAILURE(expectAsInKey(lookup, latticeNumber()));
    for (const float value : kSpecial) ASSERT_NO_FATAL_FAILURE(expectAsInKey(lookup, value));
  }
}

TEST_F(CellColours, AreThoseOfTheKeyAroundEveryBound) {
  for (const float low : kSpecial) {
    for (const float high : kSpecial) {
      ModColor::NewColorKey();
      ModColor::AddColorKey(low, high, 255);
      ModColor::AddColorKey(-kFloatInfinity, kFloatInfinity, 1);
      const KeyLookup lookup;
      for (const float bound : kSpecial) {
        for (const float value : {bound, std::nextafter(bound, kFloatInfinity),
                                  std::nextafter(bound, -kFloatInfinity)}) {
          ASSERT_NO_FATAL_FAILURE(expectAsInKey(lookup, value)) << low << " to " << high;
        }
      }
    }
  }
}

TEST_F(CellColours, FailOnlyWhereTheKeyRunsBeyondItsLists) {
  ModColor::AddColorKey(0, 1, 255);
  ColorKey.nDivision = 2;
  const KeyLookup lookup;
  EXPECT_EQ(resultOf(lookup, 0.5F), 255);
  EXPECT_EQ(resultOf(lookup, 1), kSubscriptError + util::kSubscript);
  EXPECT_EQ(resultOf(lookup, kFloatNan), kSubscriptError + util::kSubscript);
}

TEST_F(CellColours, AreWhiteWithoutDivisions) {
  ModColor::AddColorKey(0, 1, 255);
  for (const int32_t count : {0, -1, std::numeric_limits<int32_t>::min()}) {
    ColorKey.nDivision = count;
    EXPECT_EQ(resultOf(KeyLookup(), 0.5F), platform::basicPalette(15)) << count;
  }
}

TEST_F(CellColours, KeepTheKeyThatTheyWereMadeFrom) {
  ModColor::AddColorKey(0, 1, 255);
  const KeyLookup lookup;
  ModColor::NewColorKey();
  EXPECT_EQ(lookup(0.5F), 255);
}

// Of a single value, by going through the key.
platform::Colour plainColour(float value) {
  return ModColor::bUseKey < 0 ? ModColor::KeyColour(value)
                               : ModColor::RampColour(ModColor::valueFraction(value));
}

TEST_F(CellColours, ComeFromTheKeyOrTheRampAsTheFlagSays) {
  ModColor::AddColorKey(0, 10, 255);
  ModColor::ValueMin = 0;
  ModColor::ValueSpan = 10;
  for (const int32_t flag : {-2, -1, 0, 1, 2, 3, 4, 5}) {
    ModColor::bUseKey = flag;
    const ModColor::CellColours colours;
    for (const float value : {-1.0F, 0.0F, 2.5F, 5.0F, 10.0F, 11.0F, kFloatNan, kFloatInfinity}) {
      EXPECT_EQ(colours(value), plainColour(value)) << flag << ", " << value;
    }
  }
}

}  // namespace
