#include "platform/drawableText.h"

#include <gtest/gtest.h>

namespace {

using std::string_literals::operator""s;

#define REPLACED "\xEF\xBF\xBD"

TEST(DrawableText, IsWhatCairoAccepts) {
  struct Row {
    std::string text, drawable;
  };
  const Row rows[] = {
      {"", ""},
      {"plain ~ text", "plain ~ text"},
      {"\xC2\xB0"
       "C \xE2\x82\xAC \xF0\x9F\x8C\x8A",
       "\xC2\xB0"
       "C \xE2\x82\xAC \xF0\x9F\x8C\x8A"},
      {"a\0b"s, "a b"},
      {"tab\tline\nend\x7F", "tab line end "},
      {"\xC2\x80x", " x"},  // a control character of two bytes
      {"\xB0"
       "C",
       REPLACED "C"},      // a byte of another encoding
      {"\xC2", REPLACED},  // cut short
      {"\xE2\x82", REPLACED REPLACED},
      {"\xC0\x80", REPLACED REPLACED},  // longer than it need be
      {"\xE0\x80\x80", REPLACED REPLACED REPLACED},
      {"\xED\xA0\x80", REPLACED},  // half of a pair
      {"\xEF\xBF\xBE", REPLACED},  // no character
      {"\xEF\xB7\x90", REPLACED},
      {"\xF4\x90\x80\x80", REPLACED},  // beyond the last plane
      {"\xF8\x88\x80\x80", REPLACED REPLACED REPLACED REPLACED},
  };
  for (const Row& row : rows) EXPECT_EQ(platform::drawableText(row.text), row.drawable);
}

TEST(DrawableText, IsCutAfter8192Characters) {
  EXPECT_EQ(platform::drawableText(std::string(8192, 'a')), std::string(8192, 'a'));
  EXPECT_EQ(platform::drawableText(std::string(10'000'000, 'a')), std::string(8192, 'a'));
  std::string waves;
  for (int i = 0; i < 9000; ++i) waves += "\xF0\x9F\x8C\x8A";
  EXPECT_EQ(platform::drawableText(waves), waves.substr(0, 4 * 8192));
}

}  // namespace
