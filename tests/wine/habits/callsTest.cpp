#include <olectl.h>

#include <algorithm>
#include <cctype>
#include <vector>

#include "Habits.h"

// Names, numbers and kinds of calls.
namespace winetest {
namespace {

constexpr WORD kMethod = DISPATCH_METHOD, kGet = DISPATCH_PROPERTYGET,
               kPut = DISPATCH_PROPERTYPUT, kPutReference = DISPATCH_PROPERTYPUTREF;

TEST_F(Habits, PropertiesAreCalledLikeMethodsAndMethodsReadLikeProperties) {
  for (const WORD flags : {kMethod, kGet, WORD(kMethod | kGet)}) {
    Answer answer = caller_.invoke(caller_.id(L"NumDrawAbleItems"), flags);
    EXPECT_EQ(answer.code, S_OK) << flags;
    EXPECT_EQ(answer.result.type(), VT_I4);
    EXPECT_EQ(answer.result.number(), 2);
    answer = caller_.invoke(caller_.id(L"ItemName"), flags, {Sent(1)});
    EXPECT_EQ(answer.code, S_OK) << flags;
    EXPECT_EQ(answer.result.text(), L"temp");
    answer = caller_.invoke(caller_.id(L"EndSection"), flags);
    EXPECT_EQ(answer.code, S_OK) << flags;
    EXPECT_EQ(answer.result.number(), 1);
    answer = caller_.invoke(caller_.id(L"Draw"), flags);
    EXPECT_EQ(answer.code, S_OK) << flags;
    EXPECT_EQ(answer.result.type(), VT_EMPTY);
    answer = caller_.invoke(caller_.id(L"DrawProfile"), flags);
    EXPECT_EQ(answer.result.type(), VT_BOOL) << flags;
  }
}

TEST_F(Habits, PropertiesAreLetWithAndWithoutTheNameOfTheNewValue) {
  const DISPID id = caller_.id(L"DrawProfile");
  for (const WORD flags : {kPut, WORD(kPut | kPutReference), WORD(kPut | kMethod)}) {
    for (const bool named : {true, false}) {
      object_.put(L"DrawProfile", false);
      const Answer answer =
          caller_.invoke(id, flags, {Sent(Value(true))},
                         named ? std::vector<DISPID>{DISPID_PROPERTYPUT} : std::vector<DISPID>{});
      EXPECT_EQ(answer.code, S_OK) << flags << named;
      EXPECT_EQ(answer.result.type(), VT_EMPTY);
      EXPECT_TRUE(object_.get(L"DrawProfile").flag()) << flags << named;
    }
  }
  EXPECT_EQ(caller_.invoke(id, kPut).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(caller_.invoke(id, kPut, {Sent(1), Sent(2)}, {DISPID_PROPERTYPUT}).code,
            DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(caller_.invoke(id, kPutReference, {Sent(1)}, {DISPID_PROPERTYPUT}).code,
            DISP_E_MEMBERNOTFOUND);
  // Of these there is nothing to be let.
  for (const wchar_t* name : {L"NumDrawAbleItems", L"ErrorMessage", L"Draw", L"NcFile"}) {
    EXPECT_EQ(caller_.put(name, Sent(1)).code, DISP_E_MEMBERNOTFOUND) << host::narrow(name);
  }
}

TEST_F(Habits, ArgumentsHaveNames) {
  std::vector<DISPID> ids;
  ASSERT_EQ(caller_.ids({L"AddColorKey", L"vLow", L"COL", L"vhig"}, ids), S_OK);
  EXPECT_EQ(ids, (std::vector<DISPID>{6, 0, 2, 1}));
  ASSERT_EQ(caller_.ids({L"AddSection", L"Y", L"x"}, ids), S_OK);
  EXPECT_EQ(ids, (std::vector<DISPID>{5, 1, 0}));
  EXPECT_EQ(caller_.ids({L"AddSection", L"x", L"nosuch", L"y"}, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids, (std::vector<DISPID>{5, 0, DISPID_UNKNOWN, 1}));
  EXPECT_EQ(caller_.ids({L"nosuch", L"x"}, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids, (std::vector<DISPID>{DISPID_UNKNOWN, DISPID_UNKNOWN}));
  // The result is none.
  EXPECT_EQ(caller_.ids({L"NcFile", L"result"}, ids), DISP_E_UNKNOWNNAME);
}

TEST_F(Habits, ArgumentsArriveByNameInAnyOrder) {
  const DISPID id = caller_.id(L"AddColorKey");
  const Sent low(-1000), high(7), red(255);
  const auto picture = [&](std::vector<Sent> arguments, std::vector<DISPID> names) {
    object_.call(L"NewColorKey");
    EXPECT_EQ(caller_.invoke(id, kMethod, std::move(arguments), std::move(names)).code, S_OK);
    object_.put(L"UseColorKey", true);
    object_.call(L"ReDraw");
    return plain();
  };
  const host::Picture expected = keyPicture(high, red);
  EXPECT_TRUE(picture({low, high, red}, {0, 1, 2}) == expected);
  EXPECT_TRUE(picture({red, high, low}, {2, 1, 0}) == expected);
  EXPECT_TRUE(picture({high, red, low}, {1, 2, 0}) == expected);
  EXPECT_TRUE(picture({low, red, high}, {2, 1}) == expected);
  EXPECT_TRUE(picture({low, high, red}, {2}) == expected);

  const struct {
    std::vector<DISPID> names;
    HRESULT code;
    UINT wrong;
  } rows[] = {{{0, 1, 3}, DISP_E_PARAMNOTFOUND, 0},
              {{0, 1, 1}, DISP_E_PARAMNOTFOUND, 1},
              {{0}, DISP_E_PARAMNOTFOUND, 0},  // the first is there by its place already
              {{-1}, DISP_E_PARAMNOTFOUND, 0},
              {{DISPID_PROPERTYPUT}, DISP_E_PARAMNOTFOUND, 0},
              {{1 << 30, 0, 1}, DISP_E_PARAMNOTFOUND, 2}};
  for (const auto& row : rows) {
    const Answer answer = caller_.invoke(id, kMethod, {low, high, red}, row.names);
    EXPECT_EQ(answer.code, row.code) << &row - rows;
    EXPECT_EQ(answer.wrong, row.wrong) << &row - rows;
  }
  EXPECT_EQ(caller_.invoke(id, kMethod, {low, red}, {0, 2}).code, DISP_E_BADPARAMCOUNT);
}

TEST_F(Habits, NamesMayBeWrittenInAnyCase) {
  for (const wchar_t* name : {L"ncfile", L"NCFILE", L"NcFile", L"nCfILE"}) {
    EXPECT_EQ(caller_.id(name), 2) << host::narrow(name);
  }
  for (const wchar_t* name : {L"", L" NcFile", L"NcFile ", L"NcFil", L"NcFile2", L"N\u0441File"}) {
    std::vector<DISPID> ids;
    EXPECT_EQ(caller_.ids({name}, ids), DISP_E_UNKNOWNNAME) << host::narrow(name);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
  }
  DISPID id = 1;
  LPOLESTR none = nullptr;
  EXPECT_EQ(caller_.dispatch()->GetIDsOfNames(IID_NULL, &none, 1, 0, &id), E_INVALIDARG);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(caller_.dispatch()->GetIDsOfNames(IID_NULL, &none, 0, 0, &id), E_INVALIDARG);
  EXPECT_EQ(caller_.dispatch()->GetIDsOfNames(IID_IUnknown, &none, 1, 0, &id),
            DISP_E_UNKNOWNINTERFACE);
}

// A script could end the control with them.
TEST_F(Habits, InheritedFunctionsAreNoMembers) {
  for (const wchar_t* name : {L"QueryInterface", L"AddRef", L"Release", L"GetTypeInfoCount",
                              L"GetTypeInfo", L"GetIDsOfNames", L"Invoke"}) {
    EXPECT_EQ(caller_.id(name), DISPID_UNKNOWN) << host::narrow(name);
  }
  for (DISPID id = 0x60000000; id < 0x60000003; ++id) {
    EXPECT_EQ(caller_.invoke(id, kMethod).code, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(caller_.invoke(id + 0x10000, kMethod).code, DISP_E_MEMBERNOTFOUND);
  }
}

// Standard members that hosts try on every control, and numbers out of the blue.
TEST_F(Habits, OtherNumbersAreNoMembers) {
  for (const DISPID id : std::vector<DISPID>
       {DISPID_VALUE, DISPID_UNKNOWN, DISPID_PROPERTYPUT, DISPID_NEWENUM, DISPID_EVALUATE,
        DISPID_CONSTRUCTOR, DISPID_DESTRUCTOR, DISPID_COLLECT, DISPID_BACKCOLOR, DISPID_FORECOLOR,
        DISPID_FONT, DISPID_ENABLED, DISPID_HWND, DISPID_CAPTION, DISPID_TEXT, DISPID_REFRESH,
        DISPID_ABOUTBOX, DISPID_READYSTATE, DISPID{22}, DISPID{0x7FFFFFFF},
        DISPID{-0x7FFFFFFF - 1}}) {
    for (const WORD flags : {kMethod, kGet, WORD(kMethod | kGet), kPut, kPutReference, WORD{0},
                             WORD{0x4000}}) {
      EXPECT_EQ(caller_.invoke(id, flags).code, DISP_E_MEMBERNOTFOUND) << id << " " << flags;
    }
  }
  for (DISPID id = 1; id <= 21; ++id) {
    EXPECT_EQ(caller_.invoke(id, 0).code, DISP_E_MEMBERNOTFOUND) << id;
    EXPECT_EQ(caller_.invoke(id, 0x4000).code, DISP_E_MEMBERNOTFOUND) << id;
  }
}

TEST_F(Habits, FailuresTellCodeSourceAndText) {
  object_.call(L"SetCurrentTime", {std::numeric_limits<int>::max()});
  const Answer answer = caller_.call(L"AdvanceTime", {Sent(1)});
  EXPECT_EQ(answer.code, DISP_E_EXCEPTION);
  EXPECT_EQ(answer.exception, static_cast<HRESULT>(0x800A0006));
  EXPECT_EQ(answer.source, "KelvaneCtl");
  EXPECT_EQ(answer.description, "Overflow");
  EXPECT_EQ(answer.result.type(), VT_EMPTY);
  object_.call(L"SetCurrentTime", {1});
}

}  // namespace
}  // namespace winetest
