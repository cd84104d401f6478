#include "activex/OleObject.h"

#include <algorithm>
#include <iterator>

#include "activex/Instance.h"
#include "activex/guard.h"
#include "activex/guids.h"
#include "activex/identity.h"

namespace activex {

HRESULT STDMETHODCALLTYPE OleObject::SetClientSite(IOleClientSite* site) {
  return guarded(object(), [&] {
    // A window in the old site would stay behind.
    if (site != instance_.clientSite.get()) instance_.activation.deactivate();
    instance_.clientSite = ComPtr<IOleClientSite>(site);
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
    if (save != OLECLOSE_NOSAVE && instance_.dirty && instance_.clientSite) {
      instance_.clientSite->SaveObject();
    }
    if (instance_.oleAdvise) instance_.oleAdvise->SendOnClose();
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
  return guarded(object(), [&]() -> HRESULT {
    switch (verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_OPEN:
      case OLEIVERB_UIACTIVATE:
        return instance_.activation.activate(true);
      case OLEIVERB_SHOW:
      case OLEIVERB_INPLACEACTIVATE:
        return instance_.activation.activate(false);
      case OLEIVERB_HIDE:
        instance_.activation.deactivate();
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        if (verb < 0) return E_NOTIMPL;
        // An unknown verb of the object's own stands for its main one.
        const HRESULT shown = instance_.activation.activate(true);
        return FAILED(shown) ? shown : OLEOBJ_S_INVALIDVERB;
    }
  });
}

HRESULT STDMETHODCALLTYPE OleObject::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs == nullptr) return E_POINTER;
  *verbs = nullptr;
  return OLEOBJ_E_NOVERBS;
}

HRESULT STDMETHODCALLTYPE OleObject::Update() { return S_OK; }
HRESULT STDMETHODCALLTYPE OleObject::IsUpToDate() { return S_OK; }

HRESULT STDMETHODCALLTYPE OleObject::GetUserClassID(CLSID* id) {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_KelvaneCtl;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OleObject::GetUserType(DWORD, LPOLESTR* name) {
  if (name == nullptr) return E_POINTER;
  *name = static_cast<LPOLESTR>(CoTaskMemAlloc(sizeof kUserType));
  if (*name == nullptr) return E_OUTOFMEMORY;
  std::copy(std::begin(kUserType), std::end(kUserType), *name);
  return S_OK;
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

HRESULT STDMETHODCALLTYPE OleObject::Advise(IAdviseSink* sink, DWORD* connection) {
  if (connection == nullptr) return E_POINTER;
  *connection = 0;
  return guarded(object(), [&] {
    if (!instance_.oleAdvise) {
      const HRESULT made = CreateOleAdviseHolder(instance_.oleAdvise.receive());
      if (FAILED(made)) return made;
    }
    return instance_.oleAdvise->Advise(sink, connection);
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
  return guarded(object(), [&]() -> HRESULT {
    return instance_.oleAdvise ? instance_.oleAdvise->EnumAdvise(sinks) : S_OK;
  });
}

HRESULT STDMETHODCALLTYPE OleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE OleObject::SetColorScheme(LOGPALETTE*) { return E_NOTIMPL; }

}  // namespace activex
