#include "colorkey/numberField.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes a number's text apart from its start on; what it takes is also copied, with the point
// as its separator.
class Taker {
 public:
  explicit Taker(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }
  const std::string& taken() const { return taken_; }

  std::size_t digits() {
    std::size_t count = 0;
    while (count < rest_.size() && isDigit(rest_[count])) ++count;
    take(count, rest_.substr(0, count));
    return count;
  }
  void sign() {
    if (!one("-", "-")) one("+", "");
  }
  // One of the two spellings.
  bool either(std::string_view first, std::string_view second, std::string_view copied) {
    return one(first, copied) || one(second, copied);
  }

 private:
  bool one(std::string_view what, std::string_view copied) {
    if (what.empty() || !rest_.starts_with(what)) return false;
    take(what.size(), copied);
    return true;
  }
  void take(std::size_t count, std::string_view copied) {
    taken_ += copied;
    rest_.remove_prefix(count);
  }

  std::string_view rest_;
  std::string taken_;
};

}  // namespace

std::optional<double> numberOfField(std::string_view text, std::string_view separator) {
  Taker number(withoutBlanks(text));
  number.sign();
  std::size_t digits = number.digits();
  if (number.either(separator, ".", ".")) digits += number.digits();
  if (digits == 0) return std::nullopt;
  if (number.either("e", "E", "e")) {
    number.sign();
    if (number.digits() == 0) return std::nullopt;
  }
  if (!number.atEnd()) return std::nullopt;
  const double value = util::leadingNumber(number.taken());
  try {
    static_cast<void>(util::storeSingle(value));
  } catch (const util::RuntimeError&) {
    return std::nullopt;
  }
  return value;
}

std::optional<int32_t> countOfField(std::string_view text) {
  Taker number(withoutBlanks(text));
  number.sign();
  if (number.digits() == 0 || !number.atEnd()) return std::nullopt;
  const std::string& digits = number.taken();
  int32_t value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc()) return std::nullopt;
  return value;
}

std::string fieldText(double number, std::string_view separator) {
  // Bounds come from singles: 0.1 stands there as 0.1, not with the digits of a double.
  const bool isSingle =
      std::fabs(number) <= static_cast<double>(std::numeric_limits<float>::max()) &&
      util::asDouble(static_cast<float>(number)) == number;
  std::string text =
      isSingle ? util::losslessText(static_cast<float>(number)) : util::losslessText(number);
  const std::size_t point = text.find('.');
  if (point != std::string::npos && !separator.empty()) text.replace(point, 1, separator);
  return text;
}

}  // namespace ModColor
