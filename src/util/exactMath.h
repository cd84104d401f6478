#pragma once

namespace util {

// Transcendental functions whose results do not depend on the platform's mathematics library:
// evaluated in quadruple precision and rounded once to double, so that sections, labels and
// tick steps are the same to the last bit in every build.
double cosine(double radians);    // NaN for NaN and infinities
double naturalLog(double value);  // value > 0; -infinity at 0, NaN below
double powerOfTen(int exponent);  // the double nearest to 10^exponent

}  // namespace util
