#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/Role.h"
#include "activex/guids.h"

namespace activex {

struct Instance;

// One of the ways of keeping the control; what is kept is the same by all of them.
template <class Interface>
class PersistRole : public Role<Interface> {
 public:
  PersistRole(IUnknown& object, Instance& instance)
      : Role<Interface>(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override {
    if (id == nullptr) return E_POINTER;
    *id = CLSID_KelvaneCtl;
    return S_OK;
  }

 protected:
  ~PersistRole() = default;
  Instance& instance_;
};

}  // namespace activex
