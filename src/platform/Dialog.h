#pragma once

namespace platform {

// A modal dialog without its face: its controls' values are the fields of the derived class, its
// events are methods, and a result is read when it has closed. A face shows the values, calls the
// methods and goes away once the dialog is closed.
class Dialog {
 public:
  bool closed() const { return closed_; }
  // The close box of the window: no event of the dialog's own, the result stays.
  void closeBox() { closed_ = true; }

 protected:
  Dialog() = default;
  ~Dialog() = default;
  void unload() { closed_ = true; }

 private:
  bool closed_ = false;
};

}  // namespace platform
