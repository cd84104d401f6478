#include "platform/texts.h"

#include <array>
#include <cstdint>

namespace platform {
namespace {

// What Windows-1252 has at 0x80..0x9F; the five bytes it leaves open stay control characters.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The length of the well-formed sequence at the start of a text; 0 when there is none: no
// overlong form, no surrogate, nothing above U+10FFFF.
std::size_t sequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t at) { return static_cast<uint8_t>(text[at]); };
  const uint8_t lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  const uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (byte(1) < low || byte(1) > high) return 0;
  for (std::size_t at = 2; at < length; ++at) {
    if (byte(at) < 0x80 || byte(at) > 0xBF) return 0;
  }
  return length;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

// Only for the characters of a code page, all below U+10000.
void append(std::string& text, char16_t character) {
  const uint32_t code = character;
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
  }
  text += static_cast<char>(0x80 | (code & 0x3F));
}

}  // namespace

std::string textToUtf8(std::string_view text) {
  if (isUtf8(text)) return std::string(text);
  std::string result;
  for (const char letter : text) {
    const auto byte = static_cast<uint8_t>(letter);
    append(result, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte);
  }
  return result;
}

}  // namespace platform
