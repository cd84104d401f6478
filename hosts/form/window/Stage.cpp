#include "window/Stage.h"

#include "ids.h"

namespace form {
namespace {

constexpr wchar_t kClass[] = L"KelvaneHostStage";

}  // namespace

Stage::Stage(HWND parent, const Metrics& metrics) : metrics_(metrics) {
  WNDCLASSW kind = {};
  kind.lpfnWndProc = procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kClass;
  RegisterClassW(&kind);
  CreateWindowExW(0, kClass, L"",
                  WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_TABSTOP, 0, 0, 0,
                  0, parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_STAGE)),
                  kind.hInstance, this);
}

void Stage::setText(const std::wstring& text) {
  text_ = text;
  InvalidateRect(window_, nullptr, FALSE);
}

void Stage::paint() {
  PAINTSTRUCT paint;
  const HDC dc = BeginPaint(window_, &paint);
  FillRect(dc, &paint.rcPaint, GetSysColorBrush(COLOR_WINDOW));
  RECT area = {};
  GetClientRect(window_, &area);
  constexpr int kMargin = 20;
  InflateRect(&area, -metrics_.across(kMargin), -metrics_.down(kMargin));
  const HGDIOBJ before = SelectObject(dc, metrics_.font());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
  DrawTextW(dc, text_.c_str(), -1, &area, DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, before);
  EndPaint(window_, &paint);
}

LRESULT CALLBACK Stage::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    auto* created =
        static_cast<Stage*>(reinterpret_cast<const CREATESTRUCTW*>(longer)->lpCreateParams);
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* const self = reinterpret_cast<Stage*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wide, longer);
  switch (message) {
    case WM_NCDESTROY:
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      break;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      self->paint();
      return 0;
    case WM_SETFOCUS:
      if (self->focus_) self->focus_();
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window, message, wide, longer);
}

}  // namespace form
