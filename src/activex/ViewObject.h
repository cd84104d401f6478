#pragma once

#include <windows.h>

#include <ole2.h>

#include <memory>

#include "activex/BottomUpBitmap.h"
#include "activex/Role.h"

namespace activex {

struct Instance;

// The control's picture for whoever wants it drawn elsewhere: a host before activation, a
// printer, a metafile. It is the content aspect as a whole (lindex -1); others are refused with
// DV_E_DVASPECT and DV_E_LINDEX. Target devices make no difference.
class ViewObject final : public Role<IViewObject2> {
 public:
  ViewObject(IUnknown& object, Instance& instance) : Role(object), instance_(instance) {}

  // E_ABORT when goOn says no, E_INVALIDARG for places that the system cannot draw at.
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC dc,
                                 LPCRECTL bounds, LPCRECTL,
                                 WINBOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                                 ULONG_PTR goOnValue) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** colours) override;
  // Draw shows the picture as it is now until Unfreeze, as printing in bands needs it. One that
  // is frozen already stays as it is: VIEW_S_ALREADY_FROZEN, and the key that it has.
  HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void*, DWORD* key) override;
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD key) override;
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*,
                                      SIZEL* extent) override;

 private:
  Instance& instance_;
  std::unique_ptr<BottomUpBitmap> frozen_;
  DWORD frozenKey_ = 0;
};

}  // namespace activex
