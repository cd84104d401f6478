#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/Role.h"

namespace activex {

// The control has no accelerators, takes no ambient properties, and has no events to freeze.
class OleControl final : public Role<IOleControl> {
 public:
  using Role::Role;

  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override {
    if (info == nullptr) return E_POINTER;
    *info = {sizeof(CONTROLINFO), nullptr, 0, 0};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }
};

}  // namespace activex
