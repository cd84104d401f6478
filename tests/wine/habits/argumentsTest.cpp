#include <windows.h>

#include <oleauto.h>

#include <cmath>
#include <vector>

#include "Habits.h"
#include "ValueObject.h"

// What arrives of an argument, whatever the language that sent it.
namespace winetest {
namespace {

using Way = Sent::Way;

struct Row {
  const char* what;
  Sent sent;
};

Value currency(const wchar_t* text) {
  Value value;
  EXPECT_EQ(VariantChangeTypeEx(&value.variant(), &Value(text).variant(), 0x0409, 0, VT_CY), S_OK);
  return value;
}

Value decimal(int whole) {
  Value value;
  DECIMAL number = {};
  EXPECT_EQ(VarDecFromI4(whole, &number), S_OK);
  V_DECIMAL(&value.variant()) = number;
  V_VT(&value.variant()) = VT_DECIMAL;
  return value;
}

// 7 in every type that holds it.
std::vector<Row> sevens() {
  return {{"I1", Sent(VT_I1, char{7})},
          {"I2", Sent(VT_I2, int16_t{7})},
          {"I4", Sent(VT_I4, int32_t{7})},
          {"I8", Sent(VT_I8, int64_t{7})},
          {"INT", Sent(VT_INT, int{7})},
          {"UI1", Sent(VT_UI1, uint8_t{7})},
          {"UI2", Sent(VT_UI2, uint16_t{7})},
          {"UI4", Sent(VT_UI4, uint32_t{7})},
          {"UI8", Sent(VT_UI8, uint64_t{7})},
          {"UINT", Sent(VT_UINT, unsigned{7})},
          {"R4", Sent(VT_R4, 7.0F)},
          {"R8", Sent(VT_R8, 7.0)},
          {"DATE", Sent(VT_DATE, 7.0)},
          {"CY", Sent(currency(L"7"))},
          {"DECIMAL", Sent(decimal(7))},
          {"BSTR", Sent(Value(L"7"))},
          {"BSTR with blanks", Sent(Value(L"  7 "))},
          {"DISPATCH", Sent(objectOf(Value(7)))},
          {"UNKNOWN", Sent(unknownOf(Value(L"7")))},
          {"object of an object", Sent(objectOf(objectOf(Value(7))))},
          {"object of a reference", Sent(objectOf(Value(7.0)))}};
}

TEST_F(Habits, NumbersArriveInEveryTypeAndByEveryReference) {
  for (const Row& row : sevens()) {
    for (const Way way : Sent::kWays) {
      EXPECT_EQ(sendNumber(row.sent.by(way)), S_OK) << row.what << int(way);
      EXPECT_EQ(received_, 7) << row.what << int(way);
    }
  }
}

TEST_F(Habits, SinglesArriveInEveryTypeAndByEveryReference) {
  const Sent red(0x0000FF);
  const host::Picture expected = keyPicture(Sent(VT_R4, 7.0F), red);
  ASSERT_FALSE(keyPicture(Sent(VT_R4, 8.0F), red) == expected);
  for (const Row& row : sevens()) {
    for (const Way way : Sent::kWays) {
      EXPECT_TRUE(keyPicture(row.sent.by(way), red) == expected) << row.what << int(way);
    }
  }
}

TEST_F(Habits, TextsArriveInEveryTypeAndByEveryReference) {
  // A data set by the name of 7, in the current folder.
  wchar_t before[MAX_PATH] = {};
  GetCurrentDirectoryW(MAX_PATH, before);
  support::makeTinySet(folder_.file("7"));
  SetCurrentDirectoryW(folder_.path().c_str());
  for (const Row& row : sevens()) {
    // A date is another text, and blanks belong to a name.
    if (row.sent.by(Way::ByValue).variant().vt == VT_DATE) continue;
    if (std::string(row.what) == "BSTR with blanks") continue;
    for (const Way way : Sent::kWays) {
      const Answer answer = caller_.call(L"NcFile", {row.sent.by(way)});
      EXPECT_EQ(answer.code, S_OK) << row.what;
      EXPECT_EQ(answer.result.number(), 1) << row.what << int(way);
    }
  }
  SetCurrentDirectoryW(before);
}

TEST_F(Habits, FlagsArriveInEveryTypeAndByEveryReference) {
  std::vector<Row> rows = sevens();
  rows.push_back({"BOOL", Sent(Value(true))});
  rows.push_back({"True", Sent(Value(L"True"))});
  rows.push_back({"-1", Sent(VT_I2, int16_t{-1})});
  const std::vector<Row> falses = {{"BOOL", Sent(Value(false))},
                                   {"False", Sent(Value(L"False"))},
                                   {"0", Sent(Value(L"0"))},
                                   {"0 as R8", Sent(Value(0.0))},
                                   {"EMPTY", Sent(Value())}};
  for (const Way way : Sent::kWays) {
    for (const Row& row : rows) {
      object_.put(L"DrawProfile", false);
      EXPECT_EQ(caller_.put(L"DrawProfile", row.sent.by(way)).code, S_OK) << row.what;
      EXPECT_TRUE(object_.get(L"DrawProfile").flag()) << row.what << int(way);
    }
    for (const Row& row : falses) {
      // Nothing has no reference of its own.
      if (row.sent.by(Way::ByValue).variant().vt == VT_EMPTY && way == Way::ByReference) continue;
      if (row.sent.by(Way::ByValue).variant().vt == VT_EMPTY && way == Way::ByVariantOfReference)
        continue;
      object_.put(L"DrawProfile", true);
      EXPECT_EQ(caller_.put(L"DrawProfile", row.sent.by(way)).code, S_OK) << row.what;
      EXPECT_FALSE(object_.get(L"DrawProfile").flag()) << row.what << int(way);
    }
  }
}

TEST_F(Habits, NumbersAreRoundedHalfToEvenAndNothingIsZero) {
  const struct {
    Sent sent;
    int64_t expected;
  } rows[] = {{Sent(1.5), 2},
              {Sent(2.5), 2},
              {Sent(-2.5), -2},
              {Sent(VT_R4, 3.5F), 4},
              {Sent(currency(L"2.5")), 2},
              {Sent(Value(L"2.5")), 2},
              {Sent(Value(L"-3")), -3},
              {Sent(Value(L"1e3")), 1000},
              {Sent(Value(true)), -1},
              {Sent(Value()), 0},
              {Sent(VT_DATE, 2.5), 2},
              {Sent(2147483647.4), 2147483647},
              {Sent(-2147483648.0), -2147483648LL},
              {Sent(VT_I8, int64_t{-2147483648LL}), -2147483648LL},
              {Sent(VT_UI4, 2147483647U), 2147483647}};
  for (const auto& row : rows) {
    EXPECT_EQ(sendNumber(row.sent), S_OK) << row.expected;
    EXPECT_EQ(received_, row.expected);
  }
}

int32_t colourOf(uint32_t shown) {
  return static_cast<int32_t>((shown & 0xFF) << 16 | (shown & 0xFF00) | shown >> 16);
}

// System colours and colours of unsigned languages: the same 32 bits however they are written.
TEST_F(Habits, ColoursArriveWithAllTheirBits) {
  const struct {
    Sent sent;
    uint32_t shown;  // 0x00RRGGBB
  } rows[] = {{Sent(Value(255)), 0xFF0000},
              {Sent(VT_I2, int16_t{255}), 0xFF0000},
              {Sent(Value(-1)), 0xFFFFFF},
              {Sent(VT_I2, int16_t{-1}), 0xFFFFFF},
              {Sent(Value(L"-1")), 0xFFFFFF},
              {Sent(Value(-1.0)), 0xFFFFFF},
              {Sent(VT_I8, int64_t{-1}), 0xFFFFFF},
              {Sent(VT_I4, static_cast<int32_t>(0x800000C5U)), 0xC50000},
              {Sent(VT_INT, static_cast<int>(0x800000C5U)), 0xC50000},
              {Sent(VT_UI4, 0x800000C5U), 0xC50000},
              {Sent(VT_UINT, 0x800000C5U), 0xC50000},
              {Sent(VT_R8, 2147483845.0), 0xC50000},
              {Sent(VT_R8, -2147483451.0), 0xC50000},
              {Sent(VT_I8, int64_t{0x800000C5}), 0xC50000},
              {Sent(VT_UI8, uint64_t{0x800000C5}), 0xC50000},
              {Sent(currency(L"2147483845")), 0xC50000},
              {Sent(Value(L"2147483845")), 0xC50000},
              {Sent(Value(L"-2147483451")), 0xC50000},
              {Sent(Value(L"&H00C5")), 0xC50000},
              {Sent(Value(L"&H800000C5")), 0xC50000},
              {Sent(VT_UI4, 0x0200C500U), 0x00C500},
              {Sent(objectOf(Value(0xC50000))), 0x0000C5}};
  for (const auto& row : rows) {
    for (const Way way : Sent::kWays) {
      HRESULT code = E_FAIL;
      const host::Picture picture = keyPicture(Sent(1000), row.sent.by(way), &code);
      EXPECT_EQ(code, S_OK) << &row - rows << " " << int(way);
      EXPECT_TRUE(picture == keyPicture(Sent(1000), Sent(VT_I4, colourOf(row.shown))))
          << &row - rows;
      EXPECT_TRUE(has(picture, row.shown)) << &row - rows;
    }
  }
  HRESULT code = S_OK;
  for (const Sent& tooLarge : {Sent(4294967296.0), Sent(-2147483649.0), Sent(Value(L"4294967296")),
                               Sent(VT_UI8, ~uint64_t{0}), Sent(std::nan(""))}) {
    keyPicture(Sent(1000), tooLarge, &code);
    EXPECT_EQ(code, DISP_E_OVERFLOW);
  }
}

// The languages of callers write numbers in their own ways; what is no language is the user's.
TEST_F(Habits, TextsAreReadInTheLanguageOfTheCaller) {
  constexpr LCID german = 0x0407, english = 0x0409;
  const DISPID advance = caller_.id(L"AdvanceTime");
  const struct {
    const wchar_t* text;
    LCID language;
    int expected;
  } rows[] = {{L"-1,5", german, -2},  {L"-1.5", english, -2}, {L"-1.500", german, -1500},
              {L"-1,500", english, -1500}, {L"-3", 0, -3},  {L"-3", 0xFFFF, -3},
              {L"-3", 0x12345678, -3}, {L"-3", LOCALE_INVARIANT, -3},
              {L"-3", LOCALE_SYSTEM_DEFAULT, -3}};
  for (const auto& row : rows) {
    object_.call(L"SetCurrentTime", {0});
    const Answer answer =
        caller_.invoke(advance, DISPATCH_METHOD, {Sent(Value(row.text))}, {}, row.language);
    EXPECT_EQ(answer.code, S_OK) << host::narrow(row.text) << row.language;
    EXPECT_EQ(answer.result.number(), row.expected) << host::narrow(row.text) << row.language;
  }
}

}  // namespace
}  // namespace winetest
