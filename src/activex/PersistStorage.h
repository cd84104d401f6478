#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/PersistRole.h"

namespace activex {

// The control kept in a storage of its own, as compound documents do: one stream, "Contents".
// It holds no storage between calls, since it reads everything when loading and writes everything
// when saving; what is left of the protocol is its order, of which E_UNEXPECTED reminds.
class PersistStorage final : public PersistRole<IPersistStorage> {
 public:
  using PersistRole::PersistRole;

  HRESULT STDMETHODCALLTYPE IsDirty() override;
  // Once, and either of them: then CO_E_ALREADYINITIALIZED.
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, WINBOOL sameAsLoad) override;
  // A null storage means the one that was there before; after HandsOffStorage there is none, and
  // it is E_INVALIDARG. Sinks hear of it when the storage holds all of the control now.
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

 private:
  enum class State { Uninitialized, Normal, NoScribble, HandsOff };

  State state_ = State::Uninitialized;
  // A save to the control's own storage awaits its completion.
  bool savedOwn_ = false;
};

}  // namespace activex
