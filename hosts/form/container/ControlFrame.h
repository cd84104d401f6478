#pragma once

#include <windows.h>

#include <ole2.h>

#include "ComOwner.h"
#include "container/Counted.h"
#include "container/HostHooks.h"

namespace form {

// The top window, as the active control sees it: it lends the control its status line and its
// keys, and stands still while the control has a dialog up. No menus are merged.
class ControlFrame final : public Counted<IOleInPlaceFrame> {
 public:
  ControlFrame(HWND window, HostHooks& hooks) : window_(window), hooks_(&hooks) {}

  // The window goes; whoever still holds the frame finds it empty.
  void detach();
  // The object that keys are offered to first. Null when no control is active.
  IOleInPlaceActiveObject* active() const { return active_.get(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** place) override;
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
    return INPLACE_E_NOTOOLSPACE;
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) override;
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR text) override;
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message, WORD) override;

 private:
  HWND window_;
  HostHooks* hooks_;
  host::ComOwner<IOleInPlaceActiveObject> active_;
};

}  // namespace form
