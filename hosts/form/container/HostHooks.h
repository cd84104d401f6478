#pragma once

#include <windows.h>

namespace form {

// What the container asks of the window that it serves.
class HostHooks {
 public:
  virtual ~HostHooks() = default;
  // The control opens (true) or has closed (false) a modal window of its own.
  virtual void onControlModal(bool up) = 0;
  // A key that the control leaves to its host. True when it meant something.
  virtual bool onHostKey(MSG& message) = 0;
  // A text that the control wants in the status line; may be empty.
  virtual void onControlStatus(const wchar_t* text) = 0;
};

}  // namespace form
