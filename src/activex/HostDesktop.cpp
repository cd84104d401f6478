#include "activex/HostDesktop.h"

#include "activex/Activation.h"

namespace activex {

void HostDesktop::ShowMessage(std::string_view text, std::string_view caption,
                              platform::MessageIcon icon) {
  const ComPtr<IOleInPlaceFrame> frame = activation_.frame();
  if (frame) frame->EnableModeless(FALSE);
  WindowsDesktop::ShowMessage(text, caption, icon);
  if (frame) frame->EnableModeless(TRUE);
}

HWND HostDesktop::Owner() const {
  const HWND window = activation_.hostWindow();
  return window != nullptr ? GetAncestor(window, GA_ROOT) : nullptr;
}

}  // namespace activex
