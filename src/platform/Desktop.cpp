#include "platform/Desktop.h"

namespace platform {
namespace {

class EmptyDesktop : public Desktop {
 public:
  void ShowMessage(std::string_view, std::string_view, MessageIcon) override {}
  void SetWaitPointer(bool) override {}
};

Desktop*& current() {
  static EmptyDesktop empty;
  static Desktop* desktop = &empty;
  return desktop;
}

}  // namespace

Desktop& desktop() { return *current(); }

DesktopScope::DesktopScope(Desktop& newCurrent) : previous_(current()) { current() = &newCurrent; }

DesktopScope::~DesktopScope() { current() = previous_; }

}  // namespace platform
