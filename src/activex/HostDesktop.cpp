#include "activex/HostDesktop.h"

#include "activex/Activation.h"
#include "activex/ModelessPause.h"

namespace activex {
namespace {

// Between two looks at the window. A drawing may report progress thousands of times.
constexpr DWORD kProgressMilliseconds = 50;

}  // namespace

void HostDesktop::ShowMessage(std::string_view text, std::string_view caption,
                              platform::MessageIcon icon) {
  const ModelessPause pause(activation_.frame());
  WindowsDesktop::ShowMessage(text, caption, icon);
}

void HostDesktop::ShowProgress() {
  const DWORD now = GetTickCount();
  if (now - lastProgress_ < kProgressMilliseconds) return;
  lastProgress_ = now;
  const HWND window = activation_.window();
  // Sent from the window's own thread, the message goes straight to its procedure, which only
  // copies the picture. UpdateWindow could have the host's windows painted as well.
  if (window != nullptr && GetUpdateRect(window, nullptr, FALSE)) {
    SendMessageW(window, WM_PAINT, 0, 0);
  }
}

HWND HostDesktop::Owner() const { return activation_.topWindow(); }

}  // namespace activex
