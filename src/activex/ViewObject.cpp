#include "activex/ViewObject.h"

#include "activex/Instance.h"
#include "activex/drawPicture.h"
#include "activex/guard.h"

namespace activex {
namespace {

HRESULT check(DWORD aspect, LONG index) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return index == -1 ? S_OK : DV_E_LINDEX;
}

}  // namespace

HRESULT STDMETHODCALLTYPE ViewObject::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC,
                                           HDC dc, LPCRECTL bounds, LPCRECTL,
                                           WINBOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                                           ULONG_PTR goOnValue) {
  if (const HRESULT checked = check(aspect, index); FAILED(checked)) return checked;
  if (bounds == nullptr) return E_POINTER;
  const RECT place = {bounds->left, bounds->top, bounds->right, bounds->bottom};
  if (dc == nullptr || !isDrawable(place)) return E_INVALIDARG;
  return guarded(object(), [&] {
    if (goOn != nullptr && !goOn(goOnValue)) return E_ABORT;
    const bool drawn =
        frozen_ ? drawPicture(*frozen_, dc, place) : drawPicture(instance_, dc, place);
    return drawn ? S_OK : E_FAIL;
  });
}

HRESULT STDMETHODCALLTYPE ViewObject::GetColorSet(DWORD aspect, LONG index, void*, DVTARGETDEVICE*,
                                                  HDC, LOGPALETTE** colours) {
  if (colours == nullptr) return E_POINTER;
  *colours = nullptr;
  const HRESULT checked = check(aspect, index);
  return FAILED(checked) ? checked : S_FALSE;  // true colours, no palette
}

HRESULT STDMETHODCALLTYPE ViewObject::Freeze(DWORD aspect, LONG index, void*, DWORD* key) {
  if (key == nullptr) return E_POINTER;
  *key = 0;
  if (const HRESULT checked = check(aspect, index); FAILED(checked)) return checked;
  return guarded(object(), [&]() -> HRESULT {
    const bool already = frozen_ != nullptr;
    if (!already) {
      instance_.body.applySize();
      const auto& picture = instance_.body.visible();
      const RECT whole = {0, 0, picture.width(), picture.height()};
      if (IsRectEmpty(&whole)) return OLE_E_BLANK;
      auto copy = std::make_unique<BottomUpBitmap>(
          whole.right, whole.bottom, [&](HDC dc) { drawPicture(instance_, dc, whole); });
      if (copy->bits() == nullptr) return E_OUTOFMEMORY;
      frozen_ = std::move(copy);
      ++frozenKey_;
    }
    *key = frozenKey_;
    return already ? VIEW_S_ALREADY_FROZEN : S_OK;
  });
}

HRESULT STDMETHODCALLTYPE ViewObject::Unfreeze(DWORD key) {
  return guarded(object(), [&]() -> HRESULT {
    if (!frozen_ || key != frozenKey_) return OLE_E_NOCONNECTION;
    frozen_.reset();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  if (sink != nullptr && (aspects & DVASPECT_CONTENT) == 0) return DV_E_DVASPECT;
  return guarded(object(), [&] {
    instance_.view.set(aspects, flags, sink);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  instance_.view.get(aspects, flags, sink);
  return S_OK;
}

HRESULT STDMETHODCALLTYPE ViewObject::GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*,
                                                SIZEL* extent) {
  if (extent == nullptr) return E_POINTER;
  if (const HRESULT checked = check(aspect, index); FAILED(checked)) return checked;
  *extent = instance_.extent;
  return S_OK;
}

}  // namespace activex
