#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace util {

// Texts of numbers. The decimal separator is always "." whatever the locale.

// General text: at most 7 significant digits of a single, 15 of a double; "0.5", "-0.25";
// exponent form such as 1E+07 or 1E-05 when the decimal exponent is below -4 or at least
// 7 (single) or 15 (double). Not-a-number is "nan", infinities are "inf" and "-inf".
std::string generalText(float value);
std::string generalText(double value);
std::string generalText(int32_t value);

// Lossless text: the same layout with the fewest digits that read back to the same value.
std::string losslessText(float value);
std::string losslessText(double value);

// General text with one blank before a value that is not negative.
std::string signReservingText(float value);
std::string signReservingText(double value);

// A number pattern: "#" and "0" before the point, "0" after it, and literal text behind
// ("#.00W/", "#0.0"). The general digits of the value are rounded half away from zero to the
// pattern's decimals; "#.00" prints no zero before the point; a value that rounds to zero
// carries no minus sign.
std::string patternText(float value, std::string_view pattern);
std::string patternText(double value, std::string_view pattern);

// The number at the start of a text: leading blanks skipped, optional sign, digits with "."
// only, optional exponent (e, E, d or D, taken only when a digit follows). It stops at the
// first other character; without a number the result is 0.
double leadingNumber(std::string_view text);

}  // namespace util
