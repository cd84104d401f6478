#include "util/quickCosine.h"

#include <gtest/gtest.h>

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cmath>
#include <random>

#include "support/specialValues.h"

namespace {

double throughQuadruplePrecision(double radians) {
  using boost::multiprecision::cpp_bin_float_quad;
  return boost::multiprecision::cos(cpp_bin_float_quad(radians)).convert_to<double>();
}

void expectNearest(double radians) {
  EXPECT_EQ(util::quickCosine(radians), throughQuadruplePrecision(radians)) << radians;
}

TEST(QuickCosine, IsTheNearestDouble) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> angles(-1.6, 1.6);
  for (int n = 0; n < 2000; ++n) expectNearest(angles(random));
}

TEST(QuickCosine, IsTheNearestDoubleForLatitudes) {
  for (int n = -1800; n <= 1800; n += 5) expectNearest(n / 20.0 * (3.1415926 / 180));
}

TEST(QuickCosine, IsTheNearestDoubleAtItsLimits) {
  constexpr double kRight = 0x1.921fb54442d18p+0;
  for (const double place : {0.0, kRight / 2, kRight, 1.6}) {
    double below = place, above = place;
    for (int n = 0; n < 50; ++n) {
      if (above <= 1.6) expectNearest(above);
      expectNearest(below);
      expectNearest(-below);
      above = std::nextafter(above, 2.0);
      below = std::nextafter(below, -1.0);
    }
  }
  for (int exponent = -1074; exponent < 0; exponent += 7) expectNearest(std::ldexp(1.5, exponent));
}

TEST(QuickCosine, LeavesOtherAnglesToOthers) {
  for (const double angle : {1.6000000000000003, -2.0, 1e300, support::kInfinity, support::kNan}) {
    EXPECT_EQ(util::quickCosine(angle), std::nullopt) << angle;
  }
}

}  // namespace
