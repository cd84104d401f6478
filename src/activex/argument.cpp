#include "activex/argument.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <iterator>
#include <limits>

#include "activex/ComPtr.h"

namespace activex {
namespace {

// References to references, and objects whose default property is an object, end somewhere.
constexpr int kDeepest = 8;

bool isPlain(VARTYPE type) {
  constexpr VARTYPE plain[] = {VT_EMPTY, VT_I1,   VT_I2,   VT_I4, VT_I8, VT_INT,
                               VT_UI1,   VT_UI2,  VT_UI4,  VT_UI8, VT_UINT, VT_R4,
                               VT_R8,    VT_CY,   VT_DATE, VT_BOOL, VT_DECIMAL, VT_BSTR};
  return std::find(std::begin(plain), std::end(plain), type) != std::end(plain);
}

// What VT_BYREF | VT_VARIANT leads to; null when it leads nowhere.
const VARIANT* referred(const VARIANT& given) {
  const VARIANT* value = &given;
  for (int step = 0; step < kDeepest && value != nullptr; ++step) {
    if (V_VT(value) != (VT_BYREF | VT_VARIANT)) return value;
    value = V_VARIANTREF(value);
  }
  return nullptr;
}

HRESULT defaultProperty(IUnknown* object, LCID language, OwnedVariant& value) {
  const auto dispatch = ComPtr<IUnknown>(object).as<IDispatch>();
  if (!dispatch) return DISP_E_TYPEMISMATCH;
  DISPPARAMS none = {};
  EXCEPINFO exception = {};
  const HRESULT got =
      dispatch->Invoke(DISPID_VALUE, IID_NULL, language, DISPATCH_PROPERTYGET, &none,
                       value.receive(), &exception, nullptr);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return SUCCEEDED(got) ? S_OK : DISP_E_TYPEMISMATCH;
}

// A number, a text, or nothing.
HRESULT plainValue(const VARIANT& given, LCID language, OwnedVariant& value, int depth = 0) {
  const VARIANT* const source = referred(given);
  if (source == nullptr) return DISP_E_TYPEMISMATCH;
  const bool reference = (V_VT(source) & VT_BYREF) != 0;
  const auto type = static_cast<VARTYPE>(V_VT(source) & ~VT_BYREF);
  if (reference && V_BYREF(source) == nullptr) return DISP_E_TYPEMISMATCH;
  switch (type) {
    case VT_ERROR: {
      const SCODE code = reference ? *V_ERRORREF(source) : V_ERROR(source);
      return code == DISP_E_PARAMNOTFOUND ? DISP_E_PARAMNOTOPTIONAL : DISP_E_TYPEMISMATCH;
    }
    case VT_DISPATCH:
    case VT_UNKNOWN: {
      if (depth == kDeepest) return DISP_E_TYPEMISMATCH;
      OwnedVariant property;
      const HRESULT got = defaultProperty(reference ? *V_UNKNOWNREF(source) : V_UNKNOWN(source),
                                          language, property);
      return FAILED(got) ? got : plainValue(property.get(), language, value, depth + 1);
    }
    case VT_NULL:
    case VT_RECORD:
      return DISP_E_TYPEMISMATCH;
    default:
      if ((type & VT_ARRAY) != 0) return DISP_E_TYPEMISMATCH;
      // The call only reads its source, whatever its parameter's type says.
      return isPlain(type) ? VariantCopyInd(value.receive(), const_cast<VARIANT*>(source))
                           : DISP_E_BADVARTYPE;
  }
}

bool isNotANumber(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_R4: return std::isnan(V_R4(&value));
    case VT_R8: return std::isnan(V_R8(&value));
    case VT_DATE: return std::isnan(V_DATE(&value));
    default: return false;
  }
}

HRESULT changeType(const VARIANT& value, VARTYPE wanted, LCID language, OwnedVariant& taken) {
  return VariantChangeTypeEx(taken.receive(), const_cast<VARIANT*>(&value), language, 0, wanted);
}

// "&H80000005", as Basic writes colours.
bool isHexadecimal(const VARIANT& value) {
  return V_VT(&value) == VT_BSTR && V_BSTR(&value) != nullptr &&
         std::wcschr(V_BSTR(&value), L'&') != nullptr;
}

// A whole number from least to most. Systems' own changes to integers let some pass that are too
// large.
HRESULT wholeNumber(const VARIANT& value, LCID language, double least, double most,
                    int64_t& whole) {
  OwnedVariant integer, number;
  HRESULT changed = S_OK;
  // With the highest bit set, only an integer type has room for it.
  const bool hexadecimal = isHexadecimal(value);
  if (hexadecimal) changed = changeType(value, VT_I8, language, integer);
  if (SUCCEEDED(changed)) {
    changed = changeType(hexadecimal ? integer.get() : value, VT_R8, language, number);
  }
  if (FAILED(changed)) return changed;
  const double rounded = std::nearbyint(V_R8(&number.get()));  // half to even
  if (!(rounded >= least && rounded <= most)) return DISP_E_OVERFLOW;
  whole = static_cast<int64_t>(rounded);
  return S_OK;
}

HRESULT takeLong(const VARIANT& value, LCID language, OwnedVariant& taken) {
  int64_t whole = 0;
  using Limits = std::numeric_limits<int32_t>;
  const HRESULT found = wholeNumber(value, language, Limits::min(), Limits::max(), whole);
  V_VT(taken.receive()) = VT_I4;
  V_I4(&taken.get()) = static_cast<int32_t>(whole);
  return found;
}

HRESULT takeColour(const VARIANT& value, LCID language, OwnedVariant& taken) {
  int64_t whole = 0;
  const HRESULT found = wholeNumber(value, language, std::numeric_limits<int32_t>::min(),
                                    std::numeric_limits<uint32_t>::max(), whole);
  V_VT(taken.receive()) = VT_UI4;
  V_UI4(&taken.get()) = static_cast<uint32_t>(whole);
  return found;
}

// What is not a number passes as a single, which a function may well be asked to judge.
HRESULT takeSingle(const VARIANT& value, LCID language, OwnedVariant& taken) {
  if (!isNotANumber(value)) return changeType(value, VT_R4, language, taken);
  V_VT(taken.receive()) = VT_R4;
  V_R4(&taken.get()) = std::numeric_limits<float>::quiet_NaN();
  return S_OK;
}

}  // namespace

HRESULT takeArgument(const VARIANT& given, VARTYPE wanted, LCID language, OwnedVariant& taken) {
  if (!IsValidLocale(language, LCID_INSTALLED)) language = LOCALE_USER_DEFAULT;
  OwnedVariant value;
  const HRESULT found = plainValue(given, language, value);
  if (FAILED(found)) return found;
  switch (wanted) {
    case VT_I4: return takeLong(value.get(), language, taken);
    case VT_UI4: return takeColour(value.get(), language, taken);
    case VT_R4: return takeSingle(value.get(), language, taken);
    default: return changeType(value.get(), wanted, language, taken);
  }
}

}  // namespace activex
