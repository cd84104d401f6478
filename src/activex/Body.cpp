#include "activex/Body.h"

#include <algorithm>

#include "activex/ComPtr.h"
#include "activex/ControlWindow.h"
#include "activex/MemberCall.h"
#include "util/lastError.h"

namespace activex {

Body::Body(IUnknown& object, platform::Desktop& desktop, control::Dialogs& dialogs,
           std::function<void()> shown, std::function<HWND()> window)
    : object_(object),
      window_(std::move(window)),
      Picture1_(std::move(shown)),
      members_({Picture1_, picDateTime_, picSection_, picContours_}, desktop, dialogs) {
  MemberCall::add(*this);
}

Body::~Body() { MemberCall::remove(*this); }

void Body::resize(int32_t width, int32_t height) {
  resizeLater(width, height);
  applySize();
}

void Body::resizeLater(int32_t width, int32_t height) {
  wantedWidth_ = std::max(width, 0);
  wantedHeight_ = std::max(height, 0);
}

void Body::wake() const {
  if (const HWND window = waitingWindow_) PostMessageW(window, askForSizeMessage(), 0, 0);
}

void Body::applySize() noexcept {
  if (width_ == wantedWidth_ && height_ == wantedHeight_) {
    sizeWaits_ = false;
    return;
  }
  const KeptAlive alive(object_);
  const MemberCall call;
  if (!call.entered()) {
    waitingWindow_ = window_();
    sizeWaits_ = true;
    return;
  }
  sizeWaits_ = false;
  width_ = wantedWidth_;
  height_ = wantedHeight_;
  try {
    members_.Resize(width_, height_);
  } catch (...) {
    // No caller can be told: the size came from the system, not from the host.
    try {
      util::reportTagged("KelvaneCtl Resize");
    } catch (...) {  // no memory even for the text
    }
  }
}

}  // namespace activex
