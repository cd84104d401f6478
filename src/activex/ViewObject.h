#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/Role.h"

namespace activex {

struct Instance;

// The control's picture for whoever wants it drawn elsewhere: a host before activation, a
// printer, a metafile.
class ViewObject final : public Role<IViewObject2> {
 public:
  ViewObject(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc,
                                 LPCRECTL bounds, LPCRECTL,
                                 WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** colours) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD* key) override;
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override;
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* extent) override;

 private:
  Instance& instance_;
};

}  // namespace activex
