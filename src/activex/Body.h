#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <functional>

#include "control/KelvaneCtl.h"
#include "platform/gdi/GdiPictureBox.h"

namespace activex {

// The control itself: its pictures and its members.
class Body {
 public:
  // shown is called when the visible picture has changed; window tells the window that shows it,
  // null when there is none.
  Body(IUnknown& object, platform::Desktop& desktop, control::Dialogs& dialogs,
       std::function<void()> shown, std::function<HWND()> window);
  ~Body();
  Body(const Body&) = delete;
  Body& operator=(const Body&) = delete;

  control::KelvaneCtl& members() { return members_; }
  const control::KelvaneCtl& members() const { return members_; }
  const platform::GdiPictureBox& visible() const { return Picture1_; }

  // The client area became width x height pixels: now, or after the member that is running.
  void resize(int32_t width, int32_t height);
  // The same, but not before the picture is wanted: by a member or for drawing.
  void resizeLater(int32_t width, int32_t height);

  // Takes the size that was last given. While a member runs it is put off, and then waits for
  // the member's end.
  void applySize() noexcept;

  // For any thread: whether a size waits; has the window ask for it again.
  bool sizeWaits() const { return sizeWaits_; }
  void wake() const;
  bool ofThisThread() const { return thread_ == GetCurrentThreadId(); }

 private:
  IUnknown& object_;
  const std::function<HWND()> window_;
  const DWORD thread_ = GetCurrentThreadId();
  platform::GdiPictureBox Picture1_, picDateTime_, picSection_, picContours_;
  control::KelvaneCtl members_;
  int32_t width_ = 0, height_ = 0;
  int32_t wantedWidth_ = 0, wantedHeight_ = 0;
  std::atomic<bool> sizeWaits_ = false;
  std::atomic<HWND> waitingWindow_ = nullptr;
};

}  // namespace activex
