#pragma once

#include <windows.h>

namespace activex {

// Takes keys of single controls before the dialog makes its own use of them.
class KeyTaker {
 public:
  // Whether a key pressed in a control is to come here, with the shift keys as they are.
  virtual bool takesKey(HWND control, WPARAM key) = 0;
  virtual void onKey(HWND control, WPARAM key) = 0;

 protected:
  ~KeyTaker() = default;
};

// Lets a control's keys go by a taker, which must outlive the control, and its wheel messages to
// the dialog. The control's user data is spoken for then.
void takeKeys(HWND control, KeyTaker& taker);

bool keyIsDown(int key);

}  // namespace activex
