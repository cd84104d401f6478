#include "model/degrees.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace form {
namespace {

constexpr wchar_t kDegreeSign = 0x00B0, kMinusSign = 0x2212, kNoBreakBlank = 0x00A0;

bool isBlank(wchar_t letter) {
  return letter == L' ' || letter == L'\t' || letter == L'\r' || letter == kNoBreakBlank;
}

// Takes a letter of the compass off the end: its sign, 0 when there is none.
int takeCompass(std::wstring_view& text) {
  if (text.empty()) return 0;
  const wchar_t last = text.back();
  const bool plus = last == L'E' || last == L'e' || last == L'N' || last == L'n';
  const bool minus = last == L'W' || last == L'w' || last == L'S' || last == L's';
  if (!plus && !minus) return 0;
  text = trimmed(text.substr(0, text.size() - 1));
  return plus ? 1 : -1;
}

}  // namespace

std::wstring_view trimmed(std::wstring_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::optional<double> readDegrees(std::wstring_view text) {
  text = trimmed(text);
  const int compass = takeCompass(text);
  if (!text.empty() && text.back() == kDegreeSign) text = trimmed(text.substr(0, text.size() - 1));
  std::string plain;
  for (const wchar_t letter : text) {
    if (letter == L',') {
      plain += '.';
    } else if (letter == kMinusSign) {
      plain += '-';
    } else if (letter < 0x80) {
      plain += static_cast<char>(letter);
    } else {
      return std::nullopt;
    }
  }
  if (plain.starts_with("+-")) return std::nullopt;
  if (plain.starts_with('-') && compass != 0) return std::nullopt;  // west of where?
  if (plain.starts_with('+')) plain.erase(0, 1);
  double value = 0;
  const char* const end = plain.data() + plain.size();
  const auto [stop, error] = std::from_chars(plain.data(), end, value);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return compass < 0 ? -value : value;
}

std::wstring writeDegrees(double degrees) {
  char digits[64] = {};
  std::snprintf(digits, sizeof digits, "%.6f", degrees);
  std::string text = digits;
  if (const std::size_t point = text.find('.'); point != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
  }
  if (text == "-0") text = "0";
  return {text.begin(), text.end()};
}

}  // namespace form
