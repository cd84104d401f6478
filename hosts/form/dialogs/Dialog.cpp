#include "dialogs/Dialog.h"

#include <algorithm>
#include <exception>

#include "dialogs/dialogFont.h"

namespace form {

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

INT_PTR Dialog::run(HWND owner) {
  const std::vector<DWORD> bytes = templateInMessageFont(id_);
  if (bytes.empty()) return IDCANCEL;
  const INT_PTR result = DialogBoxIndirectParamW(
      GetModuleHandleW(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()), owner, procedure,
      reinterpret_cast<LPARAM>(this));
  return result > 0 ? result : IDCANCEL;
}

void Dialog::end(INT_PTR result) { EndDialog(window_, result); }

void Dialog::onCommand(int id, int) {
  if (id == IDOK || id == IDCANCEL) end(id);
}

std::wstring Dialog::textOf(int id) const { return windowText(item(id)); }

void Dialog::setText(int id, const std::wstring& text) const {
  if (textOf(id) != text) SetDlgItemTextW(window_, id, text.c_str());
}

void Dialog::enable(int id, bool enabled) const {
  const HWND control = item(id);
  if (!enabled && GetFocus() == control) SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
  const bool before = EnableWindow(control, enabled) == FALSE;
  // Enter was somebody else's while OK could not be had.
  if (id == IDOK && enabled && !before) SendMessageW(window_, DM_SETDEFID, IDOK, 0);
}

// In the middle of its owner, on the owner's screen.
void Dialog::place() const {
  RECT own = {}, over = {};
  GetWindowRect(window_, &own);
  const HWND owner = GetWindow(window_, GW_OWNER);
  MONITORINFO screen = {};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : window_, MONITOR_DEFAULTTONEAREST),
                  &screen);
  over = screen.rcWork;
  if (owner != nullptr && !IsIconic(owner)) GetWindowRect(owner, &over);
  const LONG width = own.right - own.left, height = own.bottom - own.top;
  const auto within = [](LONG at, LONG least, LONG most) {
    return std::max(least, std::min(at, most));
  };
  const LONG left = within((over.left + over.right - width) / 2, screen.rcWork.left,
                           screen.rcWork.right - width);
  const LONG top = within((over.top + over.bottom - height) / 2, screen.rcWork.top,
                          screen.rcWork.bottom - height);
  SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK Dialog::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<Dialog*>(longer)->window_ = window;
    SetWindowLongPtrW(window, DWLP_USER, longer);
  }
  auto* const self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr) return FALSE;
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, DWLP_USER, 0);
    return FALSE;
  }
  try {
    return self->handle(message, wide, longer);
  } catch (const std::exception&) {  // no memory: nothing may be thrown through the system
    MessageBeep(MB_ICONERROR);
    return TRUE;
  }
}

INT_PTR Dialog::handle(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_INITDIALOG: {
      const HWND focus = onInit();
      place();
      if (focus == nullptr) return TRUE;
      SetFocus(focus);
      return FALSE;
    }
    case WM_COMMAND:
      if (IsWindowEnabled(window_)) onCommand(LOWORD(wide), HIWORD(wide));
      return TRUE;
    case WM_NOTIFY:
      SetWindowLongPtrW(window_, DWLP_MSGRESULT,
                        onNotify(*reinterpret_cast<const NMHDR*>(longer)));
      return TRUE;
    default:
      return onMessage(message, wide, longer);
  }
}

}  // namespace form
