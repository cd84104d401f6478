#include "framePattern.h"

namespace cli {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The least number of digits when the text begins with what follows a percent sign in %d or
// %0Nd; taken off the text.
std::optional<std::size_t> takeNumber(std::string_view& text) {
  std::size_t digits = 0, at = 0;
  if (text.starts_with('0')) {
    for (at = 1; at < text.size() && isDigit(text[at]) && at <= 2; ++at) {
      digits = digits * 10 + static_cast<std::size_t>(text[at] - '0');
    }
    if (digits < 1) return std::nullopt;
  }
  if (at >= text.size() || text[at] != 'd') return std::nullopt;
  text.remove_prefix(at + 1);
  return digits > 0 ? digits : 1;
}

}  // namespace

std::optional<FramePattern> FramePattern::read(std::string_view text) {
  FramePattern pattern;
  bool numbered = false;
  while (!text.empty()) {
    std::string& part = numbered ? pattern.after_ : pattern.before_;
    const char c = text.front();
    text.remove_prefix(1);
    if (c != '%') {
      part += c;
    } else if (text.starts_with('%')) {
      part += '%';
      text.remove_prefix(1);
    } else {
      const std::optional<std::size_t> digits = takeNumber(text);
      if (!digits || numbered) return std::nullopt;
      pattern.digits_ = *digits;
      numbered = true;
    }
  }
  if (!numbered) return std::nullopt;
  return pattern;
}

std::string FramePattern::name(int32_t number) const {
  const std::string digits = std::to_string(number);
  const std::size_t zeros = digits.size() < digits_ ? digits_ - digits.size() : 0;
  return before_ + std::string(zeros, '0') + digits + after_;
}

}  // namespace cli
