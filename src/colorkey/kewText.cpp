#include "colorkey/kewText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "colorkey/xmlCharacters.h"
#include "util/ocxStrings.h"

namespace ModColor {
namespace {

using namespace std::string_view_literals;

enum class Form { Bytes, MarkedUtf8, Utf16, Utf32 };

// Bytes at the start that tell how a document is stored; its byte order mark is not text.
struct Start {
  std::string_view bytes;
  bool isMark;
  Form form;
  bool bigEndian;
};
constexpr std::array kStarts = {Start{"\x00\x00\xFE\xFF"sv, true, Form::Utf32, true},
                                Start{"\xFF\xFE\x00\x00"sv, true, Form::Utf32, false},
                                Start{"\x00\x00\x00<"sv, false, Form::Utf32, true},
                                Start{"<\x00\x00\x00"sv, false, Form::Utf32, false},
                                Start{"\xFE\xFF"sv, true, Form::Utf16, true},
                                Start{"\xFF\xFE"sv, true, Form::Utf16, false},
                                Start{"\x00<"sv, false, Form::Utf16, true},
                                Start{"<\x00"sv, false, Form::Utf16, false},
                                Start{"\xEF\xBB\xBF"sv, true, Form::MarkedUtf8, false},
                                Start{""sv, false, Form::Bytes, false}};  // any other

// The number of size bytes at a place.
uint32_t unitAt(std::string_view bytes, std::size_t at, std::size_t size, bool bigEndian) {
  uint32_t unit = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const auto byte = static_cast<uint8_t>(bytes[at + (bigEndian ? i : size - 1 - i)]);
    unit = unit << 8 | byte;
  }
  return unit;
}

std::string fromUtf32(std::string_view bytes, bool bigEndian) {
  if (bytes.size() % 4 != 0) malformed("half a character at the end");
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += 4) {
    appendUtf8(text, unitAt(bytes, at, 4, bigEndian));
  }
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
    appendUtf8(text, code);  // half a pair is no character
  }
  return text;
}

std::string fromLatin1(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) appendUtf8(text, static_cast<uint8_t>(byte));
  return text;
}

void checkUtf8(std::string_view text, bool asciiOnly) {
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size(); at += length) {
    const uint32_t code = utf8At(text, at, length);
    if (!isXmlCharacter(code)) malformed("a character that XML does not allow");
    if (asciiOnly && code >= 0x80) malformed("a byte that is no US-ASCII");
  }
}

// The encoding that the declaration at the start of a text names, in capitals; empty when it
// names none. Whether the declaration is in order is looked at later.
std::string declaredEncoding(std::string_view text) {
  if (!text.starts_with("<?xml") || text.size() < 6 || !isXmlWhite(text[5])) return "";
  const std::string_view declaration = text.substr(0, text.find("?>"));
  const std::size_t name = declaration.find("encoding");
  if (name == std::string_view::npos) return "";
  const std::size_t open = declaration.find_first_of("\"'", name);
  if (open == std::string_view::npos) return "";
  const std::size_t close = declaration.find(declaration[open], open + 1);
  if (close == std::string_view::npos) return "";
  return ocxStrings::upper(declaration.substr(open + 1, close - open - 1));
}

// A document that is in another encoding than it says would become another document.
void checkDeclared(const std::string& declared, const Start& start) {
  const auto isOneOf = [&](auto... names) {
    return declared.empty() || ((declared == names) || ...);
  };
  const char* const order = start.bigEndian ? "BE" : "LE";
  bool fits = false;
  switch (start.form) {
    case Form::Bytes:
      fits = isOneOf("UTF-8", "US-ASCII", "ISO-8859-1");
      break;
    case Form::MarkedUtf8:
      fits = isOneOf("UTF-8");
      break;
    case Form::Utf16:
      fits = isOneOf("UTF-16", std::string("UTF-16") + order, "ISO-10646-UCS-2");
      break;
    case Form::Utf32:
      fits = isOneOf("UTF-32", std::string("UTF-32") + order, "ISO-10646-UCS-4");
      break;
  }
  if (!fits) malformed("an encoding that is not known, or another than it is in");
}

// Line ends as XML wants them read: a return is one by itself or with a line feed behind it.
void makeLinesEndAlike(std::string& text) {
  auto to = std::ranges::find(text, '\r');
  for (auto from = to; from != text.end(); ++from) {
    if (*from == '\r') {
      *to++ = '\n';
      if (std::next(from) != text.end() && *std::next(from) == '\n') ++from;
    } else {
      *to++ = *from;
    }
  }
  text.erase(to, text.end());
}

}  // namespace

std::string kewText(std::string bytes) {
  const Start& start = *std::ranges::find_if(
      kStarts, [&](const Start& known) { return bytes.starts_with(known.bytes); });
  if (start.isMark) bytes.erase(0, start.bytes.size());
  if (start.form == Form::Utf32) bytes = fromUtf32(bytes, start.bigEndian);
  if (start.form == Form::Utf16) bytes = fromUtf16(bytes, start.bigEndian);
  const std::string declared = declaredEncoding(bytes);
  checkDeclared(declared, start);
  if (declared == "ISO-8859-1") {
    bytes = fromLatin1(bytes);
  } else {
    checkUtf8(bytes, declared == "US-ASCII");
  }
  makeLinesEndAlike(bytes);
  return bytes;
}

}  // namespace ModColor
