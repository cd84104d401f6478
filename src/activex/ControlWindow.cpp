#include "activex/ControlWindow.h"

#include <utility>

#include "activex/guard.h"
#include "activex/module.h"

namespace activex {
namespace {

constexpr wchar_t kClassName[] = L"KelvaneCtlWindow";
constexpr int kAttempts = 10;

}  // namespace

UINT askForSizeMessage() {
  static const UINT message = RegisterWindowMessageW(L"KelvaneCtlAskForSize");
  return message;
}

bool ControlWindow::create(HWND parent, const RECT& place) {
  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = CS_DBLCLKS;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = moduleHandle();
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = kClassName;
  // Another thread may take the class away, with its last window, before there is one here.
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    RegisterClassExW(&windowClass);  // refused when another control has done it: just as good
    CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_VISIBLE, place.left,
                    place.top, place.right - place.left, place.bottom - place.top, parent,
                    nullptr, moduleHandle(), this);
    if (window_ != nullptr || GetLastError() != ERROR_CANNOT_FIND_WND_CLASS) break;
  }
  return window_ != nullptr;
}

void ControlWindow::destroy() {
  lost_ = false;
  // Given up first, since another may be made before this one is gone.
  if (const HWND window = std::exchange(window_, nullptr)) {
    DestroyWindow(window);
    // One that is still there, on its way out already or another thread's, must not come back to
    // us.
    if (IsWindow(window)) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  }
  // The class goes with its last window, or else it would outlive the library.
  UnregisterClassW(kClassName, moduleHandle());
}

void ControlWindow::place(const RECT& place, const RECT& clip) {
  if (window_ == nullptr) return;
  RECT shown = {};
  const bool whole = !IntersectRect(&shown, &place, &clip) || EqualRect(&shown, &place);
  OffsetRect(&shown, -place.left, -place.top);
  // The window owns the region from here.
  SetWindowRgn(window_, whole ? nullptr : CreateRectRgnIndirect(&shown), TRUE);
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::repaint() {
  if (window_ == nullptr) return;
  InvalidateRect(window_, nullptr, FALSE);
  UpdateWindow(window_);
}

void ControlWindow::paint(HWND window) {
  PAINTSTRUCT paint;
  const HDC dc = BeginPaint(window, &paint);
  if (dc != nullptr) events_.onPaint(dc, paint.rcPaint);
  EndPaint(window, &paint);
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(longer);
    auto* created = static_cast<ControlWindow*>(creation->lpCreateParams);
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wide, longer);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (self->window_ == window) {
      self->window_ = nullptr;
      self->lost_ = true;
    }
    return DefWindowProcW(window, message, wide, longer);
  }
  LRESULT answer = 0;
  guarded(self->object_, [&] {
    answer = self->handle(window, message, wide, longer);
    return S_OK;
  });
  return answer;
}

LRESULT ControlWindow::handle(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == askForSizeMessage()) {
    RECT all = {};
    GetClientRect(window, &all);
    events_.onSize(all.right, all.bottom);
    return 0;
  }
  switch (message) {
    case WM_ERASEBKGND:
      return 1;  // the picture covers everything
    case WM_PAINT:
      paint(window);
      return 0;
    case WM_PRINTCLIENT: {
      RECT all = {};
      GetClientRect(window, &all);
      events_.onPaint(reinterpret_cast<HDC>(wide), all);
      return 0;
    }
    case WM_SIZE:
      events_.onSize(LOWORD(longer), HIWORD(longer));
      return 0;
    case WM_LBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDOWN:
      events_.onMouseDown();
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      events_.onFocus(message == WM_SETFOCUS);
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window, message, wide, longer);
}

}  // namespace activex
