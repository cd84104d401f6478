#include <windows.h>

#include <oleauto.h>

#include <cmath>
#include <limits>
#include <vector>

#include "Habits.h"
#include "ValueObject.h"

// Arguments that are refused, and how a caller learns of it.
namespace winetest {
namespace {

Sent error(SCODE code) { return Sent(VT_ERROR, code); }

Sent array() {
  Value value;
  V_ARRAY(&value.variant()) = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  V_VT(&value.variant()) = VT_ARRAY | VT_VARIANT;
  return Sent(value);
}

TEST_F(Habits, WhatIsNoNumberIsRefusedWithItsPlace) {
  int record = 0;
  const struct {
    const char* what;
    Sent sent;
    HRESULT code;
  } rows[] = {
      {"text", Sent(Value(L"abc")), DISP_E_TYPEMISMATCH},
      {"empty text", Sent(Value(L"")), DISP_E_TYPEMISMATCH},
      {"two numbers", Sent(Value(L"1 2 3x")), DISP_E_TYPEMISMATCH},
      {"no text", Sent(VT_BSTR, BSTR{}), DISP_E_TYPEMISMATCH},
      {"NULL", Sent(VT_NULL, 0), DISP_E_TYPEMISMATCH},
      {"left out", error(DISP_E_PARAMNOTFOUND), DISP_E_PARAMNOTOPTIONAL},
      {"error", error(E_FAIL), DISP_E_TYPEMISMATCH},
      {"array", array(), DISP_E_TYPEMISMATCH},
      {"no object", Sent(VT_DISPATCH, static_cast<IDispatch*>(nullptr)), DISP_E_TYPEMISMATCH},
      {"no unknown", Sent(VT_UNKNOWN, static_cast<IUnknown*>(nullptr)), DISP_E_TYPEMISMATCH},
      {"broken object", Sent(brokenObject()), DISP_E_TYPEMISMATCH},
      {"object without end", Sent(endlessObject()), DISP_E_TYPEMISMATCH},
      {"object of a text", Sent(objectOf(Value(L"abc"))), DISP_E_TYPEMISMATCH},
      {"reference to nowhere", Sent(VT_BYREF | VT_I4, static_cast<void*>(nullptr)),
       DISP_E_TYPEMISMATCH},
      {"variant of nowhere", Sent(VT_BYREF | VT_VARIANT, static_cast<void*>(nullptr)),
       DISP_E_TYPEMISMATCH},
      {"record", Sent(VARTYPE{VT_BYREF | VT_RECORD}, static_cast<void*>(&record)),
       DISP_E_TYPEMISMATCH},
      {"no type at all", Sent(VARTYPE{77}, 0), DISP_E_BADVARTYPE}};
  const DISPID id = caller_.id(L"AddColorKey");
  for (const auto& row : rows) {
    for (UINT wrong = 0; wrong < 3; ++wrong) {
      std::vector<Sent> arguments = {Sent(1), Sent(2), Sent(3)};
      arguments[2 - wrong] = row.sent;
      const Answer answer = caller_.invoke(id, DISPATCH_METHOD, arguments);
      EXPECT_EQ(answer.code, row.code) << row.what << wrong;
      EXPECT_EQ(answer.wrong, wrong) << row.what;  // counted from the last
      EXPECT_EQ(answer.result.type(), VT_EMPTY) << row.what;
    }
  }
}

TEST_F(Habits, WhatIsTooLargeIsRefused) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const Sent& number :
       {Sent(2147483647.5), Sent(-2147483648.6), Sent(1e300), Sent(infinity), Sent(-infinity),
        Sent(std::nan("")), Sent(VT_R4, std::nanf("")), Sent(VT_UI4, 2147483648U),
        Sent(VT_I8, int64_t{2147483648}), Sent(VT_UI8, ~uint64_t{0}), Sent(VT_DATE, 1e300),
        Sent(Value(L"2147483648"))}) {
    EXPECT_EQ(sendNumber(number), DISP_E_OVERFLOW) << received_;
  }
  EXPECT_EQ(caller_.call(L"AddSection", {Sent(1e39), Sent(0)}).code, DISP_E_OVERFLOW);
  EXPECT_EQ(caller_.call(L"AddSection", {Sent(0), Sent(Value(L"1e39"))}).wrong, 0U);
  // A coordinate that is broken is for the section to refuse.
  EXPECT_EQ(caller_.call(L"AddSection", {Sent(std::nan("")), Sent(0)}).code, S_OK);
}

TEST_F(Habits, CountsMustFit) {
  const struct {
    const wchar_t* member;
    UINT least, most;
  } rows[] = {{L"ShowOptions", 0, 0}, {L"NcFile", 1, 1},        {L"AddSection", 2, 2},
              {L"AddColorKey", 3, 3}, {L"EndSection", 0, 0},    {L"ErrorMessage", 0, 0},
              {L"ItemName", 1, 1},    {L"NumDrawAbleItems", 0, 0}};
  for (const auto& row : rows) {
    for (const WORD flags : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET},
                             WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}}) {
      for (UINT count = 0; count < 6; ++count) {
        if (count >= row.least && count <= row.most) continue;
        const Answer answer = caller_.invoke(caller_.id(row.member), flags,
                                             std::vector<Sent>(count, Sent(1)));
        EXPECT_EQ(answer.code, DISP_E_BADPARAMCOUNT) << host::narrow(row.member) << count;
      }
    }
  }
}

TEST_F(Habits, ObjectsThatWereHandedOverAreLetGo) {
  {
    const Value held = objectOf(objectOf(Value(L"7")));
    EXPECT_EQ(valueObjects(), 2);
    for (const Sent::Way way : Sent::kWays) EXPECT_EQ(sendNumber(Sent(held).by(way)), S_OK);
    EXPECT_EQ(sendNumber(Sent(endlessObject())), DISP_E_TYPEMISMATCH);
  }
  EXPECT_EQ(valueObjects(), 0);
}

// Calls without the places that a caller may leave out, and without those it may not.
TEST_F(Habits, PlacesForAnswersMayBeMissing) {
  const DISPID name = caller_.id(L"ItemName"), section = caller_.id(L"AddSection"),
               advance = caller_.id(L"AdvanceTime");
  VARIANT one = Value(1).variant(), bad[2] = {one, one};
  V_VT(&bad[0]) = VT_NULL;
  DISPPARAMS single = {&one, nullptr, 1, 0}, wrong = {bad, nullptr, 2, 0};
  const auto invoke = [&](DISPID id, DISPPARAMS* parameters) {
    return caller_.dispatch()->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, parameters, nullptr,
                                      nullptr, nullptr);
  };
  EXPECT_EQ(invoke(name, &single), S_OK);
  EXPECT_EQ(invoke(section, &wrong), DISP_E_TYPEMISMATCH);
  object_.call(L"SetCurrentTime", {std::numeric_limits<int>::max()});
  EXPECT_EQ(invoke(advance, &single), DISP_E_EXCEPTION);
  EXPECT_EQ(invoke(name, nullptr), E_POINTER);
  DISPPARAMS nowhere = {nullptr, nullptr, 1, 0};
  EXPECT_EQ(invoke(name, &nowhere), E_INVALIDARG);
  DISPPARAMS unnamed = {&one, nullptr, 1, 1};
  EXPECT_EQ(invoke(name, &unnamed), E_INVALIDARG);
  DISPID second = 0;
  DISPPARAMS tooManyNames = {&one, &second, 1, 2};
  EXPECT_EQ(invoke(name, &tooManyNames), E_INVALIDARG);
}

// The result may go where an argument came from.
TEST_F(Habits, TheResultMayReplaceAnArgument) {
  VARIANT variable = Value(2).variant();
  DISPPARAMS parameters = {&variable, nullptr, 1, 0};
  ASSERT_EQ(caller_.dispatch()->Invoke(caller_.id(L"ItemName"), IID_NULL, 0, DISPATCH_METHOD,
                                       &parameters, &variable, nullptr, nullptr),
            S_OK);
  ASSERT_EQ(V_VT(&variable), VT_BSTR);
  EXPECT_EQ(std::wstring(V_BSTR(&variable)), L"salt");
  VariantClear(&variable);
}

}  // namespace
}  // namespace winetest
