#include "platform/gdi/WindowsDesktop.h"

#include "platform/gdi/wideText.h"

namespace platform {
namespace {

UINT iconFlags(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return MB_ICONERROR;
    case MessageIcon::Information:
      return MB_ICONINFORMATION;
    case MessageIcon::None:
      break;
  }
  return 0;
}

}  // namespace

void WindowsDesktop::ShowMessage(std::string_view text, std::string_view caption,
                                 MessageIcon icon) {
  // The arrow while the box is up, also over our own windows.
  const HCURSOR waiting = waits_ > 0 ? SetCursor(before_) : nullptr;
  MessageBoxW(Owner(), toWide(text).c_str(), toWide(caption).c_str(), MB_OK | iconFlags(icon));
  if (waiting != nullptr) SetCursor(waiting);
}

void WindowsDesktop::SetWaitPointer(bool wait) {
  if (wait) {
    if (waits_++ == 0) before_ = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  } else if (waits_ > 0 && --waits_ == 0) {
    SetCursor(before_);
  }
}

std::string WindowsDesktop::DecimalSeparator() const {
  constexpr int kRoom = 8;
  wchar_t separator[kRoom] = {};
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator, kRoom);
  // The closing zero is counted.
  return length > 1 ? toUtf8(separator) : Desktop::DecimalSeparator();
}

}  // namespace platform
