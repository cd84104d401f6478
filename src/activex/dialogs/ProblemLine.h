#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace activex {

// The line of a dialog that says what is wrong, in red unless the user wants high contrast.
class ProblemLine {
 public:
  void setUp(HWND line) { line_ = line; }
  HWND window() const { return line_; }

  // What screen readers say as well; an empty text for nothing.
  void say(const std::string& problem) const;
  // "What: the last reported failure.", with a beep.
  void sayFailure(const std::string& what) const;

  // The dialog hands on its messages.
  std::optional<INT_PTR> onMessage(UINT message, WPARAM wide, LPARAM longer) const;

 private:
  HWND line_ = nullptr;
};

}  // namespace activex
