#include "BoxAnswerer.h"

#include <utility>

namespace host {
namespace {

constexpr UINT kInterval = 20;
constexpr wchar_t kAnswered[] = L"KelvaneAnswered";
thread_local BoxAnswerer* current = nullptr;

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace

// A box lets the thread's timers run while it waits for its answer.
BoxAnswerer::BoxAnswerer()
    : timer_(SetTimer(nullptr, 0, kInterval, look)), previous_(std::exchange(current, this)) {}

BoxAnswerer::~BoxAnswerer() {
  KillTimer(nullptr, timer_);
  current = previous_;
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
  // An answered box may be seen again before it goes.
  if (GetPropW(window, kAnswered) != nullptr) return TRUE;
  SetPropW(window, kAnswered, window);
  auto& answerer = *reinterpret_cast<BoxAnswerer*>(self);
  answerer.boxes_.push_back({textOf(window), textOf(text), GetWindow(window, GW_OWNER)});
  if (answerer.meanwhile_) answerer.meanwhile_();
  EndDialog(window, IDOK);
  return TRUE;
}

}  // namespace host
