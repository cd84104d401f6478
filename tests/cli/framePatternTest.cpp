#include <gtest/gtest.h>

#include "framePattern.h"

namespace {

using cli::FramePattern;

struct PatternCase {
  const char* text;
  int32_t number;
  const char* wanted;  // null: no pattern
};

TEST(FramePattern, HasOnePlaceForTheNumber) {
  const PatternCase cases[] = {
      {"a%d.png", 7, "a7.png"},
      {"a%d.png", 12345, "a12345.png"},
      {"a%03d.png", 7, "a007.png"},
      {"a%03d.png", 1234, "a1234.png"},
      {"a%01d.png", 7, "a7.png"},
      {"a%010d", 2147483647, "a2147483647"},
      {"a%012d", 2147483647, "a002147483647"},
      {"%d", 1, "1"},
      {"100%%-%d%%.png", 5, "100%-5%.png"},
      {"%%%d", 5, "%5"},
      {"%%d%d", 5, "%d5"},
      {"d%02d/d.png", 5, "d05/d.png"},
      {"", 1, nullptr},
      {"a.png", 1, nullptr},
      {"a%%d.png", 1, nullptr},
      {"a%d-%d.png", 1, nullptr},
      {"a%d-%03d.png", 1, nullptr},
      {"a%3d.png", 1, nullptr},
      {"a%0d.png", 1, nullptr},
      {"a%00d.png", 1, nullptr},
      {"a%0100d.png", 1, nullptr},
      {"a%-3d.png", 1, nullptr},
      {"a%+d.png", 1, nullptr},
      {"a% d.png", 1, nullptr},
      {"a%s.png", 1, nullptr},
      {"a%i.png", 1, nullptr},
      {"a%ld.png", 1, nullptr},
      {"a%n%d.png", 1, nullptr},
      {"a%d.png%", 1, nullptr},
      {"a%d%0", 1, nullptr},
      {"%", 1, nullptr},
      {"%0", 1, nullptr},
      {"%03", 1, nullptr},
  };
  for (const PatternCase& each : cases) {
    const auto pattern = FramePattern::read(each.text);
    EXPECT_EQ(pattern.has_value(), each.wanted != nullptr) << each.text;
    if (pattern && each.wanted != nullptr) {
      EXPECT_EQ(pattern->name(each.number), each.wanted) << each.text;
    }
  }
}

}  // namespace
