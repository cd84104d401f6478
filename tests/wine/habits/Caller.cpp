#include "Caller.h"

#include <oleauto.h>

#include <algorithm>

namespace winetest {
namespace {

std::string taken(BSTR text) {
  const std::string result = text != nullptr ? host::narrow(text) : std::string();
  SysFreeString(text);
  return result;
}

// What the members of a variant's union have in common is where they begin; a decimal number
// is the whole variant.
void* dataOf(VARIANT& value) {
  if (V_VT(&value) == VT_DECIMAL) return &value;
  return &V_BYREF(&value);
}

}  // namespace

Sent::Sent(std::shared_ptr<Value> value, Way way)
    : value_(std::move(value)),
      reference_(std::make_shared<Value>()),
      sent_(std::make_shared<Value>()) {
  VARIANT& reference = reference_->variant();
  V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | value_->type());
  V_BYREF(&reference) = dataOf(value_->variant());
  V_VT(&sent_->variant()) = VT_BYREF | VT_VARIANT;
  switch (way) {
    case Way::ByValue: sent_ = value_; break;
    case Way::ByReference: sent_ = reference_; break;
    case Way::ByVariant: V_VARIANTREF(&sent_->variant()) = &value_->variant(); break;
    case Way::ByVariantOfReference: V_VARIANTREF(&sent_->variant()) = &reference; break;
  }
}

DISPID Caller::id(const std::wstring& name) {
  std::vector<DISPID> found;
  ids({name}, found);
  return found[0];
}

HRESULT Caller::ids(std::vector<std::wstring> names, std::vector<DISPID>& ids) {
  std::vector<LPOLESTR> pointers;
  for (std::wstring& name : names) pointers.push_back(name.data());
  ids.assign(names.size(), 12345);
  return dispatch()->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(names.size()),
                                   LOCALE_USER_DEFAULT, ids.data());
}

Answer Caller::invoke(DISPID id, WORD flags, std::vector<Sent> arguments,
                      std::vector<DISPID> names, LCID language) {
  std::vector<VARIANT> reversed;  // borrowed
  std::for_each(arguments.rbegin(), arguments.rend(),
                [&](Sent& argument) { reversed.push_back(argument.variant()); });
  std::reverse(names.begin(), names.end());
  DISPPARAMS parameters = {reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                           static_cast<UINT>(names.size())};
  Answer answer;
  EXCEPINFO exception = {};
  answer.code = dispatch()->Invoke(id, IID_NULL, language, flags, &parameters,
                                   &answer.result.variant(), &exception, &answer.wrong);
  answer.exception = exception.scode;
  answer.source = taken(exception.bstrSource);
  answer.description = taken(exception.bstrDescription);
  taken(exception.bstrHelpFile);
  return answer;
}

}  // namespace winetest
