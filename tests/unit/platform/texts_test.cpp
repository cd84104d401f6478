#include "platform/texts.h"

#include <gtest/gtest.h>

namespace {

TEST(Texts, KeepValidUtf8) {
  for (const char* text : {"", "plain", "\xC2\xB0", "\xE2\x82\xAC", "\xF0\x9F\x8C\x8A",
                           "\xED\x9F\xBF", "\xEE\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(platform::textToUtf8(text), text);
  }
}

TEST(Texts, TakeOtherBytesAsTheAnsiCodePage) {
  const std::pair<const char*, const char*> cases[] = {
      {"\xB0"
       "C",
       "\xC2\xB0"
       "C"},
      {"\x80", "\xE2\x82\xAC"},
      {"\x92", "\xE2\x80\x99"},
      {"\x9F", "\xC5\xB8"},
      {"\xFF", "\xC3\xBF"},
      {"caf\xE9 \xC2\xB0", "caf\xC3\xA9 \xC3\x82\xC2\xB0"},  // one bad byte decides for all
      {"\xC3", "\xC3\x83"},                                  // cut short
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                      // overlong
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},      // surrogate
      {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"}};  // above U+10FFFF
  for (const auto& [text, expected] : cases) EXPECT_EQ(platform::textToUtf8(text), expected);
}

}  // namespace
