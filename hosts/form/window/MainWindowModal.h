#pragma once

#include "window/MainWindow.h"

namespace form {

// While it lives, a dialog of this program is up.
class MainWindow::Modal {
 public:
  explicit Modal(MainWindow& window) : window_(window) {
    ++window_.modal_;
    if (window_.holder_) window_.holder_->setDead(true);
  }
  ~Modal() {
    --window_.modal_;
    if (window_.holder_) window_.holder_->setDead(false);
    window_.refresh();
  }
  Modal(const Modal&) = delete;
  Modal& operator=(const Modal&) = delete;

 private:
  MainWindow& window_;
};

// While it lives, the user waits, and the picture stays as it is on the screen.
class MainWindow::Still {
 public:
  explicit Still(const MainWindow& window) : stage_(window.stage_->window()) {
    SendMessageW(stage_, WM_SETREDRAW, FALSE, 0);
    cursor_ = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  }
  ~Still() {
    SetCursor(cursor_);
    SendMessageW(stage_, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(stage_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
  Still(const Still&) = delete;
  Still& operator=(const Still&) = delete;

 private:
  HWND stage_;
  HCURSOR cursor_;
};

}  // namespace form
