#include "BoxAnswerer.h"

namespace host {
namespace {

constexpr UINT kInterval = 20;
thread_local BoxAnswerer* current = nullptr;

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace

// A box lets the thread's timers run while it waits for its answer.
BoxAnswerer::BoxAnswerer() : timer_(SetTimer(nullptr, 0, kInterval, look)) { current = this; }

BoxAnswerer::~BoxAnswerer() {
  KillTimer(nullptr, timer_);
  current = nullptr;
}

void CALLBACK BoxAnswerer::look(HWND, UINT, UINT_PTR, DWORD) {
  if (current == nullptr) return;
  EnumThreadWindows(GetCurrentThreadId(), answer, reinterpret_cast<LPARAM>(current));
}

BOOL CALLBACK BoxAnswerer::answer(HWND window, LPARAM self) {
  constexpr int textItem = 0xFFFF;
  wchar_t kind[16] = {};
  GetClassNameW(window, kind, 16);
  const HWND text = GetDlgItem(window, textItem);
  if (std::wstring(kind) != L"#32770" || text == nullptr || !IsWindowVisible(window)) return TRUE;
  reinterpret_cast<BoxAnswerer*>(self)->boxes_.push_back(
      {textOf(window), textOf(text), GetWindow(window, GW_OWNER)});
  EndDialog(window, IDOK);
  return TRUE;
}

}  // namespace host
