#include "util/numberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/specialValues.h"

namespace {

using util::generalText;
using util::losslessText;
using util::patternText;
using util::signReservingText;

using support::kFloatInfinity;
using support::kNan;

TEST(NumberText, WritesSinglesInThreeForms) {
  const struct {
    float value;
    const char *general, *lossless, *signReserving;
  } cases[] = {
      {0.0F, "0", "0", " 0"},
      {-0.0F, "0", "0", " 0"},
      {0.5F, "0.5", "0.5", " 0.5"},
      {-0.25F, "-0.25", "-0.25", "-0.25"},
      {12.5F, "12.5", "12.5", " 12.5"},
      {100.0F, "100", "100", " 100"},
      {9999999.0F, "9999999", "9999999", " 9999999"},
      {1E+07F, "1E+07", "1E+07", " 1E+07"},
      {1.2345678E+07F, "1.234568E+07", "1.2345678E+07", " 1.234568E+07"},
      {1E+20F, "1E+20", "1E+20", " 1E+20"},
      {1E-04F, "0.0001", "0.0001", " 0.0001"},
      {1E-05F, "1E-05", "1E-05", " 1E-05"},
      {-1.5E-05F, "-1.5E-05", "-1.5E-05", "-1.5E-05"},
      {0.3F, "0.3", "0.3", " 0.3"},
      {0.90000004F, "0.9", "0.90000004", " 0.9"},
      {3.1415927F, "3.141593", "3.1415927", " 3.141593"},
      {1234.5677F, "1234.568", "1234.5677", " 1234.568"},
      {9999999.9F, "1E+07", "1E+07", " 1E+07"},
      {kFloatInfinity, "inf", "inf", " inf"},
      {-kFloatInfinity, "-inf", "-inf", "-inf"},
      {static_cast<float>(kNan), "nan", "nan", " nan"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(generalText(c.value), c.general);
    EXPECT_EQ(losslessText(c.value), c.lossless);
    EXPECT_EQ(signReservingText(c.value), c.signReserving);
  }
}

TEST(NumberText, WritesDoublesWithFifteenDigits) {
  const struct {
    double value;
    const char *general, *lossless;
  } cases[] = {
      {0.1, "0.1", "0.1"},
      {0.1 + 0.2, "0.3", "0.30000000000000004"},
      {1.0 / 3.0, "0.333333333333333", "0.3333333333333333"},
      {1e14, "100000000000000", "100000000000000"},
      {1e15, "1E+15", "1E+15"},
      {-123456.75, "-123456.75", "-123456.75"},
      {1e300, "1E+300", "1E+300"},
      {5e-324, "4.94065645841247E-324", "5E-324"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(generalText(c.value), c.general);
    EXPECT_EQ(losslessText(c.value), c.lossless);
  }
  EXPECT_EQ(signReservingText(2.5), " 2.5");
  EXPECT_EQ(signReservingText(-2.5), "-2.5");
}

TEST(NumberText, WritesLongs) {
  EXPECT_EQ(generalText(int32_t{0}), "0");
  EXPECT_EQ(generalText(std::numeric_limits<int32_t>::min()), "-2147483648");
}

TEST(NumberText, LosslessTextReadsBackToTheSameNumber) {
  for (const double value :
       {0.1, 1e20, -9.87654321e-17, 16777217.0, 5e-324, 1.7976931348623157e308}) {
    EXPECT_EQ(util::leadingNumber(losslessText(value)), value);
  }
  for (const float value : {0.1F, 0.90000004F, 1e20F, 16777216.0F, -3.25F, 1e-45F}) {
    EXPECT_EQ(static_cast<float>(util::leadingNumber(losslessText(value))), value);
  }
}

TEST(PatternText, RoundsGeneralDigitsHalfAwayFromZero) {
  const struct {
    float value;
    const char *pattern, *text;
  } cases[] = {
      {12.5F, "#.00E/", "12.50E/"},
      {0.25F, "#.00S", ".25S"},
      {0.0F, "#.00W/", ".00W/"},
      {350.0F, "#.00E/", "350.00E/"},
      {89.999F, "#.00S", "90.00S"},
      {0.004F, "#.00E/", ".00E/"},
      {0.005F, "#.00N", ".01N"},
      {179.999F, "#.00E/", "180.00E/"},
      {0.125F, "#.00N", ".13N"},
      {2.675F, "#.00E/", "2.68E/"},
      {1.005F, "#.00S", "1.01S"},
      {-0.001F, "#.00", ".00"},
      {-0.125F, "#.00", "-.13"},
      {5.57F, "#0.00", "5.57"},
      {28.7F, "#0.00", "28.70"},
      {0.0F, "#0.00", "0.00"},
      {0.05F, "#0.0", "0.1"},
      {0.25F, "#0.0", "0.3"},
      {2.9995F, "#0.0", "3.0"},
      {0.001F, "#0.0", "0.0"},
      {0.4F, "#0", "0"},
      {0.5F, "#0", "1"},
      {-0.5F, "#0", "-1"},
      {-0.4F, "#0", "0"},
      {9.96F, "#0.0", "10.0"},
      {999.999F, "#.00", "1000.00"},
      {1e20F, "#0.0", "100000000000000000000.0"},
      {1e-30F, "#0.00", "0.00"},
      {7.0F, "000", "007"},
      {0.95F, "#0", "1"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(patternText(c.value, c.pattern), c.text) << c.value << " by " << c.pattern;
  }
}

TEST(PatternText, TakesDoublesWithTheirOwnDigits) {
  EXPECT_EQ(patternText(2.675, "#.00"), "2.68");
  EXPECT_EQ(patternText(-1.005, "#.00"), "-1.01");
  EXPECT_EQ(patternText(123456789.125, "#.00"), "123456789.13");
  EXPECT_EQ(patternText(kNan, "#.00E"), "nanE");
  EXPECT_EQ(patternText(-std::numeric_limits<double>::infinity(), "#0"), "-inf");
}

TEST(LeadingNumber, StopsAtTheFirstOtherCharacter) {
  const std::pair<const char*, double> cases[] = {{"12.5", 12.5},
                                                  {"  -3.25abc", -3.25},
                                                  {"1.5E-2", 0.015},
                                                  {".5", 0.5},
                                                  {"-.5", -0.5},
                                                  {"1 2", 1},
                                                  {"abc", 0},
                                                  {"", 0},
                                                  {"1e", 1},
                                                  {"+7", 7},
                                                  {"1e+", 1},
                                                  {"5.", 5},
                                                  {".", 0},
                                                  {"-", 0},
                                                  {"+-1", 0},
                                                  {"1d2", 100},
                                                  {"1D+2", 100},
                                                  {"1,5", 1},
                                                  {"1.2.3", 1.2},
                                                  {"1e2e3", 100},
                                                  {"0x10", 0},
                                                  {"inf", 0},
                                                  {"nan", 0},
                                                  {"\t1", 0},
                                                  {"- 1", 0},
                                                  {"0.01", 0.01},
                                                  {"1E+20", 1e20},
                                                  {"1e-400", 0},
                                                  {"0e999999999999999999999", 0},
                                                  {"1e-999999999999999999999", 0}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(util::leadingNumber(text), expected) << "[" << text << "]";
  }
}

TEST(LeadingNumber, AnswersInfinityBeyondTheDoubleRange) {
  EXPECT_EQ(util::leadingNumber("1e400"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(util::leadingNumber("-1e999999999999999999999"),
            -std::numeric_limits<double>::infinity());
  // Exponents at the ends of 64 bits.
  EXPECT_EQ(util::leadingNumber("5e9223372036854775807"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(util::leadingNumber("0.05e-9223372036854775808"), 0.0);
  EXPECT_EQ(util::leadingNumber("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_EQ(util::leadingNumber(std::string(400, '9') + ".0"),
            std::numeric_limits<double>::infinity());
}

}  // namespace
