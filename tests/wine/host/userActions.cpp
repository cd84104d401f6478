#include "userActions.h"

#include <algorithm>
#include <stdexcept>

namespace winetest {

void putOnClipboard(const std::wstring& text) {
  const std::size_t letters = text.size() + 1;
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, letters * sizeof(wchar_t));
  std::copy_n(text.c_str(), letters, static_cast<wchar_t*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  if (!OpenClipboard(nullptr)) throw std::runtime_error("the clipboard is not free");
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
}

HWND enterName(User& user, const std::wstring& caption, const std::wstring& name) {
  constexpr int nameCombo = 0x47C, nameEdit = 0x480;  // by the system's own templates
  const HWND dialog = user.dialog(caption);
  HWND box = nullptr;
  user.until("the box for the name", [&] {
    box = GetDlgItem(dialog, nameEdit);
    if (box == nullptr) box = GetDlgItem(dialog, nameCombo);
    return box != nullptr;
  });
  SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
  user.click(dialog, IDOK);
  return dialog;
}

void chooseName(User& user, const std::wstring& caption, const std::wstring& name) {
  user.untilGone(enterName(user, caption, name));
}

}  // namespace winetest
