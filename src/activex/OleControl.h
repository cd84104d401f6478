#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/Instance.h"
#include "activex/Role.h"
#include "activex/guard.h"

namespace activex {

// What makes an embedded object a control: it heeds its surroundings. It has no keys of its own,
// and no events to freeze, however often that is asked for.
class OleControl final : public Role<IOleControl> {
 public:
  OleControl(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override {
    if (info == nullptr) return E_POINTER;
    *info = {sizeof(CONTROLINFO), nullptr, 0, 0};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return S_OK; }
  // Only what stands for the picture in a form's design has to do with the surroundings; it is
  // drawn anew. The properties themselves are asked for whenever they are needed.
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) override {
    return guarded(object(), [&] {
      if (!instance_.drawn) instance_.viewChanged();
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }

 private:
  Instance& instance_;
};

}  // namespace activex
