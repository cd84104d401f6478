#include <gtest/gtest.h>

#include <olectl.h>

#include <cstdint>
#include <limits>

#include "Dispatch.h"
#include "control.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

using host::ComOwner;
using host::HostError;
using host::Object;
using host::Value;

constexpr HRESULT kOverflowError = static_cast<HRESULT>(0x800A0006);

class Dispatch : public testing::Test {
 protected:
  HRESULT failure(const wchar_t* name, std::vector<Value> arguments) {
    try {
      object_.call(name, std::move(arguments));
      return S_OK;
    } catch (const HostError& error) {
      text_ = error.what();
      return error.code();
    }
  }

  BareControl control_;
  Object object_{control_.identity()};
  std::string text_;
};

TEST_F(Dispatch, GivesTheTypesOfTheResults) {
  EXPECT_EQ(object_.call(L"NcFile", {L""}).type(), VT_I2);
  EXPECT_EQ(object_.call(L"KewFile", {L""}).type(), VT_I2);
  EXPECT_EQ(object_.call(L"EndSection").type(), VT_I2);
  EXPECT_EQ(object_.call(L"SetVarByName", {L"x"}).type(), VT_I2);
  EXPECT_EQ(object_.call(L"SetVarByOrder", {7}).type(), VT_I2);
  EXPECT_EQ(object_.get(L"ErrorMessage").type(), VT_BSTR);
  EXPECT_EQ(object_.get(L"NumDrawAbleItems").type(), VT_I4);
  EXPECT_EQ(object_.call(L"ItemName", {1}).type(), VT_BSTR);
  EXPECT_EQ(object_.get(L"DrawProfile").type(), VT_BOOL);
  EXPECT_EQ(object_.get(L"DrawVerticalSection").type(), VT_BOOL);
  EXPECT_EQ(object_.call(L"Draw").type(), VT_EMPTY);
  EXPECT_EQ(object_.call(L"AdvanceTime", {0}).type(), VT_I4);
  EXPECT_EQ(object_.call(L"ReDraw").type(), VT_EMPTY);
  EXPECT_EQ(object_.get(L"UseColorKey").type(), VT_BOOL);
  for (const wchar_t* name : {L"NewSection", L"NewColorKey", L"InitColorKey"}) {
    EXPECT_EQ(object_.call(name).type(), VT_EMPTY) << host::narrow(name);
  }
}

TEST_F(Dispatch, TakesAnyTypeThatIsANumber) {
  VARIANT referred = {};
  V_VT(&referred) = VT_I2;
  V_I2(&referred) = 1;
  Value reference;
  V_VT(&reference.variant()) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference.variant()) = &referred;
  for (const Value& value : {Value(1), Value(1.4), Value(L"1"), Value(true), reference}) {
    EXPECT_EQ(failure(L"ItemName", {value}), S_OK) << value.type();
    EXPECT_EQ(failure(L"AddSection", {value, value}), S_OK) << value.type();
  }
}

TEST_F(Dispatch, RefusesOtherCalls) {
  EXPECT_EQ(failure(L"NewSection", {1}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(failure(L"ItemName", {1, 2}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(failure(L"AddSection", {1}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(failure(L"ItemName", {L"abc"}), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(failure(L"ItemName", {1e300}), DISP_E_OVERFLOW);
  EXPECT_EQ(failure(L"NoSuchMember", {}), DISP_E_UNKNOWNNAME);
  EXPECT_THROW(object_.put(L"NumDrawAbleItems", 3), HostError);
  DISPPARAMS none = {};
  EXPECT_EQ(object_.dispatch()->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr,
                                       nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(object_.dispatch()->Invoke(999, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr,
                                       nullptr),
            DISP_E_MEMBERNOTFOUND);
  // Stock properties, which hosts try on every control.
  EXPECT_EQ(object_.dispatch()->Invoke(DISPID_BACKCOLOR, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                       nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(Dispatch, RaisesRunTimeErrorsInTheHost) {
  object_.call(L"SetCurrentTime", {std::numeric_limits<int>::max()});
  EXPECT_EQ(failure(L"AdvanceTime", {1}), kOverflowError);
  EXPECT_EQ(text_, "Overflow");
  // What overflowed is as it was.
  EXPECT_EQ(object_.call(L"AdvanceTime", {-1}).number(), 1);
}

TEST_F(Dispatch, GivesErrorInformationToEarlyBoundCallers) {
  control_.members()->SetCurrentTime(std::numeric_limits<int>::max());
  VARIANT result;
  VariantInit(&result);
  ASSERT_EQ(control_.members()->AdvanceTime(1, &result), kOverflowError);
  EXPECT_EQ(V_VT(&result), VT_EMPTY);
  ComOwner<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.receive()), S_OK);
  Value source, description;
  V_VT(&source.variant()) = V_VT(&description.variant()) = VT_BSTR;
  info->GetSource(&V_BSTR(&source.variant()));
  info->GetDescription(&V_BSTR(&description.variant()));
  EXPECT_EQ(host::narrow(source.text()), "KelvaneCtl");
  EXPECT_EQ(host::narrow(description.text()), "Overflow");
  ComOwner<ISupportErrorInfo> support;
  ASSERT_NE(control_.as(support), nullptr);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_KelvaneCtl)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
}

TEST_F(Dispatch, RefusesNullPlacesForResults) {
  EXPECT_EQ(control_.members()->NcFile(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(control_.members()->EndSection(nullptr), E_POINTER);
  EXPECT_EQ(control_.members()->AdvanceTime(1, nullptr), E_POINTER);
  EXPECT_EQ(control_.members()->get_ErrorMessage(nullptr), E_POINTER);
  EXPECT_EQ(control_.members()->ItemName(1, nullptr), E_POINTER);
  EXPECT_EQ(control_.members()->get_UseColorKey(nullptr), E_POINTER);
  EXPECT_EQ(object_.dispatch()->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(object_.dispatch()->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr,
                                       nullptr),
            E_POINTER);
}

// Hosts with traps for floating-point errors must neither be trapped by a call nor lose them.
TEST_F(Dispatch, LeavesTheFloatingPointEnvironmentAlone) {
  const support::TempFolder folder;
  support::makeTinySet(folder.file("tiny.nc"));
  const uint16_t trapping = 0x1372;  // as one family of hosts has it
  const uint32_t trappingSse = 0x1F80 & ~0x0680U;
  uint16_t before = 0, after = 0;
  uint32_t beforeSse = 0, afterSse = 0;
  __asm__ __volatile__("fnstcw %0" : "=m"(before));
  __asm__ __volatile__("stmxcsr %0" : "=m"(beforeSse));
  const std::wstring file = host::wide(folder.file("tiny.nc"));
  const BSTR name = SysAllocString(file.c_str());
  VARIANT result;
  VariantInit(&result);
  __asm__ __volatile__("fldcw %0" : : "m"(trapping));
  __asm__ __volatile__("ldmxcsr %0" : : "m"(trappingSse));
  control_.members()->NcFile(name, &result);
  control_.members()->AddSection(std::numeric_limits<float>::quiet_NaN(), 0);
  control_.members()->AddSection(354.5F, 0.4F);
  control_.members()->AddSection(1e38F, -1e38F);
  control_.members()->EndSection(&result);
  control_.members()->Draw(&result);
  __asm__ __volatile__("fnstcw %0" : "=m"(after));
  __asm__ __volatile__("stmxcsr %0" : "=m"(afterSse));
  __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(before));
  __asm__ __volatile__("ldmxcsr %0" : : "m"(beforeSse));
  SysFreeString(name);
  EXPECT_EQ(after, trapping);
  EXPECT_EQ(afterSse, trappingSse);
}

}  // namespace
}  // namespace winetest
