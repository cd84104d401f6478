#include "colorkey/xmlCharacters.h"

#include <algorithm>
#include <array>

namespace ModColor {
namespace {

struct Range {
  uint32_t first, last;
};

constexpr std::array kNameStarts = {
    Range{':', ':'},       Range{'A', 'Z'},       Range{'_', '_'},       Range{'a', 'z'},
    Range{0xC0, 0xD6},     Range{0xD8, 0xF6},     Range{0xF8, 0x2FF},    Range{0x370, 0x37D},
    Range{0x37F, 0x1FFF},  Range{0x200C, 0x200D}, Range{0x2070, 0x218F}, Range{0x2C00, 0x2FEF},
    Range{0x3001, 0xD7FF}, Range{0xF900, 0xFDCF}, Range{0xFDF0, 0xFFFD}, Range{0x10000, 0xEFFFF}};
constexpr std::array kOnlyWithinNames = {Range{'-', '.'}, Range{'0', '9'}, Range{0xB7, 0xB7},
                                         Range{0x300, 0x36F}, Range{0x203F, 0x2040}};

bool isIn(const auto& ranges, uint32_t code) {
  return std::ranges::any_of(
      ranges, [=](const Range& range) { return range.first <= code && code <= range.last; });
}

}  // namespace

void malformed(const std::string& why) {
  throw KewMalformed("The file is no well-formed XML document: " + why);
}

bool isXmlCharacter(uint32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code < 0xD800 || (code >= 0xE000 && code < 0xFFFE) || (code >= 0x10000 && code < 0x110000);
}

bool isXmlNameStart(uint32_t code) { return isIn(kNameStarts, code); }

bool isXmlNameCharacter(uint32_t code) {
  return isIn(kNameStarts, code) || isIn(kOnlyWithinNames, code);
}

uint32_t utf8At(std::string_view text, std::size_t at, std::size_t& length) {
  const auto byteAt = [=](std::size_t place) -> uint32_t {
    return static_cast<uint8_t>(text[place]);
  };
  const uint32_t lead = byteAt(at);
  length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length == 1) return lead;
  if (lead < 0xC2 || lead > 0xF4 || length > text.size() - at) malformed("bytes that are no UTF-8");
  uint32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const uint32_t next = byteAt(at + i);
    if ((next & 0xC0) != 0x80) malformed("bytes that are no UTF-8");
    code = code << 6 | (next & 0x3F);
  }
  constexpr std::array<uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  if (code < kLeast[length]) malformed("bytes that are no UTF-8");
  return code;
}

void appendUtf8(std::string& text, uint32_t code) {
  if (!isXmlCharacter(code)) malformed("a character that XML does not allow");
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  const int rest = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  constexpr std::array<uint32_t, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(kLead[static_cast<std::size_t>(rest)] | code >> 6 * rest);
  for (int part = rest - 1; part >= 0; --part) {
    text += static_cast<char>(0x80 | (code >> 6 * part & 0x3F));
  }
}

}  // namespace ModColor
