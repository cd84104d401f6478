#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/Role.h"

namespace activex {

struct Instance;

// The control's picture as data: for the clipboard, and for containers that keep a presentation
// of what they hold. Formats: CF_ENHMETAFILE, CF_METAFILEPICT, CF_DIB and CF_BITMAP, of the
// content aspect as a whole. A target device makes no difference. Nothing can be put in.
// DataSinks tells which flags of DAdvise count.
class DataObject final : public Role<IDataObject> {
 public:
  DataObject(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
  // Refused: no format here fills a medium of the caller's.
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* same) override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, WINBOOL) override;
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                    DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** sinks) override;

 private:
  Instance& instance_;
};

}  // namespace activex
