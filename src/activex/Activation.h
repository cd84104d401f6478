#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/ComPtr.h"
#include "activex/ControlWindow.h"

namespace activex {

struct Instance;

// The control's stay in its host's window: inactive, active in place, or active with the user's
// attention (UI-active).
class Activation final : public WindowEvents {
 public:
  Activation(IUnknown& object, Instance& instance);

  // Makes the control active, and UI-active when ui is set. Needs a client site.
  HRESULT activate(bool ui);
  void deactivateUi();
  // Takes the control out of sight and from the user's attention. It stays active: hosts keep
  // hold of its window.
  void hide();
  // Destroys the window and leaves the site; harmless when inactive.
  void deactivate();
  void setRects(const RECT& place, const RECT& clip);
  bool active() const { return static_cast<bool>(site_); }

  HWND window() const { return window_.handle(); }
  // The host's window that holds the control; null when there is none.
  HWND hostWindow() const;
  // The host's top window, which modal windows of the control belong to; null without a host.
  HWND topWindow() const;
  const ComPtr<IOleInPlaceFrame>& frame() const { return frame_; }
  void repaint() { window_.repaint(); }

  void onPaint(HDC dc, const RECT& part) override;
  void onSize(int width, int height) override;
  void onMouseDown() override;
  void onFocus(bool got) override;

 private:
  HRESULT enterSite(const ComPtr<IOleInPlaceSite>& site);
  HRESULT activateUi();

  IUnknown& object_;
  Instance& instance_;
  ControlWindow window_;
  ComPtr<IOleInPlaceSite> site_;
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  bool uiActive_ = false;
};

}  // namespace activex
