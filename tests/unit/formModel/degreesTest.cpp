#include "model/degrees.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

namespace form {
namespace {

TEST(Degrees, AreReadWithAPointOrAComma) {
  EXPECT_EQ(readDegrees(L"285.25"), 285.25);
  EXPECT_EQ(readDegrees(L" 285,25 "), 285.25);
  EXPECT_EQ(readDegrees(L"-0.5"), -0.5);
  EXPECT_EQ(readDegrees(L"+12"), 12.0);
  EXPECT_EQ(readDegrees(L"\x2212" L"12"), -12.0);
  EXPECT_EQ(readDegrees(L".5"), 0.5);
}

TEST(Degrees, TakeADegreeSignAndALetterOfTheCompass) {
  EXPECT_EQ(readDegrees(L"12.5E"), 12.5);
  EXPECT_EQ(readDegrees(L"12.5\x00B0"), 12.5);
  EXPECT_EQ(readDegrees(L"12.5\x00B0 W"), -12.5);
  EXPECT_EQ(readDegrees(L"0,25 s"), -0.25);
  EXPECT_EQ(readDegrees(L"30N"), 30.0);
}

TEST(Degrees, AreNothingElse) {
  for (const wchar_t* text : {L"", L" ", L"E", L"abc", L"1 2", L"1.2.3", L"1,2,3", L"--1", L"+-1",
                              L"nan", L"inf", L"1e999", L"-5W", L"0x10", L"12\x00E9"}) {
    EXPECT_EQ(readDegrees(text), std::nullopt) << std::string(text, text + std::wcslen(text));
  }
}

TEST(Degrees, AreWrittenShort) {
  EXPECT_EQ(writeDegrees(285.25), L"285.25");
  EXPECT_EQ(writeDegrees(32), L"32");
  EXPECT_EQ(writeDegrees(-0.5), L"-0.5");
  EXPECT_EQ(writeDegrees(0), L"0");
  EXPECT_EQ(writeDegrees(-0.0000001), L"0");
  EXPECT_EQ(writeDegrees(1.0 / 3), L"0.333333");
  EXPECT_EQ(writeDegrees(100), L"100");
}

}  // namespace
}  // namespace form
