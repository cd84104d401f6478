#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/Role.h"

namespace activex {

struct Instance;

// The control as an embedded object: its site, its extent, its verbs, its end.
class OleObject final : public Role<IOleObject> {
 public:
  OleObject(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE Close(DWORD save) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override;
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override;
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND,
                                   LPCRECT) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT STDMETHODCALLTYPE Update() override;
  HRESULT STDMETHODCALLTYPE IsUpToDate() override;
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR* name) override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** sinks) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override;

 private:
  Instance& instance_;
};

}  // namespace activex
