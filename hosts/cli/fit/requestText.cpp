#include <charconv>
#include <cmath>

#include "fit/Request.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

std::vector<std::string> pieces(std::string_view text, char separator) {
  std::vector<std::string> found;
  for (;;) {
    const std::size_t end = text.find(separator);
    found.push_back(ocxStrings::trim(text.substr(0, end)));
    if (end == std::string_view::npos) return found;
    text.remove_prefix(end + 1);
  }
}

template <class Number>
std::optional<Number> readNumber(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::vector<double>> readNumbers(std::string_view text) {
  std::vector<double> numbers;
  for (const std::string& piece : pieces(text, ',')) {
    const std::optional<double> number = readNumber<double>(piece);
    if (!number || !std::isfinite(*number)) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

}  // namespace

std::optional<Box> readBox(std::string_view text) {
  const auto numbers = readNumbers(text);
  if (!numbers || numbers->size() != 4) return std::nullopt;
  Box box{(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]};
  if (box.south < -90 || box.north > 90 || box.south >= box.north) return std::nullopt;
  if (box.west < -360 || box.west > 720 || box.east < -360 || box.east > 720) return std::nullopt;
  if (box.east <= box.west) box.east += 360;
  if (box.east <= box.west || box.east - box.west > 360) return std::nullopt;
  return box;
}

std::optional<Spacing> readSpacing(std::string_view text) {
  const auto numbers = readNumbers(text);
  if (!numbers || numbers->size() > 2) return std::nullopt;
  const Spacing spacing{numbers->front(), numbers->back()};
  if (!(spacing.lon > 0) || !(spacing.lat > 0) || spacing.lon > 90 || spacing.lat > 90) {
    return std::nullopt;
  }
  return spacing;
}

std::optional<Selected> readSelected(std::string_view text) {
  const std::size_t sign = text.rfind('=');
  if (sign == std::string_view::npos || sign == 0) return std::nullopt;
  const std::optional<std::size_t> index = readNumber<std::size_t>(text.substr(sign + 1));
  if (!index || *index < 1) return std::nullopt;
  return Selected{std::string(text.substr(0, sign)), *index};
}

std::optional<Method> readMethod(std::string_view text) {
  if (text == "nearest") return Method::Nearest;
  if (text == "bilinear") return Method::Bilinear;
  return std::nullopt;
}

std::optional<std::vector<std::string>> readNames(std::string_view text) {
  std::vector<std::string> names = pieces(text, ',');
  for (const std::string& name : names) {
    if (name.empty()) return std::nullopt;
  }
  return names;
}

}  // namespace cli::fit
