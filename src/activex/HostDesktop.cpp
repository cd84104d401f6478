#include "activex/HostDesktop.h"

#include "activex/Activation.h"

namespace activex {
namespace {

// Keeps the host's own dialogs and input still while a modal box of the control is up.
class ModelessPause {
 public:
  explicit ModelessPause(const ComPtr<IOleInPlaceFrame>& frame) : frame_(frame) {
    if (frame_) frame_->EnableModeless(FALSE);
  }
  ~ModelessPause() {
    if (frame_) frame_->EnableModeless(TRUE);
  }
  ModelessPause(const ModelessPause&) = delete;
  ModelessPause& operator=(const ModelessPause&) = delete;

 private:
  // A reference of its own: the control may leave the frame while the box is up.
  const ComPtr<IOleInPlaceFrame> frame_;
};

}  // namespace

void HostDesktop::ShowMessage(std::string_view text, std::string_view caption,
                              platform::MessageIcon icon) {
  const ModelessPause pause(activation_.frame());
  WindowsDesktop::ShowMessage(text, caption, icon);
}

HWND HostDesktop::Owner() const {
  const HWND window = activation_.hostWindow();
  return window != nullptr ? GetAncestor(window, GA_ROOT) : nullptr;
}

}  // namespace activex
