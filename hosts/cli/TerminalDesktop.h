#pragma once

#include <string>
#include <string_view>

#include "platform/Desktop.h"

namespace cli {

// A desktop without windows: a message box is not shown but kept, for the command to report
// once; the wait pointer is nothing.
class TerminalDesktop : public platform::Desktop {
 public:
  void ShowMessage(std::string_view text, std::string_view /*caption*/,
                   platform::MessageIcon /*icon*/) override {
    lastMessage = text;
  }
  void SetWaitPointer(bool /*wait*/) override {}
  // As the environment says (LC_ALL, LC_NUMERIC, LANG); "." when it names no locale of this
  // machine.
  std::string DecimalSeparator() const override;

  std::string lastMessage;
};

}  // namespace cli
