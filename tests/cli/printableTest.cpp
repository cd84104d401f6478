#include <gtest/gtest.h>

#include "terminal.h"

namespace {

TEST(Columns, AreThoseOfCharactersNotOfBytes) {
  EXPECT_EQ(cli::columnsOf("W\xC3\xA4rme \xE6\xB5\xB7 \xF0\x9F\x8C\x8A"), 9U);
  EXPECT_EQ(cli::padded("\xC3\xA4", 3), "\xC3\xA4  ");
  EXPECT_EQ(cli::padded("abcd", 3), "abcd");
}

TEST(Printable, CharactersThatSteerATerminalBecomeBlanks) {
  const std::pair<std::string, std::string> cases[] = {
      {"plain \xC3\xA9\xE2\x82\xAC\xF0\x9F\x8C\x8A", "plain \xC3\xA9\xE2\x82\xAC\xF0\x9F\x8C\x8A"},
      {"a\x1b[2J\x7F"
       "b",
       "a [2J b"},
      {"a\xC2\x80z\xC2\x9Fz\xC2\xA0z", "a z z\xC2\xA0z"},
      // The marks and isolates of the direction of writing, and their neighbours.
      {"a\xD8\x9C"
       "b\xD8\x9B",
       "a b\xD8\x9B"},
      {"\xE2\x80\x8D\xE2\x80\x8E\xE2\x80\x8F\xE2\x80\x90", "\xE2\x80\x8D  \xE2\x80\x90"},
      {"\xE2\x80\xAA\xE2\x80\xAB\xE2\x80\xAC\xE2\x80\xAD\xE2\x80\xAE\xE2\x80\xAF",
       "     \xE2\x80\xAF"},
      {"\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA7\xE2\x81\xA8\xE2\x81\xA9\xE2\x81\xAA",
       "\xE2\x81\xA5    \xE2\x81\xAA"},
      // Cut off.
      {"a\xE2\x80", "a\xE2\x80"},
      {"a\xC2", "a\xC2"},
      {"a\xD8", "a\xD8"},
  };
  for (const auto& [text, wanted] : cases) EXPECT_EQ(cli::printable(text), wanted);
}

TEST(Printable, LineFeedsStayWhenTheyAreWanted) {
  EXPECT_EQ(cli::printable("a\nb\r\n"), "a b  ");
  EXPECT_EQ(cli::printable("a\nb\r\n", cli::LineFeeds::Keep), "a\nb \n");
}

}  // namespace
