#pragma once

#include <windows.h>

#include <ole2.h>

#include "activex/ComPtr.h"
#include "activex/StateLock.h"

namespace activex {

// Keeps the host's own dialogs and input still while a modal window of the control is up.
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
  // A reference of its own: the control may leave the frame while the window is up.
  const ComPtr<IOleInPlaceFrame> frame_;
  const ModalWindow modal_;
};

}  // namespace activex
