#include "colorkey/kewText.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "util/ocxStrings.h"

namespace ModColor {
namespace {

[[noreturn]] void malformed(const char* why) {
  throw KewMalformed(std::string("The file is no well-formed XML document: ") + why);
}

// What XML counts as a character.
bool isCharacter(uint32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code < 0xD800 || (code >= 0xE000 && code < 0xFFFE) || (code >= 0x10000 && code < 0x110000);
}

void append(std::string& text, uint32_t code) {
  if (!isCharacter(code)) malformed("a character that XML does not allow");
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

uint32_t byteAt(std::string_view bytes, std::size_t at) { return static_cast<uint8_t>(bytes[at]); }

// The number of size bytes at a place.
uint32_t unitAt(std::string_view bytes, std::size_t at, std::size_t size, bool bigEndian) {
  uint32_t unit = 0;
  for (std::size_t i = 0; i < size; ++i) {
    unit = unit << 8 | byteAt(bytes, at + (bigEndian ? i : size - 1 - i));
  }
  return unit;
}

std::string fromUtf32(std::string_view bytes, bool bigEndian) {
  if (bytes.size() % 4 != 0) malformed("half a character at the end");
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += 4)
    append(text, unitAt(bytes, at, 4, bigEndian));
  return text;
}

std::string fromUtf16(std::string_view bytes, bool bigEndian) {
  if (bytes.size() % 2 != 0) malformed("half a character at the end");
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    uint32_t code = unitAt(bytes, at, 2, bigEndian);
    if (code >= 0xD800 && code < 0xDC00 && at + 2 < bytes.size()) {
      const uint32_t low = unitAt(bytes, at + 2, 2, bigEndian);
      if (low >= 0xDC00 && low < 0xE000) {
        code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    append(text, code);  // half a pair is no character
  }
  return text;
}

std::string fromLatin1(std::string_view bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); ++at) append(text, byteAt(bytes, at));
  return text;
}

// The code of the sequence at a place and its length; malformed where there is none.
uint32_t utf8At(std::string_view bytes, std::size_t at, std::size_t& length) {
  const uint32_t lead = byteAt(bytes, at);
  length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length == 1) return lead;
  if (lead < 0xC2 || lead > 0xF4 || at + length > bytes.size())
    malformed("bytes that are no UTF-8");
  uint32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const uint32_t next = byteAt(bytes, at + i);
    if ((next & 0xC0) != 0x80) malformed("bytes that are no UTF-8");
    code = code << 6 | (next & 0x3F);
  }
  constexpr std::array<uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  if (code < kLeast[length]) malformed("bytes that are no UTF-8");
  return code;
}

void checkUtf8(std::string_view text, bool asciiOnly) {
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size(); at += length) {
    const uint32_t code = utf8At(text, at, length);
    if (!isCharacter(code)) malformed("a character that XML does not allow");
    if (asciiOnly && code >= 0x80) malformed("a byte that is no US-ASCII");
  }
}

// The encoding that the declaration at the start of a text names, in capitals; empty when it
// names none.
std::string declaredEncoding(std::string_view text) {
  if (!text.starts_with("<?xml")) return "";
  const std::string_view declaration = text.substr(0, text.find("?>"));
  const std::size_t name = declaration.find("encoding");
  if (name == std::string_view::npos) return "";
  const std::size_t open = declaration.find_first_of("\"'", name);
  if (open == std::string_view::npos) return "";
  const std::size_t close = declaration.find(declaration[open], open + 1);
  if (close == std::string_view::npos) return "";
  return ocxStrings::upper(declaration.substr(open + 1, close - open - 1));
}

// Bytes at the start that tell an encoding; its byte order mark is not text.
struct Start {
  std::string_view bytes;
  bool isMark;
  std::size_t unit;
  bool bigEndian;
};
using namespace std::string_view_literals;
constexpr std::array kStarts = {
    Start{"\x00\x00\xFE\xFF"sv, true, 4, true}, Start{"\xFF\xFE\x00\x00"sv, true, 4, false},
    Start{"\x00\x00\x00<"sv, false, 4, true},   Start{"<\x00\x00\x00"sv, false, 4, false},
    Start{"\xFE\xFF"sv, true, 2, true},         Start{"\xFF\xFE"sv, true, 2, false},
    Start{"\x00<"sv, false, 2, true},           Start{"<\x00"sv, false, 2, false},
    Start{"\xEF\xBB\xBF"sv, true, 1, false}};

// Walks through the tags of a text, whose inside the parser is left to judge.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  void run() {
    for (;;) {
      at_ = text_.find_first_of("<&", at_);
      if (at_ == std::string_view::npos) return;
      if (text_[at_] == '&') {
        checkReference();
      } else if (startsWith("<!--")) {
        skipBehind("-->");
      } else if (startsWith("<![CDATA[")) {
        skipBehind("]]>");
      } else if (startsWith("<?")) {
        skipBehind("?>");
      } else if (startsWith("<!")) {
        malformed("it has a document type, which is not read");
      } else {
        scanTag();
      }
    }
  }

 private:
  bool startsWith(std::string_view what) const { return text_.substr(at_).starts_with(what); }

  void skipBehind(std::string_view end) {
    const std::size_t found = text_.find(end, at_);
    if (found == std::string_view::npos) malformed("something is not closed");
    at_ = found + end.size();
  }

  void scanTag() {
    const bool closing = startsWith("</");
    for (++at_;; ++at_) {
      at_ = text_.find_first_of(">\"'<", at_);
      if (at_ == std::string_view::npos) malformed("a tag is not closed");
      if (text_[at_] == '<') malformed("a \"<\" within a tag");
      if (text_[at_] == '>') break;
      scanQuoted(text_[at_]);
    }
    if (closing) {
      --depth_;
    } else if (text_[at_ - 1] != '/' && ++depth_ > kDeepestElement) {
      throw std::runtime_error("The file's elements are nested too deeply");
    }
    ++at_;
  }

  // Stops at the closing quote.
  void scanQuoted(char quote) {
    const std::array<char, 3> stops = {quote, '<', '&'};
    ++at_;
    for (;;) {
      at_ = text_.find_first_of(std::string_view(stops.data(), stops.size()), at_);
      if (at_ == std::string_view::npos) malformed("an attribute's value is not closed");
      if (text_[at_] == '<') malformed("a \"<\" in an attribute's value");
      if (text_[at_] == quote) return;
      checkReference();
    }
  }

  void checkReference() {
    constexpr std::size_t kLongest = 16;
    const std::size_t end = text_.substr(at_, kLongest).find(';');
    if (end == std::string_view::npos) malformed("an \"&\" that is no reference");
    const std::string_view name = text_.substr(at_ + 1, end - 1);
    constexpr std::array kNames = {"lt"sv, "gt"sv, "amp"sv, "quot"sv, "apos"sv};
    const bool known = name.starts_with('#') ? isCharacter(codeOf(name.substr(1)))
                                             : std::ranges::find(kNames, name) != kNames.end();
    if (!known) malformed("a reference to nothing");
    at_ += end + 1;
  }

  // The number of a character reference; 0, which is no character, for any other text.
  static uint32_t codeOf(std::string_view digits) {
    const bool hexadecimal = digits.starts_with('x');
    if (hexadecimal) digits.remove_prefix(1);
    uint32_t code = 0;
    for (const char letter : digits) {
      const std::size_t digit = "0123456789abcdefABCDEF"sv.find(letter);
      if (digit == std::string_view::npos || (digit >= 10 && !hexadecimal)) return 0;
      const auto value = static_cast<uint32_t>(digit < 16 ? digit : digit - 6);
      code = code * (hexadecimal ? 16 : 10) + value;
      if (code >= 0x110000) return 0;
    }
    return code;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

}  // namespace

std::string kewText(std::string bytes) {
  const auto* const start = std::ranges::find_if(
      kStarts, [&](const Start& known) { return bytes.starts_with(known.bytes); });
  if (start != kStarts.end()) {
    if (start->isMark) bytes.erase(0, start->bytes.size());
    if (start->unit == 4) return fromUtf32(bytes, start->bigEndian);
    if (start->unit == 2) return fromUtf16(bytes, start->bigEndian);
    checkUtf8(bytes, false);
    return bytes;
  }
  const std::string declared = declaredEncoding(bytes);
  if (declared == "ISO-8859-1") return fromLatin1(bytes);
  if (!declared.empty() && declared != "UTF-8" && declared != "US-ASCII") {
    malformed("an encoding that is not known");
  }
  checkUtf8(bytes, declared == "US-ASCII");
  return bytes;
}

void checkKewText(std::string_view text) { Scanner(text).run(); }

}  // namespace ModColor
