#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace form {

// A modal dialog from a template of this program, in the user's message font, over its owner.
class Dialog {
 public:
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  HWND window() const { return window_; }

 protected:
  explicit Dialog(int id) : id_(id) {}
  virtual ~Dialog() = default;

  // Runs until end is called: the value that it was given, or IDCANCEL when no dialog came up.
  INT_PTR run(HWND owner);
  void end(INT_PTR result);

  // The control to begin in; null for the first one.
  virtual HWND onInit() { return nullptr; }
  // OK and Cancel end the dialog unless a dialog has it otherwise.
  virtual void onCommand(int id, int notification);
  virtual INT_PTR onNotify(const NMHDR&) { return 0; }
  virtual INT_PTR onMessage(UINT, WPARAM, LPARAM) { return FALSE; }

  HWND item(int id) const { return GetDlgItem(window_, id); }
  std::wstring textOf(int id) const;
  // Leaves a text as it is that is right already, and the caret with it.
  void setText(int id, const std::wstring& text) const;
  void enable(int id, bool enabled) const;

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  INT_PTR handle(UINT message, WPARAM wide, LPARAM longer);
  void place() const;

  int id_;
  HWND window_ = nullptr;
};

std::wstring windowText(HWND window);

}  // namespace form
