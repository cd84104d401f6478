#include "util/numberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <type_traits>

namespace util {
namespace {

template <class Real>
constexpr int kGeneralDigits = std::is_same_v<Real, float> ? 7 : 15;

// A decimal number 0.d1d2d3... x 10^pointAt; zero has no digits.
struct Decimal {
  bool negative = false;
  std::string digits;  // the first and the last are not 0
  int pointAt = 0;
};

// Digits and exponent of a text such as "-1.25e+07".
Decimal decimalOf(std::string_view scientific) {
  Decimal decimal;
  decimal.negative = scientific.front() == '-';
  if (decimal.negative) scientific.remove_prefix(1);
  const std::size_t mark = scientific.find('e');
  for (const char digit : scientific.substr(0, mark)) {
    if (digit != '.') decimal.digits += digit;
  }
  const char* exponent = scientific.data() + mark + 1;
  if (*exponent == '+') ++exponent;
  int value = 0;
  std::from_chars(exponent, scientific.data() + scientific.size(), value);
  decimal.pointAt = value + 1;
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  // A zero has no sign in any text.
  if (decimal.digits.empty()) return {};
  return decimal;
}

template <class Real>
Decimal generalDecimal(Real value) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific,
                                 kGeneralDigits<Real> - 1);
  return decimalOf({text, static_cast<std::size_t>(end.ptr - text)});
}

template <class Real>
Decimal losslessDecimal(Real value) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
  return decimalOf({text, static_cast<std::size_t>(end.ptr - text)});
}

template <class Real>
std::string unusualText(Real value) {
  if (std::isnan(value)) return "nan";
  return value < 0 ? "-inf" : "inf";
}

// Digit number place of a decimal, place 1 being the first after "0.".
char digitAt(const std::string& digits, int place) {
  const bool inside = place >= 1 && static_cast<std::size_t>(place) <= digits.size();
  return inside ? digits[static_cast<std::size_t>(place - 1)] : '0';
}

std::string exponentText(int exponent) {
  std::string text = exponent < 0 ? "E-" : "E+";
  const int size = std::abs(exponent);
  if (size < 10) text += '0';
  return text + std::to_string(size);
}

std::string layOut(const Decimal& decimal, int width) {
  if (decimal.digits.empty()) return "0";
  const std::string sign = decimal.negative ? "-" : "";
  const std::string& digits = decimal.digits;
  const int exponent = decimal.pointAt - 1;
  if (exponent < -4 || exponent >= width) {
    const std::string rest = digits.size() > 1 ? "." + digits.substr(1) : "";
    return sign + digits[0] + rest + exponentText(exponent);
  }
  std::string text = sign;
  if (decimal.pointAt <= 0) text += '0';
  for (int place = 1; place <= decimal.pointAt; ++place) text += digitAt(digits, place);
  const int count = static_cast<int>(digits.size());
  if (count > decimal.pointAt) text += '.';
  for (int place = decimal.pointAt + 1; place <= count; ++place) text += digitAt(digits, place);
  return text;
}

// Keeps so many digits behind the point, rounded half away from zero.
Decimal rounded(Decimal decimal, int decimals) {
  const int kept = decimal.pointAt + decimals;
  if (kept >= static_cast<int>(decimal.digits.size())) return decimal;
  const bool up = digitAt(decimal.digits, kept + 1) >= '5';
  decimal.digits.resize(kept > 0 ? static_cast<std::size_t>(kept) : 0);
  if (kept >= 0 && up) {
    int place = kept;
    while (place > 0 && decimal.digits[static_cast<std::size_t>(place - 1)] == '9') --place;
    decimal.digits.resize(static_cast<std::size_t>(place));
    if (place > 0) {
      ++decimal.digits[static_cast<std::size_t>(place - 1)];
    } else {
      decimal.digits = "1";
      ++decimal.pointAt;
    }
  }
  if (decimal.digits.find_first_not_of('0') == std::string::npos) return {};
  return decimal;
}

struct Pattern {
  int wholeDigits = 0;  // printed at least
  int decimals = 0;
  bool point = false;
  std::string_view literal;
};

Pattern readPattern(std::string_view text) {
  Pattern pattern;
  std::size_t at = 0;
  for (; at < text.size() && (text[at] == '#' || text[at] == '0'); ++at) {
    if (text[at] == '0') ++pattern.wholeDigits;
  }
  if (at < text.size() && text[at] == '.') {
    pattern.point = true;
    for (++at; at < text.size() && text[at] == '0'; ++at) ++pattern.decimals;
  }
  pattern.literal = text.substr(at);
  return pattern;
}

template <class Real>
std::string byPattern(Real value, std::string_view patternOf) {
  const Pattern pattern = readPattern(patternOf);
  if (!std::isfinite(value)) return unusualText(value) + std::string(pattern.literal);
  const Decimal decimal = rounded(generalDecimal(value), pattern.decimals);
  std::string text = decimal.negative ? "-" : "";
  for (int missing = pattern.wholeDigits - std::max(decimal.pointAt, 0); missing > 0; --missing) {
    text += '0';
  }
  for (int place = 1; place <= decimal.pointAt; ++place) text += digitAt(decimal.digits, place);
  if (pattern.point) text += '.';
  for (int place = 1; place <= pattern.decimals; ++place) {
    text += digitAt(decimal.digits, decimal.pointAt + place);
  }
  return text + std::string(pattern.literal);
}

template <class Real>
std::string general(Real value) {
  if (!std::isfinite(value)) return unusualText(value);
  return layOut(generalDecimal(value), kGeneralDigits<Real>);
}

template <class Real>
std::string lossless(Real value) {
  if (!std::isfinite(value)) return unusualText(value);
  return layOut(losslessDecimal(value), kGeneralDigits<Real>);
}

template <class Real>
std::string signReserving(Real value) {
  return (value < 0 ? "" : " ") + general(value);
}

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

// The value of digits that no double can hold: too large, or too small to differ from 0.
double beyondDouble(std::string_view digits) {
  const std::size_t mark = digits.find('e');
  const std::string_view mantissa = digits.substr(0, mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  int64_t magnitude = static_cast<int64_t>(point) - static_cast<int64_t>(first);
  if (mark != std::string_view::npos) {
    const char* start = digits.data() + mark + 1;
    if (*start == '+') ++start;
    // No text has so many digits that they could make up for an exponent of this size.
    constexpr int64_t kBeyond = 1'000'000'000'000;
    int64_t exponent = 0;
    const auto read = std::from_chars(start, digits.data() + digits.size(), exponent);
    if (read.ec != std::errc()) exponent = *start == '-' ? -kBeyond : kBeyond;
    magnitude += std::clamp(exponent, -kBeyond, kBeyond);
  }
  return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace

std::string generalText(float value) { return general(value); }
std::string generalText(double value) { return general(value); }
std::string generalText(int32_t value) { return std::to_string(value); }

std::string losslessText(float value) { return lossless(value); }
std::string losslessText(double value) { return lossless(value); }

std::string signReservingText(float value) { return signReserving(value); }
std::string signReservingText(double value) { return signReserving(value); }

std::string patternText(float value, std::string_view pattern) { return byPattern(value, pattern); }
std::string patternText(double value, std::string_view pattern) {
  return byPattern(value, pattern);
}

double leadingNumber(std::string_view text) {
  std::size_t at = std::min(text.find_first_not_of(' '), text.size());
  const auto here = [&](std::size_t place) { return place < text.size() ? text[place] : '\0'; };
  const bool negative = here(at) == '-';
  if (negative || here(at) == '+') ++at;

  std::string digits;
  bool number = false;
  const auto takeDigits = [&] {
    for (; isDigit(here(at)); ++at) digits += text[at];
  };
  takeDigits();
  number = !digits.empty();
  if (here(at) == '.') {
    ++at;
    if (digits.empty()) digits = "0";
    digits += '.';
    number = number || isDigit(here(at));
    takeDigits();
  }
  if (!number) return 0.0;

  const char letter = here(at);
  if (letter == 'e' || letter == 'E' || letter == 'd' || letter == 'D') {
    const char sign = here(at + 1);
    const bool hasSign = sign == '+' || sign == '-';
    if (isDigit(here(at + (hasSign ? 2 : 1)))) {
      digits += 'e';
      if (hasSign) digits += sign;
      at += hasSign ? 2 : 1;
      takeDigits();
    }
  }
  double value = 0.0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc()) value = beyondDouble(digits);
  return negative ? -value : value;
}

}  // namespace util
