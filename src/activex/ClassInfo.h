#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/Role.h"
#include "activex/guard.h"
#include "activex/guids.h"
#include "activex/typeLibrary.h"

namespace activex {

// The description of the class and of its (empty) event interface.
class ClassInfo final : public Role<IProvideClassInfo2> {
 public:
  using Role::Role;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return guarded(object(), [&] {
      ComPtr<ITypeInfo> own;
      const HRESULT loaded = loadTypeInfo(CLSID_KelvaneCtl, own);
      *info = own.detach();
      return loaded;
    });
  }

  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override {
    if (id == nullptr) return E_POINTER;
    const bool events = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID;
    *id = events ? DIID___KelvaneCtl : GUID_NULL;
    return events ? S_OK : E_INVALIDARG;
  }
};

// Tells that run-time errors of the members come with error information.
class SupportErrorInfo final : public Role<ISupportErrorInfo> {
 public:
  using Role::Role;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
    return iid == IID__KelvaneCtl || iid == IID_IDispatch ? S_OK : S_FALSE;
  }
};

}  // namespace activex
