#pragma once

namespace util {

// A number as the unevaluated sum of two doubles, the second at most half a unit in the last place
// of the first: some 106 bits. The operations are the classic error-free ones, from sums and
// products of doubles alone, so that every build that rounds to nearest has the same bits. For
// numbers whose products neither overflow nor underflow.
struct DoubleDouble {
  double high = 0, low = 0;

  // a + b exactly.
  static constexpr DoubleDouble sum(double a, double b) {
    const double high = a + b;
    const double fromB = high - a;
    return {high, (a - (high - fromB)) + (b - fromB)};
  }
  // The same, where a is not the smaller one in magnitude.
  static constexpr DoubleDouble ordered(double a, double b) {
    const double high = a + b;
    return {high, b - (high - a)};
  }
  // a b exactly: by halves of 26 bits, whose products are doubles.
  static constexpr DoubleDouble product(double a, double b) {
    const double high = a * b;
    const double aHigh = upperHalf(a), aLow = a - aHigh;
    const double bHigh = upperHalf(b), bLow = b - bHigh;
    return {high, ((aHigh * bHigh - high) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
  }
  // 1 / n within 2^-105.
  static constexpr DoubleDouble reciprocal(double n) {
    const double high = 1.0 / n;
    const DoubleDouble whole = product(high, n);
    return ordered(high, ((1.0 - whole.high) - whole.low) / n);
  }

 private:
  static constexpr double upperHalf(double a) {
    const double shifted = 134217729.0 * a;  // 2^27 + 1
    return shifted - (shifted - a);
  }
};

constexpr DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble high = DoubleDouble::sum(a.high, b.high);
  const DoubleDouble low = DoubleDouble::sum(a.low, b.low);
  const DoubleDouble half = DoubleDouble::ordered(high.high, high.low + low.high);
  return DoubleDouble::ordered(half.high, half.low + low.low);
}

constexpr DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble high = DoubleDouble::product(a.high, b.high);
  return DoubleDouble::ordered(high.high, high.low + (a.high * b.low + a.low * b.high));
}

}  // namespace util
