#pragma once

#include <windows.h>

#include <string>

#include "window/Metrics.h"

namespace form {

// What went wrong, in a strip of its own that is there only while there is something to say. Its
// text can be selected and copied.
class MessageStrip {
 public:
  MessageStrip(HWND window, const Metrics& metrics);
  MessageStrip(const MessageStrip&) = delete;
  MessageStrip& operator=(const MessageStrip&) = delete;

  HWND window() const { return box_; }
  const std::wstring& text() const { return text_; }
  // Empty takes the strip away. True when the layout has to be made anew.
  bool say(const std::wstring& text);
  // The height that the text takes at this width; 0 without a text.
  int heightAt(int width) const;
  void place(int left, int top, int width, int height);
  // For WM_CTLCOLORSTATIC.
  HBRUSH colour(HDC dc) const;

 private:
  int padding() const;

  const Metrics& metrics_;
  HWND box_;
  std::wstring text_;
};

}  // namespace form
