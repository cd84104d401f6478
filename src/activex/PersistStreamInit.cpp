#include "activex/PersistStreamInit.h"

#include "activex/Instance.h"
#include "activex/SavedState.h"
#include "activex/guard.h"

namespace activex {

HRESULT STDMETHODCALLTYPE PersistStreamInit::IsDirty() { return instance_.dirty ? S_OK : S_FALSE; }

HRESULT STDMETHODCALLTYPE PersistStreamInit::Load(IStream* stream) {
  if (stream == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    SavedState::load(instance_, *stream);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::Save(IStream* stream, BOOL clearDirty) {
  if (stream == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const HRESULT saved = SavedState::save(instance_, *stream);
    if (SUCCEEDED(saved) && clearDirty) instance_.saved();
    return saved;
  });
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = SavedState::kStreamSize;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::InitNew() {
  SavedState::initNew(instance_);
  return S_OK;
}

}  // namespace activex
