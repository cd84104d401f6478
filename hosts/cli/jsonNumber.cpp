#include "jsonNumber.h"

#include <charconv>
#include <string>

#include "util/numberText.h"

namespace cli {

double asWritten(float value) {
  const std::string text = util::losslessText(value);
  double number = static_cast<double>(value);
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace cli
