#include "activex/ViewObject.h"

#include "activex/Instance.h"
#include "activex/drawPicture.h"
#include "activex/guard.h"

namespace activex {

HRESULT STDMETHODCALLTYPE ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC,
                                           HDC dc, LPCRECTL bounds, LPCRECTL,
                                           WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (bounds == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const RECT place = {bounds->left, bounds->top, bounds->right, bounds->bottom};
    return drawPicture(instance_.body, dc, place) ? S_OK : E_FAIL;
  });
}

HRESULT STDMETHODCALLTYPE ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                                  LOGPALETTE** colours) {
  if (colours == nullptr) return E_POINTER;
  *colours = nullptr;
  return S_FALSE;  // true colours, no palette
}

HRESULT STDMETHODCALLTYPE ViewObject::Freeze(DWORD, LONG, void*, DWORD* key) {
  if (key == nullptr) return E_POINTER;
  *key = 0;
  return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE ViewObject::Unfreeze(DWORD) { return E_NOTIMPL; }

HRESULT STDMETHODCALLTYPE ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  return guarded(object(), [&] {
    instance_.view.set(aspects, flags, sink);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE ViewObject::GetAdvise(DWORD* aspects, DWORD* flags,
                                                IAdviseSink** sink) {
  instance_.view.get(aspects, flags, sink);
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*,
                                                SIZEL* extent) {
  if (extent == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *extent = instance_.extent;
  return S_OK;
}

}  // namespace activex
