#pragma once

#include <windows.h>

namespace activex {

// What happens to the control's window.
class WindowEvents {
 public:
  virtual void onPaint(HDC dc, const RECT& part) = 0;
  virtual void onSize(int width, int height) = 0;
  virtual void onMouseDown() = 0;
  virtual void onFocus(bool got) = 0;

 protected:
  ~WindowEvents() = default;
};

// Posted to a control's window from any thread, it has onSize called with the size as it is.
UINT askForSizeMessage();

// The control's child window in its host, while it is active.
class ControlWindow {
 public:
  ControlWindow(IUnknown& object, WindowEvents& events) : object_(object), events_(events) {}
  ~ControlWindow() { destroy(); }
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  // Places in pixels of the parent. False when the system refuses.
  bool create(HWND parent, const RECT& place);
  void destroy();
  // Moves the window; only what lies in clip is shown.
  void place(const RECT& place, const RECT& clip);
  // Has it painted anew, at once.
  void repaint();

  HWND handle() const { return window_; }
  // The window is gone, and it was not destroy() that did it.
  bool lost() const { return lost_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  LRESULT handle(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void paint(HWND window);

  IUnknown& object_;
  WindowEvents& events_;
  HWND window_ = nullptr;
  bool lost_ = false;
};

}  // namespace activex
