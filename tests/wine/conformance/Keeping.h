#pragma once

#include <gtest/gtest.h>
#include <ocidl.h>

#include <map>
#include <string>
#include <vector>

#include "Dispatch.h"
#include "control.h"

namespace winetest {

using host::ComOwner;
using host::Value;

// Properties by name, as a form's text has them. Lives as long as its test.
class Bag final : public IPropertyBag {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** answer) override {
    *answer = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
    const auto found = values.find(name);
    if (found == values.end()) return E_INVALIDARG;
    return VariantCopy(value, &found->second.variant());
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override {
    if (static_cast<int>(values.size()) >= room) return E_OUTOFMEMORY;
    return VariantCopy(&values[name].variant(), value);
  }

  virtual ~Bag() = default;
  ULONG references = 1;
  int room = 100;
  std::map<std::wstring, Value> values;
};

class ErrorLog final : public IErrorLog {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** answer) override {
    *answer = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR name, EXCEPINFO* error) override {
    names.emplace_back(name);
    EXPECT_TRUE(FAILED(error->scode));
    EXPECT_GT(SysStringLen(error->bstrDescription), 0U);
    EXPECT_GT(SysStringLen(error->bstrSource), 0U);
    return S_OK;
  }

  virtual ~ErrorLog() = default;
  ULONG references = 1;
  std::vector<std::wstring> names;
};

template <class Interface>
class Keeping : public testing::Test {
 protected:
  Keeping() { control_.as(persist_); }

  SIZEL extent() {
    SIZEL extent = {};
    control_.ole()->GetExtent(DVASPECT_CONTENT, &extent);
    return extent;
  }
  void setExtent(LONG cx, LONG cy) {
    SIZEL extent = {cx, cy};
    ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  }
  void expectExtent(LONG cx, LONG cy) {
    EXPECT_EQ(extent().cx, cx);
    EXPECT_EQ(extent().cy, cy);
  }
  // Every way of keeping the control tells the same.
  bool dirty() {
    ComOwner<IPersistStreamInit> stream;
    ComOwner<IPersistStorage> storage;
    const bool one = control_.as(stream)->IsDirty() == S_OK;
    EXPECT_EQ(control_.as(storage)->IsDirty(), one ? S_OK : S_FALSE);
    return one;
  }

  BareControl control_;
  ComOwner<Interface> persist_;
};

}  // namespace winetest
