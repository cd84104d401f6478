#include "netcdf/acceptance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "util/RuntimeError.h"

namespace {

using ocxNetNc::Acceptance;
using ocxNetNc::Conversion;
using ocxNetNc::convert;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// The rule in its own words: both sides as singles, infinite beyond their range.
float single(double value) {
  constexpr double limit = 0x1.ffffffp127;
  if (!(std::fabs(value) >= limit)) return static_cast<float>(value);
  return static_cast<float>(std::copysign(kInfinity, value));
}
bool plainly(double raw, double threshold) {
  if (threshold == 0) return true;
  return threshold < 0 ? single(raw) > single(threshold) : single(raw) < single(threshold);
}

// Numbers around one, a step of a double and of half a single at a time.
std::vector<double> around(double number) {
  std::vector<double> numbers = {number};
  const auto nearest = static_cast<double>(single(number));
  if (std::isinf(nearest)) return numbers;
  const auto neighbour = [](double value, float to) {
    return static_cast<double>(std::nextafter(static_cast<float>(value), to));
  };
  const double below = neighbour(nearest, -std::numeric_limits<float>::infinity());
  const double above = neighbour(nearest, std::numeric_limits<float>::infinity());
  const double halves[] = {(below + nearest) / 2, (nearest + above) / 2};
  for (const double middle : {below, halves[0], nearest, halves[1], above}) {
    numbers.insert(numbers.end(), {std::nextafter(middle, -kInfinity), middle,
                                   std::nextafter(middle, kInfinity)});
  }
  return numbers;
}

TEST(AcceptanceTest, IsThatOfSingles) {
  std::vector<double> thresholds = {1,       -1,         0.99 * 1e20,   -0.99 * 1e34, -989.01,
                                    1e-300,  -1e-300,    1e-45,         7e-46,        1.1754944e-38,
                                    3.4e38,  -3.4028235e38, 0x1.ffffffp127, 1e300,    -1e300,
                                    kInfinity, -kInfinity, 16777216.4,  -16777215.6,  32439.33};
  for (const double threshold : thresholds) {
    SCOPED_TRACE(threshold);
    const Acceptance accepted(threshold);
    for (const double sign : {1.0, -1.0}) {
      for (const double raw : around(sign * threshold)) {
        EXPECT_EQ(accepted(raw), plainly(raw, threshold)) << raw;
      }
    }
    for (const double raw : {0.0, -0.0, kInfinity, -kInfinity, kNan, 0x1.ffffffp127,
                             -0x1.ffffffp127, 1e300, -1e300, 5e-324, -5e-324}) {
      EXPECT_EQ(accepted(raw), plainly(raw, threshold)) << raw;
    }
  }
}

TEST(AcceptanceTest, TakesEverythingWithoutAThreshold) {
  const Acceptance accepted(0);
  EXPECT_TRUE(accepted.takesAll());
  for (const double raw : {0.0, kNan, kInfinity, -kInfinity, 1e300}) EXPECT_TRUE(accepted(raw));
}

// Long enough for every way in which the compiler takes several values at once.
TEST(ConvertTest, TakesEachValueByItself) {
  const Conversion how{-32440.32, 0.001, 10, -1e35F};
  for (std::size_t length = 1; length <= 70; ++length) {
    std::vector<short> raw;
    for (std::size_t i = 0; i < length; ++i) {
      const int number = i % 3 == 0 ? -32768 : static_cast<int>(i) * 311 - 9000;
      raw.push_back(static_cast<short>(number));
    }
    std::vector<float> values(length, 77);
    const auto missing = static_cast<int32_t>((length + 2) / 3);
    EXPECT_EQ(convert(std::span<const short>(raw), how, values.data()),
              static_cast<int32_t>(length) - missing);
    for (std::size_t i = 0; i < length; ++i) {
      const float expected =
          i % 3 == 0 ? -1e35F : static_cast<float>(static_cast<double>(raw[i]) * 0.001 + 10);
      EXPECT_EQ(values[i], expected) << i;
    }
  }
}

// What becomes of numbers one by one, in the rule's own words; nothing where one overflows.
template <class Number>
std::vector<float> plainValues(const std::vector<Number>& raw, const Conversion& how) {
  std::vector<float> values;
  for (const Number number : raw) {
    const auto wide = static_cast<double>(number);
    const double value = wide * how.scale + how.offset;
    if (!plainly(wide, how.threshold)) {
      values.push_back(how.replacement);
    } else if (std::fabs(value) >= 0x1.ffffffp127) {
      return {};
    } else {
      values.push_back(static_cast<float>(value));
    }
  }
  return values;
}

template <class Number>
void expectPlainValues(const std::vector<Number>& raw, const Conversion& how) {
  SCOPED_TRACE(testing::Message() << how.threshold << ", " << how.scale << ", " << how.offset);
  const std::vector<float> expected = plainValues(raw, how);
  std::vector<float> values(raw.size());
  if (expected.empty()) {
    EXPECT_THROW(convert(std::span<const Number>(raw), how, values.data()), util::RuntimeError);
    return;
  }
  const auto counted = std::count_if(raw.begin(), raw.end(), [&](Number number) {
    return plainly(static_cast<double>(number), how.threshold);
  });
  EXPECT_EQ(convert(std::span<const Number>(raw), how, values.data()), counted);
  EXPECT_EQ(std::memcmp(values.data(), expected.data(), raw.size() * sizeof(float)), 0);
}

template <class Number>
void expectPlainWholeNumbers() {
  using Limits = std::numeric_limits<Number>;
  std::vector<Number> raw = {0, 1, -1, Limits::min(), Limits::max(), Limits::min() + 1,
                             Limits::max() - 1};
  for (int n = 0; n < 100; ++n) raw.push_back(static_cast<Number>(n * 655 - 32700));
  for (const double sign : {1.0, -1.0}) {
    for (const double size : {0.0, 1e-300, 0.5, 1.0, 7.5, 32400.0, 32439.33, 32767.0, 32768.0, 1e6,
                              2147483647.0, 2147483648.0, 1e20, 1e300, kInfinity, kNan}) {
      for (const double scale : {1.0, 0.001, -0.02, 0.0, 1e34, 1e300, kInfinity, kNan}) {
        expectPlainValues<Number>(raw, {sign * size, scale, 273.15, -1e35F});
      }
    }
    expectPlainValues<Number>(raw, {sign, 1, sign * kInfinity, -1e35F});
    // Whatever does not count is not scaled either.
    expectPlainValues<Number>({0, 0, Limits::max(), 0}, {100, 1e36, 0, -1e35F});
  }
}

TEST(ConvertTest, TakesWholeNumbersAsTheRuleSays) {
  expectPlainWholeNumbers<short>();
  expectPlainWholeNumbers<int>();
}

TEST(ConvertTest, TakesFractionsAsTheRuleSays) {
  for (const double threshold : {0.0, 1.0, -1.0, 0.99 * 1e20, -0.99 * 1e34, 1e-45, 1e300, kInfinity,
                                 -kInfinity, kNan, 7e-46, 0.1, -0.1}) {
    std::vector<double> doubles = {0, -0.0, 1, -1, kNan, 1e19, -1e33, 1e-300};
    for (const double number : around(threshold)) doubles.push_back(number);
    std::vector<float> singles;
    for (double& number : doubles) {
      if (!(std::fabs(number) < 1e37)) number = kNan;
      singles.push_back(static_cast<float>(number));
    }
    for (const double scale : {1.0, -0.5, 1e-3, 0.0}) {
      expectPlainValues<double>(doubles, {threshold, scale, 2, -1e35F});
      expectPlainValues<float>(singles, {threshold, scale, 2, -1e35F});
    }
  }
}

TEST(ConvertTest, KeepsNotANumberAndTheLargestSingle) {
  const std::vector<double> raw = {kNan, 3.4028235e38, -3.4028235e38, 0x1.fffffefp127};
  std::vector<float> values(raw.size());
  EXPECT_EQ(convert(std::span<const double>(raw), {0, 1, 0, -1e35F}, values.data()), 4);
  EXPECT_TRUE(std::isnan(values[0]));
  EXPECT_EQ(values[1], std::numeric_limits<float>::max());
  EXPECT_EQ(values[2], -std::numeric_limits<float>::max());
  EXPECT_EQ(values[3], std::numeric_limits<float>::max());
}

TEST(ConvertTest, OverflowsWhereverTheValueStands) {
  for (std::size_t at = 0; at < 9; ++at) {
    std::vector<float> raw(9, 1);
    raw[at] = 1e30F;
    std::vector<float> values(raw.size());
    EXPECT_THROW(convert(std::span<const float>(raw), {0, 1e10, 0, -1e35F}, values.data()),
                 util::RuntimeError);
    // What does not count is not scaled either.
    EXPECT_EQ(convert(std::span<const float>(raw), {1e29, 1e10, 0, -1e35F}, values.data()), 8);
    EXPECT_EQ(values[at], -1e35F);
  }
}

}  // namespace
