#include "ValueObject.h"

#include <oleauto.h>

namespace winetest {
namespace {

int alive = 0;

class ValueObject final : public IDispatch {
 public:
  explicit ValueObject(const host::Value& content) : content_(content) { ++alive; }
  virtual ~ValueObject() { --alive; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override {
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
    *answer = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    if (id != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
    if (action) action();
    if (broken) {
      if (exception != nullptr) exception->bstrDescription = SysAllocString(L"broken");
      return DISP_E_EXCEPTION;
    }
    if (endless) {
      V_VT(result) = VT_DISPATCH;
      V_DISPATCH(result) = this;
      AddRef();
      return S_OK;
    }
    return VariantCopy(result, &content_.variant());
  }

  bool endless = false, broken = false;
  std::function<void()> action;

 private:
  ULONG references_ = 0;
  host::Value content_;
};

host::Value valueOf(ValueObject* object, VARTYPE type) {
  host::Value value;
  V_VT(&value.variant()) = type;
  V_DISPATCH(&value.variant()) = object;
  object->AddRef();
  return value;
}

}  // namespace

host::Value objectOf(const host::Value& content) {
  return valueOf(new ValueObject(content), VT_DISPATCH);
}

host::Value unknownOf(const host::Value& content) {
  return valueOf(new ValueObject(content), VT_UNKNOWN);
}

host::Value endlessObject() {
  auto* object = new ValueObject({});
  object->endless = true;
  return valueOf(object, VT_DISPATCH);
}

host::Value actingObject(std::function<void()> action) {
  auto* object = new ValueObject(1);
  object->action = std::move(action);
  return valueOf(object, VT_DISPATCH);
}

host::Value brokenObject() {
  auto* object = new ValueObject({});
  object->broken = true;
  return valueOf(object, VT_DISPATCH);
}

int valueObjects() { return alive; }

}  // namespace winetest
