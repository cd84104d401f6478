#include "platform/drawableText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace platform {
namespace {

constexpr std::size_t kMostCharacters = 8192;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool isPlain(char c) { return c >= ' ' && c <= '~'; }

uint32_t byteAt(std::string_view text, std::size_t place) {
  return static_cast<unsigned char>(text[place]);
}

// A character read at the start of a text; length 0 when its bytes are no UTF-8.
struct Character {
  uint32_t code = 0;
  std::size_t length = 0;
};

Character readCharacter(std::string_view text) {
  const uint32_t lead = byteAt(text, 0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4U : lead >= 0xE0 ? 3U : 2U;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {};
  uint32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const uint32_t next = byteAt(text, i);
    if ((next & 0xC0U) != 0x80U) return {};
    code = code << 6U | (next & 0x3FU);
  }
  static constexpr uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  return code < kSmallest[length] ? Character{} : Character{code, length};
}

// Surrogates and the codes that Unicode keeps free of characters.
bool isNoCharacter(uint32_t code) {
  return code > 0x10FFFF || (code & 0xFFFFF800U) == 0xD800 || (code >= 0xFDD0 && code <= 0xFDEF) ||
         (code & 0xFFFEU) == 0xFFFE;
}

bool isControl(uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

}  // namespace

std::string drawableText(std::string_view text) {
  // No character has more than four bytes.
  text = text.substr(0, 4 * kMostCharacters);
  if (text.size() <= kMostCharacters && std::all_of(text.begin(), text.end(), isPlain)) {
    return std::string(text);
  }
  std::string drawable;
  for (std::size_t count = 0; !text.empty() && count < kMostCharacters; ++count) {
    const Character character = readCharacter(text);
    const std::size_t length = std::max<std::size_t>(character.length, 1);
    if (character.length == 0 || isNoCharacter(character.code)) {
      drawable += kReplacement;
    } else if (isControl(character.code)) {
      drawable += ' ';
    } else {
      drawable += text.substr(0, length);
    }
    text.remove_prefix(length);
  }
  return drawable;
}

}  // namespace platform
