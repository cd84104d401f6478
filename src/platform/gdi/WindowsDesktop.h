#pragma once

#include <windows.h>

#include "platform/Desktop.h"

namespace platform {

// The user's Windows desktop: real message boxes and the real pointer.
class WindowsDesktop : public Desktop {
 public:
  void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon) override;
  void SetWaitPointer(bool wait) override;
  // As the user has set it, whatever his language has.
  std::string DecimalSeparator() const override;

 protected:
  // The window that modal boxes belong to; none by default.
  virtual HWND Owner() const { return nullptr; }

 private:
  int waits_ = 0;
  HCURSOR before_ = nullptr;
};

}  // namespace platform
