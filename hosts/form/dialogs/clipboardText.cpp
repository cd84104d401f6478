#include "dialogs/clipboardText.h"

#include <cwchar>

namespace form {

std::wstring clipboardText(HWND owner) {
  std::wstring text;
  if (!OpenClipboard(owner)) return text;
  if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* letters = static_cast<const wchar_t*>(GlobalLock(memory))) {
      text.assign(letters, wcsnlen(letters, GlobalSize(memory) / sizeof(wchar_t)));
      GlobalUnlock(memory);
    }
  }
  CloseClipboard();
  return text;
}

}  // namespace form
