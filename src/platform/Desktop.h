#pragma once

#include <string>
#include <string_view>

namespace platform {

enum class MessageIcon { None, Critical, Information };

// What the control asks of the desktop around it. One implementation a host: Windows, a
// terminal, a recording one in the tests.
class Desktop {
 public:
  virtual ~Desktop() = default;
  // A modal message box.
  virtual void ShowMessage(std::string_view text, std::string_view caption, MessageIcon icon) = 0;
  virtual void SetWaitPointer(bool wait) = 0;
  // The decimal separator of the user's locale.
  virtual std::string DecimalSeparator() const { return "."; }
  // Lets what was drawn so far show in the midst of a long drawing. Nothing else may happen
  // meanwhile: a nested drawing would use the same working lists.
  virtual void ShowProgress() {}
};

// The desktop of the control whose member is running; one that does nothing before any
// control exists.
Desktop& desktop();

// Makes a desktop the current one for the extent of a call.
class DesktopScope {
 public:
  explicit DesktopScope(Desktop& current);
  ~DesktopScope();
  DesktopScope(const DesktopScope&) = delete;
  DesktopScope& operator=(const DesktopScope&) = delete;

 private:
  Desktop* previous_;
};

// The wait pointer, from construction until the end of the scope, however the scope ends.
class WaitPointer {
 public:
  WaitPointer() { desktop().SetWaitPointer(true); }
  ~WaitPointer() { desktop().SetWaitPointer(false); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace platform
