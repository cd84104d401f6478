#include "activex/DataObject.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "activex/Enumerator.h"
#include "activex/Instance.h"
#include "activex/guard.h"
#include "activex/pictureMedia.h"

namespace activex {
namespace {

struct Form {
  CLIPFORMAT format;
  DWORD medium;
  HRESULT (*render)(Instance&, STGMEDIUM&);
};

// The best first, as those who paste the first that they understand expect.
constexpr Form kForms[] = {
    {CF_ENHMETAFILE, TYMED_ENHMF, renderEnhMetafile},
    {CF_METAFILEPICT, TYMED_MFPICT, renderMetafilePict},
    {CF_DIB, TYMED_HGLOBAL, renderDib},
    {CF_BITMAP, TYMED_GDI, renderBitmap},
};

struct Formats {
  using Interface = IEnumFORMATETC;
  using Kept = FORMATETC;
  using Given = FORMATETC;
  static bool give(const FORMATETC& from, FORMATETC& to) noexcept {
    to = from;
    return true;
  }
  static void takeBack(FORMATETC&) noexcept {}
};

// The form that is asked for, or why there is none.
HRESULT find(const FORMATETC& wanted, const Form*& form) {
  form = nullptr;
  if (wanted.dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (wanted.lindex != -1) return DV_E_LINDEX;
  const auto* const found =
      std::find_if(std::begin(kForms), std::end(kForms),
                   [&](const Form& candidate) { return candidate.format == wanted.cfFormat; });
  if (found == std::end(kForms)) return DV_E_FORMATETC;
  if ((wanted.tymed & found->medium) == 0) return DV_E_TYMED;
  form = found;
  return S_OK;
}

HRESULT check(const FORMATETC& wanted) {
  const Form* form = nullptr;
  return find(wanted, form);
}

// Asks for news of all formats at once.
bool isWildcard(const FORMATETC& format) {
  return format.cfFormat == 0 && format.ptd == nullptr && format.lindex == -1 &&
         format.dwAspect == static_cast<DWORD>(-1) && format.tymed == static_cast<DWORD>(-1);
}

}  // namespace

HRESULT STDMETHODCALLTYPE DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) {
  if (medium == nullptr) return E_POINTER;
  *medium = {};
  if (format == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const Form* form = nullptr;
    const HRESULT found = find(*format, form);
    return FAILED(found) ? found : form->render(instance_, *medium);
  });
}

HRESULT STDMETHODCALLTYPE DataObject::GetDataHere(FORMATETC* format, STGMEDIUM* medium) {
  if (format == nullptr || medium == nullptr) return E_POINTER;
  const HRESULT found = check(*format);
  return FAILED(found) ? found : DV_E_TYMED;
}

HRESULT STDMETHODCALLTYPE DataObject::QueryGetData(FORMATETC* format) {
  return format == nullptr ? E_POINTER : check(*format);
}

HRESULT STDMETHODCALLTYPE DataObject::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* same) {
  if (same == nullptr) return E_POINTER;
  *same = {};
  if (format == nullptr) return E_POINTER;
  const HRESULT found = check(*format);
  if (FAILED(found)) return found;
  *same = *format;
  same->ptd = nullptr;
  return format->ptd == nullptr ? DATA_S_SAMEFORMATETC : S_OK;
}

HRESULT STDMETHODCALLTYPE DataObject::SetData(FORMATETC*, STGMEDIUM*, WINBOOL) { return E_NOTIMPL; }

HRESULT STDMETHODCALLTYPE DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
  if (formats == nullptr) return E_POINTER;
  *formats = nullptr;
  if (direction == DATADIR_SET) return E_NOTIMPL;
  if (direction != DATADIR_GET) return E_INVALIDARG;
  return guarded(object(), [&] {
    std::vector<FORMATETC> all;
    for (const Form& form : kForms) {
      all.push_back({form.format, nullptr, DVASPECT_CONTENT, -1, form.medium});
    }
    *formats = new Enumerator<Formats>(std::move(all));
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE DataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                              DWORD* connection) {
  if (connection == nullptr) return E_POINTER;
  *connection = 0;
  if (format == nullptr || sink == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const HRESULT found = isWildcard(*format) ? S_OK : check(*format);
    if (SUCCEEDED(found)) *connection = instance_.dataSinks.add(*format, flags, *sink);
    return found;
  });
}

HRESULT STDMETHODCALLTYPE DataObject::DUnadvise(DWORD connection) {
  return guarded(object(), [&]() -> HRESULT {
    return instance_.dataSinks.remove(connection) ? S_OK : OLE_E_NOCONNECTION;
  });
}

HRESULT STDMETHODCALLTYPE DataObject::EnumDAdvise(IEnumSTATDATA** sinks) {
  if (sinks == nullptr) return E_POINTER;
  *sinks = nullptr;
  return guarded(object(), [&] { return instance_.dataSinks.list(sinks); });
}

}  // namespace activex
