#pragma once

#include "platform/gdi/WindowsDesktop.h"

#include <ole2.h>

namespace activex {

class Activation;

// The desktop as a control sees it: modal boxes belong to the host's top window, and the host is
// told to stand still meanwhile.
class HostDesktop final : public platform::WindowsDesktop {
 public:
  explicit HostDesktop(const Activation& activation) : activation_(activation) {}
  void ShowMessage(std::string_view text, std::string_view caption,
                   platform::MessageIcon icon) override;
  // Paints what other windows have uncovered of the control's own, several times a second at
  // most. No message is taken from the queue: a resize, a key or a call of the host waits until
  // the drawing is done.
  void ShowProgress() override;

 protected:
  HWND Owner() const override;

 private:
  const Activation& activation_;
  DWORD lastProgress_ = 0;  // in milliseconds of the system's clock
};

}  // namespace activex
