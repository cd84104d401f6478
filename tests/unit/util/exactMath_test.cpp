#include "util/exactMath.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/specialValues.h"

namespace {

using support::kInfinity;
using support::kNan;

// The expected values come from decimal arithmetic with several hundred digits.
TEST(ExactMath, CosineIsTheNearestDouble) {
  const std::pair<double, double> cases[] = {{0.0, 1.0},
                                             {5e-324, 1.0},
                                             {1.0, 0.5403023058681398},
                                             {1.0471975511965976, 0.5000000000000001},
                                             {1.5707963267948966, 6.123233995736766e-17},
                                             {3.141592653589793, -1.0},
                                             {-2.5, -0.8011436155469337},
                                             {999999.5, 0.654281508650351},
                                             {1e6, 0.9367521275331447},
                                             {1e22, 0.523214785395139},
                                             {1.7976931348623157e308, -0.9999876894265599}};
  for (const auto& [angle, expected] : cases) EXPECT_EQ(util::cosine(angle), expected) << angle;
  for (const double angle : {kNan, kInfinity, -kInfinity})
    EXPECT_TRUE(std::isnan(util::cosine(angle)));
}

TEST(ExactMath, LogarithmIsTheNearestDouble) {
  const std::pair<double, double> cases[] = {{1.0, 0.0},
                                             {0.01, -4.605170185988091},
                                             {10.0, 2.302585092994046},
                                             {1e6, 13.815510557964274},
                                             {0.0009765625, -6.931471805599453},
                                             {1.0000000000000002, 2.2204460492503128e-16},
                                             {0.10000000149011612, -2.3025850780928847},
                                             {1.7976931348623157e308, 709.782712893384},
                                             {5e-324, -744.4400719213812},
                                             {0.0, -kInfinity},
                                             {kInfinity, kInfinity}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(util::naturalLog(value), expected) << value;
  EXPECT_TRUE(std::isnan(util::naturalLog(-1.0)));
  EXPECT_TRUE(std::isnan(util::naturalLog(kNan)));
}

TEST(ExactMath, PowersOfTenAreTheNearestDoubles) {
  const std::pair<int, double> cases[] = {
      {0, 1.0},   {1, 10.0},    {-1, 0.1},      {-2, 0.01},     {22, 1e22},       {23, 1e23},
      {-5, 1e-5}, {308, 1e308}, {-308, 1e-308}, {-320, 1e-320}, {309, kInfinity}, {-400, 0.0}};
  for (const auto& [exponent, expected] : cases) {
    EXPECT_EQ(util::powerOfTen(exponent), expected) << exponent;
  }
}

}  // namespace
