#pragma once

#include <string>
#include <vector>

#include "platform/Desktop.h"

namespace support {

// A desktop that shows nothing and remembers everything.
class RecordingDesktop : public platform::Desktop {
 public:
  struct Message {
    std::string text, caption;
    platform::MessageIcon icon;
    bool operator==(const Message&) const = default;
  };

  void ShowMessage(std::string_view text, std::string_view caption,
                   platform::MessageIcon icon) override {
    messages.push_back({std::string(text), std::string(caption), icon});
  }
  void SetWaitPointer(bool wait) override {
    waiting = wait;
    if (wait) ++waits;
  }

  std::string DecimalSeparator() const override { return separator; }
  void ShowProgress() override { ++progress; }

  std::vector<Message> messages;
  std::string separator = ".";
  int progress = 0;
  bool waiting = false;
  int waits = 0;
};

}  // namespace support
