#pragma once

#include <windows.h>

#include <ocidl.h>

#include "activex/Role.h"

namespace activex {

struct Instance;

// What a form keeps of the control: its extent. A stream is four little-endian numbers of 32
// bits: a mark, the version of the layout, width and height in hundredths of a millimetre.
// Streams that are short, foreign or from a later version leave the control as it is.
class PersistStreamInit final : public Role<IPersistStreamInit> {
 public:
  PersistStreamInit(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override;
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT STDMETHODCALLTYPE InitNew() override;

 private:
  Instance& instance_;
};

}  // namespace activex
