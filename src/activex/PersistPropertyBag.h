#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/PersistRole.h"

namespace activex {

// The control kept as named properties, as forms do that are saved as text.
class PersistPropertyBag final : public PersistRole<IPersistPropertyBag> {
 public:
  using PersistRole::PersistRole;

  HRESULT STDMETHODCALLTYPE InitNew() override;
  // errors may be null.
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* errors) override;
  // Saves every property, since the extent has no default that a later version might not change.
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, WINBOOL clearDirty, WINBOOL) override;
};

}  // namespace activex
