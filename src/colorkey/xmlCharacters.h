#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ModColor {

// The document is no well-formed XML, or not to be had at all.
class KewMalformed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
// Throws it with a reason.
[[noreturn]] void malformed(const std::string& why);

// What XML 1.0 allows as a character, at the start of a name and within one.
bool isXmlCharacter(uint32_t code);
bool isXmlNameStart(uint32_t code);
bool isXmlNameCharacter(uint32_t code);
constexpr bool isXmlWhite(char letter) {
  return letter == ' ' || letter == '\n' || letter == '\t' || letter == '\r';
}

// The code of the UTF-8 sequence at a place and its length; KewMalformed where there is none.
uint32_t utf8At(std::string_view text, std::size_t at, std::size_t& length);
// Appends a character; KewMalformed for a code that is none.
void appendUtf8(std::string& text, uint32_t code);

}  // namespace ModColor
