#include "colorkey/numberField.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/specialValues.h"

using ModColor::countOfField;
using ModColor::fieldText;
using ModColor::numberOfField;

namespace {

using support::kInfinity;
constexpr int32_t kLargest = std::numeric_limits<int32_t>::max();
constexpr int32_t kSmallest = std::numeric_limits<int32_t>::min();

std::string zeros(std::size_t count) { return std::string(count, '0'); }

TEST(NumberField, TakesNumbersWithThePoint) {
  const std::string longest = "0." + zeros(5000) + "1e5001";
  const struct {
    std::string text;
    double number;
  } table[] = {
      {"0", 0},
      {"12.5", 12.5},
      {"-3.25", -3.25},
      {"+.5", 0.5},
      {"5.", 5},
      {"-.5e-1", -0.05},
      {"007", 7},
      {"1E+20", 1E20},
      {"1e3", 1000},
      {"  2 ", 2},
      {"\t2\t", 2},
      {"33.3333333333333", 33.3333333333333},
      {"3.4028234663852886e38", 3.4028234663852886e38},
      {"-3.4028234663852886e38", -3.4028234663852886e38},
      {"3.40282356e38", 3.40282356e38},
      {"1e-60", 1e-60},
      {"1e-400", 0},
      {"0e99999999999999999999", 0},
      {"1" + zeros(5000) + "e-5000", 1},
      {longest, 1},
  };
  for (const auto& [text, number] : table) {
    EXPECT_EQ(numberOfField(text, "."), number) << text;
    EXPECT_EQ(numberOfField(text, ","), number) << text << ", the point is always taken";
  }
}

TEST(NumberField, TakesTheUsersSeparator) {
  EXPECT_EQ(numberOfField("12,5", ","), 12.5);
  EXPECT_EQ(numberOfField(",5", ","), 0.5);
  EXPECT_EQ(numberOfField("-1,5e3", ","), -1500);
  EXPECT_EQ(numberOfField("1\xD9\xAB"
                          "5",
                          "\xD9\xAB"),
            1.5);
  EXPECT_EQ(numberOfField("1.5", ""), 1.5);
  EXPECT_EQ(numberOfField("12,5", "."), std::nullopt);
  EXPECT_EQ(numberOfField("12,5", ""), std::nullopt);
  EXPECT_EQ(numberOfField("1.000,5", ","), std::nullopt) << "no digit groups";
  EXPECT_EQ(numberOfField("1,000.5", "."), std::nullopt);
  EXPECT_EQ(numberOfField("1,,5", ","), std::nullopt);
}

TEST(NumberField, RefusesWhatIsNoNumberOfASingle) {
  for (const std::string& text : {std::string(),
                                  std::string("  "),
                                  std::string("-"),
                                  std::string("+"),
                                  std::string("."),
                                  std::string(","),
                                  std::string("-."),
                                  std::string("e5"),
                                  std::string(".e5"),
                                  std::string("1e"),
                                  std::string("1e+"),
                                  std::string("1e1.5"),
                                  std::string("1 2"),
                                  std::string("- 1"),
                                  std::string("--1"),
                                  std::string("+-1"),
                                  std::string("1-"),
                                  std::string("1.2.3"),
                                  std::string("1d3"),
                                  std::string("0x10"),
                                  std::string("12px"),
                                  std::string("nan"),
                                  std::string("inf"),
                                  std::string("-inf"),
                                  std::string("infinity"),
                                  std::string("1e39"),
                                  std::string("-1e39"),
                                  std::string("3.4028236e38"),
                                  std::string("1e400"),
                                  std::string("1e99999999999999999999"),
                                  "1" + zeros(5000),
                                  std::string("\xD9\xA1\xD9\xA2"),
                                  std::string("\xE2\x88\x92"
                                              "1"),
                                  std::string("1\0", 2),
                                  std::string("\xFF")}) {
    EXPECT_EQ(numberOfField(text, ","), std::nullopt) << text;
  }
}

TEST(NumberField, TakesWholeNumbersAsCounts) {
  const struct {
    std::string text;
    std::optional<int32_t> count;
  } table[] = {
      {"10", 10},
      {" 10 ", 10},
      {"+4", 4},
      {"-3", -3},
      {"-0", 0},
      {zeros(5000) + "7", 7},
      {"2147483647", kLargest},
      {"-2147483648", kSmallest},
      {"2147483648", std::nullopt},
      {"-2147483649", std::nullopt},
      {"1" + zeros(5000), std::nullopt},
      {"", std::nullopt},
      {" ", std::nullopt},
      {"-", std::nullopt},
      {"+-1", std::nullopt},
      {"1 2", std::nullopt},
      {"1.", std::nullopt},
      {"1.5", std::nullopt},
      {"1,5", std::nullopt},
      {"1e3", std::nullopt},
      {"ten", std::nullopt},
      {"\xD9\xA1", std::nullopt},
  };
  for (const auto& [text, count] : table) EXPECT_EQ(countOfField(text), count) << text;
}

TEST(NumberField, ShowsTheShortestTextThatReadsBack) {
  const struct {
    double number;
    const char* text;
  } table[] = {
      {0, "0"},
      {12.5, "12,5"},
      {-0.25, "-0,25"},
      {static_cast<double>(0.1F), "0,1"},
      {0.1, "0,1"},
      {100.0 / 3, "33,333333333333336"},
      {1e20, "1E+20"},
      {static_cast<double>(1e20F), "1E+20"},
      {static_cast<double>(std::numeric_limits<float>::max()), "3,4028235E+38"},
      {1e300, "1E+300"},
      {std::numeric_limits<double>::max(), "1,7976931348623157E+308"},
      {kInfinity, "inf"},
      {-kInfinity, "-inf"},
      {std::numeric_limits<double>::quiet_NaN(), "nan"},
  };
  for (const auto& [number, text] : table) EXPECT_EQ(fieldText(number, ","), text);
  EXPECT_EQ(fieldText(1.5, "."), "1.5");
  EXPECT_EQ(fieldText(1.5, ""), "1.5");
  EXPECT_EQ(fieldText(1.5, "\xD9\xAB"),
            "1\xD9\xAB"
            "5");
}

TEST(NumberField, ReadsBackWhatItShows) {
  for (const double number : {0.0, 0.1, 1.0 / 3, -12345.678, 1e-30, 2.5e37, 16777217.0}) {
    EXPECT_EQ(numberOfField(fieldText(number, ","), ","), number);
    const float single = static_cast<float>(number);
    const auto back = numberOfField(fieldText(static_cast<double>(single), "."), ".");
    ASSERT_TRUE(back);
    EXPECT_EQ(static_cast<float>(*back), single);
  }
}

}  // namespace
