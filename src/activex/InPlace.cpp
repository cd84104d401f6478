#include "activex/InPlace.h"

#include "activex/Instance.h"
#include "activex/guard.h"

namespace activex {
namespace {

HRESULT windowOf(const Instance& instance, HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = instance.activation.window();
  return *window != nullptr ? S_OK : E_FAIL;
}

}  // namespace

HRESULT STDMETHODCALLTYPE InPlaceObject::GetWindow(HWND* window) {
  return windowOf(instance_, window);
}

HRESULT STDMETHODCALLTYPE InPlaceObject::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }

HRESULT STDMETHODCALLTYPE InPlaceObject::InPlaceDeactivate() {
  return guarded(object(), [&] {
    instance_.activation.deactivate();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE InPlaceObject::UIDeactivate() {
  return guarded(object(), [&] {
    instance_.activation.deactivateUi();
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE InPlaceObject::SetObjectRects(LPCRECT place, LPCRECT clip) {
  if (place == nullptr) return E_POINTER;
  return guarded(object(), [&]() -> HRESULT {
    if (!instance_.activation.active()) return E_UNEXPECTED;
    instance_.activation.setRects(*place, clip != nullptr ? *clip : *place);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE InPlaceObject::ReactivateAndUndo() { return INPLACE_E_NOTUNDOABLE; }

HRESULT STDMETHODCALLTYPE InPlaceActiveObject::GetWindow(HWND* window) {
  return windowOf(instance_, window);
}

HRESULT STDMETHODCALLTYPE InPlaceActiveObject::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }
HRESULT STDMETHODCALLTYPE InPlaceActiveObject::TranslateAccelerator(LPMSG) { return S_FALSE; }
HRESULT STDMETHODCALLTYPE InPlaceActiveObject::OnFrameWindowActivate(BOOL) { return S_OK; }
HRESULT STDMETHODCALLTYPE InPlaceActiveObject::OnDocWindowActivate(BOOL) { return S_OK; }

HRESULT STDMETHODCALLTYPE InPlaceActiveObject::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
  return S_OK;
}

HRESULT STDMETHODCALLTYPE InPlaceActiveObject::EnableModeless(BOOL) { return S_OK; }

}  // namespace activex
