#include "Dispatch.h"

#include <oleauto.h>

#include <algorithm>
#include <cstdio>

namespace host {

std::string narrow(const std::wstring& text) {
  const int units = static_cast<int>(text.size());
  const int bytes =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), units, result.data(), bytes, nullptr, nullptr);
  return result;
}

std::wstring wide(const std::string& text) {
  const int bytes = static_cast<int>(text.size());
  const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, result.data(), units);
  return result;
}

void require(HRESULT result, const std::string& what) {
  if (SUCCEEDED(result)) return;
  char code[16] = {};
  std::snprintf(code, sizeof code, "%08lX", static_cast<unsigned long>(result));
  throw HostError(result, what + ": error " + code);
}

Value::Value(int number) : Value() {
  V_VT(&variant_) = VT_I4;
  V_I4(&variant_) = number;
}

Value::Value(double number) : Value() {
  V_VT(&variant_) = VT_R8;
  V_R8(&variant_) = number;
}

Value::Value(bool flag) : Value() {
  V_VT(&variant_) = VT_BOOL;
  V_BOOL(&variant_) = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

Value::Value(const std::wstring& text) : Value() {
  V_VT(&variant_) = VT_BSTR;
  V_BSTR(&variant_) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

Value::Value(const Value& other) : Value() { VariantCopy(&variant_, &other.variant_); }

Value& Value::operator=(const Value& other) {
  if (this != &other) VariantCopy(&variant_, &other.variant_);
  return *this;
}

Value Value::as(VARTYPE type) const {
  Value changed;
  require(VariantChangeType(&changed.variant_, &variant_, 0, type), "a value of another type");
  return changed;
}

int Value::number() const {
  const Value integer = as(VT_I4);
  return V_I4(&integer.variant_);
}

bool Value::flag() const {
  const Value flag = as(VT_BOOL);
  return V_BOOL(&flag.variant_) != VARIANT_FALSE;
}

std::wstring Value::text() const {
  const Value text = as(VT_BSTR);
  const BSTR characters = V_BSTR(&text.variant_);
  return characters != nullptr ? std::wstring(characters, SysStringLen(characters))
                               : std::wstring();
}

Object::Object(IUnknown* object) {
  require(object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch_)),
          "the object takes no calls by name");
}

Object::~Object() {
  if (dispatch_ != nullptr) dispatch_->Release();
}

Value Object::call(const wchar_t* name, std::vector<Value> arguments) {
  return invoke(name, DISPATCH_METHOD, std::move(arguments));
}

Value Object::get(const wchar_t* name) { return invoke(name, DISPATCH_PROPERTYGET, {}); }

void Object::put(const wchar_t* name, const Value& value) {
  invoke(name, DISPATCH_PROPERTYPUT, {value});
}

Value Object::invoke(const wchar_t* name, WORD flags, std::vector<Value> arguments) {
  std::wstring wanted = name;
  LPOLESTR names = wanted.data();
  DISPID id = DISPID_UNKNOWN;
  require(dispatch_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), narrow(wanted));

  std::vector<VARIANT> reversed;  // borrowed, last argument first
  std::for_each(arguments.rbegin(), arguments.rend(),
                [&](Value& value) { reversed.push_back(value.variant()); });
  DISPID newValue = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  const bool putting = flags == DISPATCH_PROPERTYPUT;
  if (putting) parameters.rgdispidNamedArgs = &newValue, parameters.cNamedArgs = 1;

  Value result;
  EXCEPINFO exception = {};
  const HRESULT outcome = dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                            putting ? nullptr : &result.variant(), &exception,
                                            nullptr);
  const std::wstring description = exception.bstrDescription != nullptr
                                       ? std::wstring(exception.bstrDescription)
                                       : std::wstring();
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  if (outcome == DISP_E_EXCEPTION) throw HostError(exception.scode, narrow(description));
  require(outcome, narrow(wanted));
  return result;
}

}  // namespace host
