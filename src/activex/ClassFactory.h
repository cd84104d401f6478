#pragma once

#include <windows.h>

#include <unknwn.h>

#include "activex/module.h"

namespace activex {

// Makes controls. One factory lives for each time that it was asked for.
class ClassFactory final : public IClassFactory {
 public:
  static HRESULT create(REFIID iid, void** answer);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** answer) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  ClassFactory() = default;
  ~ClassFactory() = default;

  ULONG references_ = 1;
  ModuleReference module_;
};

}  // namespace activex
