#include "util/exactMath.h"

#include <boost/multiprecision/cpp_bin_float.hpp>
#include <charconv>
#include <cmath>
#include <limits>

#include "util/quickCosine.h"

namespace util {
namespace {

namespace mp = boost::multiprecision;
using Quad = mp::cpp_bin_float_quad;

// Wide enough to hold any double next to the part of it that is left after whole turns.
using Wide = mp::number<mp::cpp_bin_float<1280, mp::digit_base_2>, mp::et_off>;

// The angle within one turn; beyond some thousand turns quadruple precision alone would lose
// the digits that count.
Quad withinATurn(double radians) {
  if (std::fabs(radians) < 1e6) return Quad(radians);
  static const Wide turn = 8 * mp::atan(Wide(1));
  return Quad(mp::fmod(Wide(radians), turn));
}

}  // namespace

double cosine(double radians) {
  if (const auto quick = quickCosine(radians)) return *quick;
  if (!std::isfinite(radians)) return std::numeric_limits<double>::quiet_NaN();
  return mp::cos(withinATurn(radians)).convert_to<double>();
}

double naturalLog(double value) {
  if (std::isnan(value) || value < 0.0) return std::numeric_limits<double>::quiet_NaN();
  if (value == 0.0) return -std::numeric_limits<double>::infinity();
  if (std::isinf(value)) return value;
  return mp::log(Quad(value)).convert_to<double>();
}

double powerOfTen(int exponent) {
  char text[16] = {'1', 'e'};
  const auto written = std::to_chars(text + 2, text + sizeof text, exponent);
  double power = 0.0;
  const auto read = std::from_chars(text, written.ptr, power);
  if (read.ec == std::errc()) return power;
  return exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace util
