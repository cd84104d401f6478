#pragma once

#include <windows.h>

#include <string>

#include "window/Metrics.h"

namespace form {

// The line at the window's bottom: what is going on, the data set, the item, and the time step.
class StatusLine {
 public:
  StatusLine(HWND window, const Metrics& metrics);

  // Moves to the bottom of its window: its height.
  int layOut(int width);
  void show(const std::wstring& state, const std::wstring& dataSet, const std::wstring& item,
            const std::wstring& step);

 private:
  void setPart(int part, const std::wstring& text);

  const Metrics& metrics_;
  HWND line_;
  std::wstring shown_[4];
};

}  // namespace form
