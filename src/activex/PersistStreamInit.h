#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/PersistRole.h"

namespace activex {

// The control kept in a stream, as form designers do.
class PersistStreamInit final : public PersistRole<IPersistStreamInit> {
 public:
  using PersistRole::PersistRole;

  HRESULT STDMETHODCALLTYPE IsDirty() override;
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT STDMETHODCALLTYPE InitNew() override;
};

}  // namespace activex
