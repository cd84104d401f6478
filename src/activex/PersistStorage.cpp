#include "activex/PersistStorage.h"

#include "activex/ComPtr.h"
#include "activex/Instance.h"
#include "activex/SavedState.h"
#include "activex/guard.h"

namespace activex {
namespace {

constexpr wchar_t kStream[] = L"Contents";
constexpr DWORD kToRead = STGM_READ | STGM_SHARE_EXCLUSIVE;
constexpr DWORD kToWrite = STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE;

}  // namespace

HRESULT STDMETHODCALLTYPE PersistStorage::IsDirty() { return instance_.dirty ? S_OK : S_FALSE; }

HRESULT STDMETHODCALLTYPE PersistStorage::InitNew(IStorage* storage) {
  if (storage == nullptr) return E_POINTER;
  if (state_ != State::Uninitialized) return CO_E_ALREADYINITIALIZED;
  SavedState::initNew(instance_);
  state_ = State::Normal;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE PersistStorage::Load(IStorage* storage) {
  if (storage == nullptr) return E_POINTER;
  if (state_ != State::Uninitialized) return CO_E_ALREADYINITIALIZED;
  return guarded(object(), [&]() -> HRESULT {
    ComPtr<IStream> stream;
    const HRESULT opened = storage->OpenStream(kStream, nullptr, kToRead, 0, stream.receive());
    // A storage without the stream is as good as one with a foreign stream.
    if (FAILED(opened) && opened != STG_E_FILENOTFOUND) return opened;
    if (stream) {
      SavedState::load(instance_, *stream.get());
    } else {
      SavedState::initNew(instance_);
    }
    state_ = State::Normal;
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE PersistStorage::Save(IStorage* storage, WINBOOL sameAsLoad) {
  if (storage == nullptr) return E_POINTER;
  if (state_ != State::Normal) return E_UNEXPECTED;
  return guarded(object(), [&] {
    ComPtr<IStream> stream;
    HRESULT saved = storage->CreateStream(kStream, kToWrite, 0, 0, stream.receive());
    if (SUCCEEDED(saved)) saved = SavedState::save(instance_, *stream.get());
    if (FAILED(saved)) return saved;
    savedOwn_ = sameAsLoad != FALSE;
    state_ = State::NoScribble;
    return saved;
  });
}

HRESULT STDMETHODCALLTYPE PersistStorage::SaveCompleted(IStorage* storage) {
  if (state_ != State::NoScribble && state_ != State::HandsOff) return E_UNEXPECTED;
  if (state_ == State::HandsOff && storage == nullptr) return E_INVALIDARG;
  return guarded(object(), [&] {
    // A save to another storage that becomes the control's own is as good as one to its own.
    const bool kept = savedOwn_ || (storage != nullptr && state_ == State::NoScribble);
    state_ = State::Normal;
    savedOwn_ = false;
    if (kept) instance_.saved();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE PersistStorage::HandsOffStorage() {
  if (state_ != State::Normal && state_ != State::NoScribble) return E_UNEXPECTED;
  state_ = State::HandsOff;
  return S_OK;
}

}  // namespace activex
