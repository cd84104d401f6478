#include "activex/OleObject.h"

#include <olectl.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "activex/Enumerator.h"
#include "activex/Instance.h"
#include "activex/guard.h"
#include "activex/guids.h"
#include "activex/identity.h"

namespace activex {
namespace {

// A copy for a caller who frees it; null without memory.
LPOLESTR copyForCaller(std::wstring_view text) noexcept {
  const SIZE_T size = (text.size() + 1) * sizeof(wchar_t);
  auto* const copy = static_cast<LPOLESTR>(CoTaskMemAlloc(size));
  if (copy != nullptr) *std::copy(text.begin(), text.end(), copy) = L'\0';
  return copy;
}

struct Verb {
  LONG number;
  std::wstring_view name;
};

struct Verbs {
  using Interface = IEnumOLEVERB;
  using Kept = Verb;
  using Given = OLEVERB;

  static bool give(const Verb& from, OLEVERB& to) noexcept {
    to = {from.number, copyForCaller(from.name), MF_STRING | MF_ENABLED,
          OLEVERBATTRIB_NEVERDIRTIES | OLEVERBATTRIB_ONCONTAINERMENU};
    return to.lpszVerbName != nullptr;
  }
  static void takeBack(OLEVERB& given) noexcept {
    CoTaskMemFree(given.lpszVerbName);
    given = {};
  }
};

// What hosts offer in the control's menu.
const std::vector<Verb>& verbs() {
  static const std::vector<Verb> all = {{OLEIVERB_PRIMARY, L"&Activate"},
                                        {OLEIVERB_PROPERTIES, L"&Options..."}};
  return all;
}

}  // namespace

HRESULT STDMETHODCALLTYPE OleObject::SetClientSite(IOleClientSite* site) {
  return guarded(object(), [&] {
    // A window in the old site would stay behind.
    if (site != instance_.clientSite.get()) instance_.activation.deactivate();
    instance_.clientSite = ComPtr<IOleClientSite>(site);
    if (site != nullptr) instance_.closed = false;
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE OleObject::GetClientSite(IOleClientSite** site) {
  if (site == nullptr) return E_POINTER;
  *site = ComPtr<IOleClientSite>(instance_.clientSite).detach();
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OleObject::SetHostNames(LPCOLESTR, LPCOLESTR) { return S_OK; }

HRESULT STDMETHODCALLTYPE OleObject::Close(DWORD save) {
  return guarded(object(), [&] {
    instance_.activation.deactivate();
    const ComPtr<IOleClientSite> site = instance_.clientSite;
    if (save != OLECLOSE_NOSAVE && instance_.dirty && site) site->SaveObject();
    if (instance_.closed) return S_OK;
    instance_.closed = true;
    instance_.dataSinks.stopping();
    if (const auto holder = instance_.oleAdvise) holder->SendOnClose();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE OleObject::SetMoniker(DWORD, IMoniker*) { return E_NOTIMPL; }

HRESULT STDMETHODCALLTYPE OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker == nullptr) return E_POINTER;
  *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE OleObject::InitFromData(IDataObject*, BOOL, DWORD) { return E_NOTIMPL; }

HRESULT STDMETHODCALLTYPE OleObject::GetClipboardData(DWORD, IDataObject** data) {
  if (data == nullptr) return E_POINTER;
  *data = nullptr;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE OleObject::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND,
                                            LPCRECT) {
  return guarded(object(), [&] {
    const HRESULT done = doVerb(verb);
    // To be put out of sight is no use of it.
    if (SUCCEEDED(done) && verb != OLEIVERB_HIDE) instance_.closed = false;
    return done;
  });
}

HRESULT OleObject::doVerb(LONG verb) {
  switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_OPEN:  // there is no window of its own to open
    case OLEIVERB_UIACTIVATE:
      return instance_.activation.activate(true);
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
      return instance_.activation.activate(false);
    case OLEIVERB_HIDE:
      instance_.activation.hide();
      return S_OK;
    case OLEIVERB_PROPERTIES:
      return ComPtr<IUnknown>(&object()).as<_KelvaneCtl>()->ShowOptions();
    case OLEIVERB_DISCARDUNDOSTATE:  // nothing could be undone
      return S_OK;
    default:
      if (verb < 0) return E_NOTIMPL;
      const HRESULT shown = instance_.activation.activate(true);
      return FAILED(shown) ? shown : OLEOBJ_S_INVALIDVERB;
  }
}

HRESULT STDMETHODCALLTYPE OleObject::EnumVerbs(IEnumOLEVERB** list) {
  if (list == nullptr) return E_POINTER;
  *list = nullptr;
  return guarded(object(), [&] {
    *list = new Enumerator<Verbs>(verbs());
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE OleObject::Update() { return S_OK; }
HRESULT STDMETHODCALLTYPE OleObject::IsUpToDate() { return S_OK; }

HRESULT STDMETHODCALLTYPE OleObject::GetUserClassID(CLSID* id) {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_KelvaneCtl;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OleObject::GetUserType(DWORD form, LPOLESTR* name) {
  if (name == nullptr) return E_POINTER;
  *name = nullptr;
  switch (form) {
    case USERCLASSTYPE_FULL:
      *name = copyForCaller(kUserType);
      break;
    case USERCLASSTYPE_SHORT:
      *name = copyForCaller(kShortUserType);
      break;
    case USERCLASSTYPE_APPNAME:
      *name = copyForCaller(kApplication);
      break;
    default:
      return E_INVALIDARG;
  }
  return *name != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT STDMETHODCALLTYPE OleObject::SetExtent(DWORD aspect, SIZEL* extent) {
  if (extent == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (extent->cx < 0 || extent->cy < 0) return E_INVALIDARG;
  return guarded(object(), [&] {
    instance_.takeExtent(*extent);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE OleObject::GetExtent(DWORD aspect, SIZEL* extent) {
  if (extent == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *extent = instance_.extent;
  return S_OK;
}

HRESULT OleObject::adviseHolder() {
  return instance_.oleAdvise ? S_OK : CreateOleAdviseHolder(instance_.oleAdvise.receive());
}

HRESULT STDMETHODCALLTYPE OleObject::Advise(IAdviseSink* sink, DWORD* connection) {
  if (connection == nullptr) return E_POINTER;
  *connection = 0;
  if (sink == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const HRESULT made = adviseHolder();
    return FAILED(made) ? made : instance_.oleAdvise->Advise(sink, connection);
  });
}

HRESULT STDMETHODCALLTYPE OleObject::Unadvise(DWORD connection) {
  return guarded(object(), [&]() -> HRESULT {
    return instance_.oleAdvise ? instance_.oleAdvise->Unadvise(connection) : OLE_E_NOCONNECTION;
  });
}

HRESULT STDMETHODCALLTYPE OleObject::EnumAdvise(IEnumSTATDATA** sinks) {
  if (sinks == nullptr) return E_POINTER;
  *sinks = nullptr;
  return guarded(object(), [&] {
    const HRESULT made = adviseHolder();
    return FAILED(made) ? made : instance_.oleAdvise->EnumAdvise(sinks);
  });
}

HRESULT STDMETHODCALLTYPE OleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OleObject::SetColorScheme(LOGPALETTE*) { return E_NOTIMPL; }

}  // namespace activex
