#include "window/MessageStrip.h"

#include <algorithm>

#include "ids.h"

namespace form {
namespace {

// Boxes want both characters at a line's end.
std::wstring withLineEnds(const std::wstring& text) {
  std::wstring lines;
  for (const wchar_t letter : text) {
    if (letter == L'\r') continue;
    if (letter == L'\n') lines += L'\r';
    lines += letter;
  }
  return lines;
}

}  // namespace

MessageStrip::MessageStrip(HWND window, const Metrics& metrics) : metrics_(metrics) {
  constexpr DWORD style = WS_BORDER | WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | ES_MULTILINE |
                          ES_READONLY;
  box_ = CreateWindowExW(0, L"Edit", L"", style, 0, 0, 0, 0, window,
                         reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_MESSAGE)),
                         GetModuleHandleW(nullptr), nullptr);
  SendMessageW(box_, WM_SETFONT, reinterpret_cast<WPARAM>(metrics.font()), FALSE);
}

bool MessageStrip::say(const std::wstring& text) {
  if (text == text_) return false;
  text_ = text;
  SetWindowTextW(box_, withLineEnds(text).c_str());
  return true;
}

int MessageStrip::padding() const { return metrics_.down(4); }

int MessageStrip::heightAt(int width) const {
  if (text_.empty()) return 0;
  constexpr int kMostLines = 5;
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, metrics_.font());
  RECT area = {0, 0, std::max(width - 4 * padding(), 1), 0};
  DrawTextW(screen, text_.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  const int line = metrics_.down(8);
  return std::min<int>(area.bottom, kMostLines * line) + 2 * padding();
}

void MessageStrip::place(int left, int top, int width, int height) {
  SetWindowPos(box_, nullptr, left, top, width, height,
               SWP_NOZORDER | SWP_NOACTIVATE | (height > 0 ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
  RECT area = {2 * padding(), padding(), width - 2 * padding(), height - padding() + 1};
  SendMessageW(box_, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&area));
}

HBRUSH MessageStrip::colour(HDC dc) const {
  SetTextColor(dc, GetSysColor(COLOR_INFOTEXT));
  SetBkColor(dc, GetSysColor(COLOR_INFOBK));
  return GetSysColorBrush(COLOR_INFOBK);
}

}  // namespace form
