#pragma once

#include <windows.h>

#include <ole2.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "activex/module.h"

namespace activex {

// A list of data formats for one caller to walk through, independent of the control it is from.
class FormatEnumerator final : public IEnumFORMATETC {
 public:
  // The caller owns the one reference.
  explicit FormatEnumerator(std::vector<FORMATETC> formats) : formats_(std::move(formats)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE Next(ULONG count, FORMATETC* formats, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumFORMATETC** clone) override;

 private:
  ~FormatEnumerator() = default;

  ULONG references_ = 1;
  ModuleReference module_;
  const std::vector<FORMATETC> formats_;
  std::size_t next_ = 0;
};

}  // namespace activex
