#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/Dialog.h"

namespace activex {

// A dialog's window, made from a template of this library. It shows the dialog's values, hands it
// its events, and goes away once the dialog is closed.
class DialogFace {
 public:
  // name is that of the dialog, for the text of a failure.
  DialogFace(platform::Dialog& dialog, const char* name, int templateId)
      : dialog_(dialog), name_(name), template_(templateId) {}
  virtual ~DialogFace() = default;
  DialogFace(const DialogFace&) = delete;
  DialogFace& operator=(const DialogFace&) = delete;

  // Shows the window over its owner, which may be null, and returns when the dialog is closed.
  // A window that cannot be made, or is destroyed with its owner, is closed as by its close box.
  void run(HWND owner);
  // Null before and after.
  HWND window() const { return window_; }

 protected:
  // The window is made and not shown yet. The control to have the focus; null for the first one.
  virtual HWND onInit() = 0;
  // A control's notification.
  virtual void onCommand(int control, int event) = 0;
  // Any other message; the answer to it when it was dealt with.
  virtual std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer);

  HWND item(int control) const { return GetDlgItem(window_, control); }

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  INT_PTR handle(UINT message, WPARAM wide, LPARAM longer);
  void endWhenClosed();

  platform::Dialog& dialog_;
  const char* const name_;
  const int template_;
  HWND window_ = nullptr;
};

// A window's text as UTF-8.
std::string textOf(HWND window);
// Gives a window a text (UTF-8) unless it has it already.
void setText(HWND window, const std::string& text);

}  // namespace activex
