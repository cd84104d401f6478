#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "window/Metrics.h"

namespace form {

// The window that the control fills. Without a control it shows a text instead.
class Stage {
 public:
  Stage(HWND parent, const Metrics& metrics);

  HWND window() const { return window_; }
  void setText(const std::wstring& text);
  // What to do when the keyboard comes to it.
  void onFocus(std::function<void()> action) { focus_ = std::move(action); }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void paint();

  HWND window_ = nullptr;
  const Metrics& metrics_;
  std::wstring text_;
  std::function<void()> focus_;
};

}  // namespace form
