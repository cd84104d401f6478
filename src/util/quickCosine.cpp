#include "util/quickCosine.h"

#include <array>
#include <cmath>

#include "util/DoubleDouble.h"

namespace util {
namespace {

// Up to an angle of a quarter turn's half the next terms are below 2^-107.
constexpr int kTerms = 14;
// From here on what is left of a term beyond a double is below 2^-100.
constexpr int kFirstSmall = 8;

// A right angle, in three parts.
constexpr double kRight = 0x1.921fb54442d18p+0;
constexpr DoubleDouble kRightRest = {0x1.1a62633145c07p-54, -0x1.f1976b7ed8fbcp-110};

// More than all roundings of the sums below, as a part of the result.
constexpr double kDoubt = 0x1p-90;

// 1 / (2n + first)!
constexpr std::array<DoubleDouble, kTerms> reciprocals(int first) {
  std::array<DoubleDouble, kTerms> terms = {};
  double factorial = 1;
  for (int n = 0; n < kTerms; ++n) {
    terms[static_cast<std::size_t>(n)] = DoubleDouble::reciprocal(factorial);
    factorial *= (2 * n + 1 + first) * (2 * n + 2 + first);
  }
  return terms;
}

// The sum of (-z)^n / (2n + first)!: with z = y^2 the cosine of y, or the sine divided by y.
DoubleDouble series(DoubleDouble z, const std::array<DoubleDouble, kTerms>& terms) {
  std::size_t n = kTerms - 1;
  double small = terms[n].high;
  while (n > kFirstSmall) small = terms[--n].high - z.high * small;
  DoubleDouble sum = {small, 0.0};
  const DoubleDouble factor = {-z.high, -z.low};
  while (n > 0) sum = terms[--n] + factor * sum;
  return sum;
}

DoubleDouble cosineOf(double angle) {
  static constexpr auto kCosine = reciprocals(0), kSine = reciprocals(1);
  if (angle < kRight / 2) return series(DoubleDouble::product(angle, angle), kCosine);
  // As the sine of what is missing to a right angle: the first difference is exact.
  const DoubleDouble high = DoubleDouble::sum(kRight - angle, kRightRest.high);
  const DoubleDouble y = DoubleDouble::ordered(high.high, high.low + kRightRest.low);
  return y * series(y * y, kSine);
}

}  // namespace

std::optional<double> quickCosine(double radians) {
  const double angle = std::fabs(radians);
  if (!(angle <= 1.6)) return std::nullopt;
  const DoubleDouble cosine = cosineOf(angle);
  const double doubt = std::fabs(cosine.high) * kDoubt;
  const double least = cosine.high + (cosine.low - doubt);
  const double most = cosine.high + (cosine.low + doubt);
  if (least != most) return std::nullopt;
  return most;
}

}  // namespace util
