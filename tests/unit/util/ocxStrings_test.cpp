#include "util/ocxStrings.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

struct FieldCase {
  const char* text;
  int32_t wanted;
  int16_t found;
  int32_t start, end;
  const char* field;
};

TEST(NextField, FindsFieldsBySeparatorOfTheText) {
  const FieldCase cases[] = {
      {"days since 1990-01-01", 1, 1, 1, 4, "days"},
      {"days since 1990-01-01", 2, 2, 6, 10, "since"},
      {"days since 1990-01-01", 3, 3, 12, 21, "1990-01-01"},
      {"a  b   c", 2, 2, 4, 4, "b"},
      {"a  b   c", 3, 3, 8, 8, "c"},
      {"  a", 1, 1, 3, 3, "a"},
      {"1, 2,3", 2, 2, 3, 4, " 2"},
      {"1,,3", 2, 2, 4, 4, "3"},
      {"1,2;3,4", 2, 2, 5, 7, "3,4"},
      {"a b\tc,d;e", 2, 2, 5, 9, "c,d;e"},
      {"days since 1990-01-01, 12:00", 1, 1, 1, 21, "days since 1990-01-01"},
      {"days since 1990-01-01, 12:00", 2, 2, 23, 28, " 12:00"},
  };
  for (const FieldCase& c : cases) {
    SCOPED_TRACE(c.text);
    int32_t start = 0, end = 0;
    EXPECT_EQ(ocxStrings::NextField(c.text, c.wanted, start, end), c.found);
    EXPECT_EQ(start, c.start);
    EXPECT_EQ(end, c.end);
    EXPECT_EQ(ocxStrings::FieldText(c.text, c.wanted), c.field);
  }
}

TEST(NextField, AnswersZeroWhenTheTextEndsFirst) {
  const std::pair<const char*, int32_t> cases[] = {{"days since 1990-01-01", 4},
                                                   {"   ", 1},
                                                   {"a,", 2},
                                                   {"", 1},
                                                   {",,", 1},
                                                   {"a", 0},
                                                   {"a", -1},
                                                   {"a", 40000}};
  for (const auto& [text, wanted] : cases) {
    SCOPED_TRACE(text);
    int32_t start = 0, end = 0;
    EXPECT_EQ(ocxStrings::NextField(text, wanted, start, end), 0);
    EXPECT_EQ(ocxStrings::FieldText(text, wanted), "");
  }
}

TEST(NextField, LeavesTheLastFieldPassedWhenNotFound) {
  int32_t start = 0, end = 0;
  EXPECT_EQ(ocxStrings::NextField("a b", 40000, start, end), 0);
  EXPECT_EQ(start, 3);
  EXPECT_EQ(end, 3);
  start = end = 0;
  EXPECT_EQ(ocxStrings::NextField("10 20", 3, start, end), 0);
  EXPECT_EQ(start, 4);
  EXPECT_EQ(end, 5);
}

TEST(NextField, CountsFromTheEndPosition) {
  int32_t start = 0, end = 2;
  EXPECT_EQ(ocxStrings::NextField("10 20 30", 2, start, end), 2);
  EXPECT_EQ(start, 7);
  EXPECT_EQ(end, 8);
  start = 0;
  end = 2;
  EXPECT_EQ(ocxStrings::NextField("10 20", 2, start, end), 0);
}

TEST(NextField, SurvivesPositionsOutsideTheText) {
  int32_t start = 0, end = 99;
  EXPECT_EQ(ocxStrings::NextField("a b", 1, start, end), 0);
  end = INT32_MAX;
  EXPECT_EQ(ocxStrings::NextField("a b", 1, start, end), 0);
  end = -7;
  EXPECT_EQ(ocxStrings::NextField("a b", 1, start, end), 1);
  EXPECT_EQ(start, 1);
}

TEST(NextBlankField, TakesOnlyTheBlankAsSeparator) {
  int32_t start = 0, end = 0;
  EXPECT_EQ(ocxStrings::NextBlankField("1,2;3\t4 5", 1, start, end), 1);
  EXPECT_EQ(end, 7);
}

TEST(NextNumber, WalksThroughTheNumbers) {
  const struct {
    const char* text;
    double first, second;
  } cases[] = {
      {"0  30", 0, 30}, {"0, 10", 0, 10}, {"-1.5 2e2", -1.5, 200}, {"5", 5, 0}, {"", 0, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    int32_t position = 0;
    EXPECT_EQ(ocxStrings::NextNumber(c.text, position), c.first);
    EXPECT_EQ(ocxStrings::NextNumber(c.text, position), c.second);
  }
}

TEST(FileNames, LoseTheirExtension) {
  const std::pair<const char*, const char*> cases[] = {
      {"run1.nc", "run1"}, {" run1.nc ", "run1"}, {"a.b.nc", "a.b"},
      {"run1", "run1"},    {"  run1  ", "run1"},  {"", ""},
      {"   ", ""},         {"run1 .nc", "run1"},  {"c:\\data.v2\\run1", "c:\\data"},
      {"run.", "run"},     {".nc", ""},           {" .", ""}};
  for (const auto& [name, expected] : cases) {
    EXPECT_EQ(ocxStrings::StripExtension(name), expected) << "[" << name << "]";
  }
}

TEST(FileNames, ChangeTheirExtension) {
  const std::pair<const char*, const char*> cases[] = {{"c:\\data\\run1.nc", "c:\\data\\run1.KEW"},
                                                       {"c:\\data.v2\\run1", "c:\\data.KEW"},
                                                       {"run1", "run1.KEW"},
                                                       {"", ".KEW"}};
  for (const auto& [name, expected] : cases) {
    std::string changed = name;
    ocxStrings::ChangeExtension(changed, " KEW ");
    EXPECT_EQ(changed, expected) << "[" << name << "]";
  }
}

TEST(FileNames, EndAfterTheLastSlashOfEitherKind) {
  const std::pair<const char*, const char*> cases[] = {{"c:\\data\\run1.nc", "run1.nc"},
                                                       {"c:\\data/sub\\x.nc", "x.nc"},
                                                       {"c:/data\\sub/y.nc", "y.nc"},
                                                       {"http://h.x/d/run1.nc", "run1.nc"},
                                                       {"run1.nc", "run1.nc"},
                                                       {"  a/b ", "b"},
                                                       {"folder/", ""},
                                                       {"", ""}};
  for (const auto& [name, expected] : cases) {
    EXPECT_EQ(ocxStrings::FileNameOf(name), expected) << "[" << name << "]";
  }
}

TEST(Texts, TrimBlanksAlone) {
  EXPECT_EQ(ocxStrings::trim("  a b  "), "a b");
  EXPECT_EQ(ocxStrings::trim("\ta\n"), "\ta\n");
  EXPECT_EQ(ocxStrings::trim("   "), "");
  EXPECT_EQ(ocxStrings::rightTrim("  a  "), "  a");
  EXPECT_EQ(ocxStrings::rightTrim("  "), "");
}

TEST(Texts, ChangeTheCaseOfAsciiLettersOnly) {
  EXPECT_EQ(ocxStrings::upper("aZ_09\xC3\xA4i"), "AZ_09\xC3\xA4I");
  EXPECT_TRUE(ocxStrings::equalNoCase("Temp", "tEMP"));
  EXPECT_FALSE(ocxStrings::equalNoCase("Temp", "Temp "));
  EXPECT_FALSE(ocxStrings::equalNoCase("\xC3\xA4", "\xC3\x84"));
}

TEST(Texts, MatchKeywordsAtTheirStart) {
  EXPECT_TRUE(ocxStrings::hasPrefix("Longitude", "LON"));
  EXPECT_TRUE(ocxStrings::hasPrefix("lon", "LON"));
  EXPECT_FALSE(ocxStrings::hasPrefix("lo", "LON"));
  EXPECT_FALSE(ocxStrings::hasPrefix("xlon", "LON"));
  EXPECT_TRUE(ocxStrings::hasPrefix("", ""));
}

}  // namespace
