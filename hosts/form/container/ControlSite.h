#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>

#include "container/AmbientProperties.h"
#include "container/ControlFrame.h"
#include "container/Counted.h"

namespace form {

// The place of one control in a window, which it fills.
class ControlSite final
    : public Counted<IOleClientSite, IOleInPlaceSite, IOleControlSite> {
 public:
  // Takes references of its own to the frame and the properties.
  ControlSite(HWND stage, ControlFrame& frame, AmbientProperties& ambient);

  // The window goes, and with it the way to the frame.
  void detach();
  // The window's client area, which is the control's.
  RECT place() const;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** place) override;

  HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override;
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT place,
                                             LPRECT clip,
                                             LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
  // The control fills the window, whatever it would like.
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) override;
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container,
                                            DWORD flags) override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message, DWORD) override;
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

 private:
  HWND stage_;
  host::ComOwner<ControlFrame> frame_;
  host::ComOwner<AmbientProperties> ambient_;
};

}  // namespace form
