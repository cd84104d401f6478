#include "activex/dialogs/keys.h"

#include "activex/guard.h"

namespace activex {
namespace {

constexpr wchar_t kTaker[] = L"KelvaneKeyTaker";

// The class's own procedure is kept as the window's user data.
LRESULT CALLBACK procedure(HWND control, UINT message, WPARAM wide, LPARAM longer) {
  const auto original = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_USERDATA));
  auto* const taker = static_cast<KeyTaker*>(GetPropW(control, kTaker));
  if (taker == nullptr) return CallWindowProcW(original, control, message, wide, longer);
  switch (message) {
    case WM_GETDLGCODE: {
      const LRESULT code = CallWindowProcW(original, control, message, wide, longer);
      const auto* const asked = reinterpret_cast<const MSG*>(longer);
      const bool key = asked != nullptr && asked->message == WM_KEYDOWN;
      return key && taker->takesKey(control, asked->wParam) ? code | DLGC_WANTMESSAGE : code;
    }
    case WM_KEYDOWN:
      if (taker->takesKey(control, wide)) {
        guarded([&] {
          taker->onKey(control, wide);
          return S_OK;
        });
        return 0;
      }
      break;
    case WM_CHAR:
      // What a taken Tab or Enter leaves behind; an edit box would beep at it.
      if (wide == L'\t' || wide == L'\r') return 0;
      break;
    case WM_MOUSEWHEEL:
      // An edit box of one line has no use for it, and yet may not pass it on.
      return SendMessageW(GetParent(control), message, wide, longer);
    case WM_NCDESTROY:
      RemovePropW(control, kTaker);
      break;
    default:
      break;
  }
  return CallWindowProcW(original, control, message, wide, longer);
}

}  // namespace

void takeKeys(HWND control, KeyTaker& taker) {
  if (!SetPropW(control, kTaker, &taker)) return;
  SetWindowLongPtrW(control, GWLP_USERDATA, GetWindowLongPtrW(control, GWLP_WNDPROC));
  SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

bool keyIsDown(int key) { return GetKeyState(key) < 0; }

}  // namespace activex
