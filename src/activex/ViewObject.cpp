#include "activex/ViewObject.h"

#include "activex/Instance.h"
#include "activex/guard.h"

namespace activex {
namespace {

// Draws in the context's own coordinates, so that a host's scaling is kept.
bool drawLogical(const platform::GdiPictureBox& picture, HDC dc, const RECT& bounds) {
  return picture.drawInto(dc, bounds);
}

// Draws in device pixels: the picture stays upright and comes out pixel for pixel where the
// sizes agree, whatever the host's coordinates are.
bool drawDevice(const platform::GdiPictureBox& picture, HDC dc, RECT bounds) {
  POINT corners[2] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
  LPtoDP(dc, corners, 2);
  const RECT device = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
  const int saved = SaveDC(dc);
  ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
  SetMapMode(dc, MM_TEXT);
  SetWindowOrgEx(dc, 0, 0, nullptr);
  SetViewportOrgEx(dc, 0, 0, nullptr);
  SetLayout(dc, 0);
  const bool drawn = picture.drawInto(dc, device);
  RestoreDC(dc, saved);
  return drawn;
}

bool isMetafile(HDC dc) {
  const DWORD kind = GetObjectType(dc);
  return kind == OBJ_METADC || kind == OBJ_ENHMETADC;
}

}  // namespace

HRESULT STDMETHODCALLTYPE ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC,
                                           HDC dc, LPCRECTL bounds, LPCRECTL,
                                           WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (bounds == nullptr) return E_POINTER;
  return guarded(object(), [&] {
    const RECT place = {bounds->left, bounds->top, bounds->right, bounds->bottom};
    instance_.body.applySize();
    const auto& picture = instance_.body.visible();
    const bool drawn = isMetafile(dc) ? drawLogical(picture, dc, place)
                                      : drawDevice(picture, dc, place);
    return drawn ? S_OK : E_FAIL;
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
