#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "Dispatch.h"

namespace winetest {

using host::Value;

// A value as languages send it: itself, or by one of the references to it. Copies share what is
// referred to.
class Sent {
 public:
  enum class Way { ByValue, ByReference, ByVariant, ByVariantOfReference };
  static constexpr Way kWays[] = {Way::ByValue, Way::ByReference, Way::ByVariant,
                                  Way::ByVariantOfReference};

  Sent(Value value) : Sent(std::make_shared<Value>(std::move(value)), Way::ByValue) {}
  // The eight bytes of a value of any type that has no more.
  template <class Bits>
  Sent(VARTYPE type, Bits bits) : Sent(Value()) {
    static_assert(sizeof bits <= 8);
    std::memcpy(&V_BYREF(&value_->variant()), &bits, sizeof bits);
    V_VT(&value_->variant()) = type;
  }

  VARIANT& variant() { return sent_->variant(); }
  // The same value, sent in another way.
  Sent by(Way way) const { return {value_, way}; }

 private:
  Sent(std::shared_ptr<Value> value, Way way);

  std::shared_ptr<Value> value_, reference_, sent_;
};

// What became of a call of Invoke.
struct Answer {
  HRESULT code = E_FAIL;
  Value result;
  UINT wrong = kUntouched;  // the argument that was complained of
  HRESULT exception = S_OK;
  std::string source, description;

  static constexpr UINT kUntouched = 99;
};

// Calls Invoke as a language's run time does: arguments in the order of the language, of which
// the last ones may have names.
class Caller {
 public:
  explicit Caller(IUnknown* object) : object_(object) {}

  DISPID id(const std::wstring& name);
  // HRESULT of GetIDsOfNames for a member and parameters.
  HRESULT ids(std::vector<std::wstring> names, std::vector<DISPID>& ids);
  Answer invoke(DISPID id, WORD flags, std::vector<Sent> arguments = {},
                std::vector<DISPID> names = {}, LCID language = LOCALE_USER_DEFAULT);
  Answer call(const std::wstring& name, std::vector<Sent> arguments = {}) {
    return invoke(id(name), DISPATCH_METHOD, std::move(arguments));
  }
  Answer get(const std::wstring& name) { return invoke(id(name), DISPATCH_PROPERTYGET); }
  Answer put(const std::wstring& name, Sent value) {
    return invoke(id(name), DISPATCH_PROPERTYPUT, {std::move(value)}, {DISPID_PROPERTYPUT});
  }

  host::Object& object() { return object_; }
  IDispatch* dispatch() const { return object_.dispatch(); }

 private:
  host::Object object_;
};

}  // namespace winetest
