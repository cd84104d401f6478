#include "activex/PersistPropertyBag.h"

#include "activex/Instance.h"
#include "activex/SavedState.h"
#include "activex/guard.h"

namespace activex {

HRESULT STDMETHODCALLTYPE PersistPropertyBag::InitNew() {
  SavedState::initNew(instance_);
  return S_OK;
}

HRESULT STDMETHODCALLTYPE PersistPropertyBag::Load(IPropertyBag* bag, IErrorLog* errors) {
  if (bag == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    SavedState::load(instance_, *bag, errors);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE PersistPropertyBag::Save(IPropertyBag* bag, WINBOOL clearDirty, WINBOOL) {
  if (bag == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const HRESULT saved = SavedState::save(instance_, *bag);
    if (SUCCEEDED(saved) && clearDirty) instance_.saved();
    return saved;
  });
}

}  // namespace activex
