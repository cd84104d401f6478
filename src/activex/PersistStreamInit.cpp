#include "activex/PersistStreamInit.h"

#include <array>
#include <cstdint>

#include "activex/Instance.h"
#include "activex/guard.h"
#include "activex/guids.h"

namespace activex {
namespace {

using Record = std::array<int32_t, 4>;
constexpr int32_t kMark = 0x4E564C4B;  // "KLVN"
constexpr int32_t kLayout = 1;

// The whole record, or false: a stream may give its bytes in pieces and end anywhere.
bool read(IStream& stream, Record& record) {
  auto* bytes = reinterpret_cast<std::uint8_t*>(record.data());
  ULONG have = 0;
  while (have < sizeof record) {
    ULONG got = 0;
    const HRESULT result =
        stream.Read(bytes + have, static_cast<ULONG>(sizeof record) - have, &got);
    if (FAILED(result) || got == 0) return false;
    have += got;
  }
  return true;
}

}  // namespace

HRESULT STDMETHODCALLTYPE PersistStreamInit::GetClassID(CLSID* id) {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_KelvaneCtl;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::IsDirty() {
  return instance_.dirty ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::Load(IStream* stream) {
  if (stream == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    Record record = {};
    const bool ours = read(*stream, record) && record[0] == kMark && record[1] == kLayout;
    if (ours && record[2] >= 0 && record[3] >= 0) {
      instance_.takeExtent({record[2], record[3]});
    }
    instance_.dirty = false;
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::Save(IStream* stream, BOOL clearDirty) {
  if (stream == nullptr) return E_POINTER;
  return guarded(object(), [&]() -> HRESULT {
    const Record record = {kMark, kLayout, instance_.extent.cx, instance_.extent.cy};
    ULONG written = 0;
    const HRESULT result = stream->Write(record.data(), sizeof record, &written);
    if (FAILED(result)) return result;
    if (written != sizeof record) return STG_E_MEDIUMFULL;
    if (clearDirty) instance_.dirty = false;
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = sizeof(Record);
  return S_OK;
}

HRESULT STDMETHODCALLTYPE PersistStreamInit::InitNew() {
  instance_.dirty = false;
  return S_OK;
}

}  // namespace activex
