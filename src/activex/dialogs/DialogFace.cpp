#include "activex/dialogs/DialogFace.h"

#include <vector>

#include "activex/dialogs/dialogTemplate.h"
#include "activex/floatingPoint.h"
#include "activex/module.h"
#include "platform/centerForm.h"
#include "platform/gdi/wideText.h"
#include "util/lastError.h"

namespace activex {
namespace {

class WindowForm final : public platform::Form {
 public:
  explicit WindowForm(HWND window) : window_(window) { GetWindowRect(window, &place_); }

  platform::WindowState WindowState() const override {
    if (IsIconic(window_)) return platform::WindowState::Minimised;
    return IsZoomed(window_) ? platform::WindowState::Maximised : platform::WindowState::Normal;
  }
  double Width() const override { return place_.right - place_.left; }
  double Height() const override { return place_.bottom - place_.top; }
  void MoveTo(int32_t left, int32_t top) override {
    SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

 private:
  HWND window_;
  RECT place_ = {};
};

std::wstring wideTextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace

void DialogFace::run(HWND owner) {
  const std::vector<DWORD> bytes = dialogTemplate(template_);
  if (!bytes.empty()) {
    DialogBoxIndirectParamW(moduleHandle(), reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()), owner,
                            procedure, reinterpret_cast<LPARAM>(this));
  }
  if (!dialog_.closed()) dialog_.closeBox();
}

std::optional<INT_PTR> DialogFace::onMessage(UINT, WPARAM, LPARAM) { return {}; }

INT_PTR CALLBACK DialogFace::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<DialogFace*>(longer)->window_ = window;
    SetWindowLongPtrW(window, DWLP_USER, longer);
  }
  auto* const self = reinterpret_cast<DialogFace*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr) return FALSE;
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, DWLP_USER, 0);
    self->window_ = nullptr;
    return FALSE;
  }
  const FloatingPointScope floatingPoint;
  try {
    return self->handle(message, wide, longer);
  } catch (...) {
    // The modal loop is the system's; nothing may be thrown through it.
    try {
      util::reportTagged(self->name_);
    } catch (...) {  // no memory even for the text
    }
    MessageBeep(MB_ICONERROR);
    return FALSE;
  }
}

INT_PTR DialogFace::handle(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_INITDIALOG: {
      const HWND focus = onInit();
      WindowForm form(window_);
      platform::CenterForm(form, {static_cast<double>(GetSystemMetrics(SM_CXSCREEN)),
                                  static_cast<double>(GetSystemMetrics(SM_CYSCREEN))});
      // Without an owner that is in front, it would open behind the other programs.
      if (GetWindow(window_, GW_OWNER) == nullptr) SetForegroundWindow(window_);
      if (focus == nullptr) return TRUE;
      SetFocus(focus);
      return FALSE;
    }
    case WM_COMMAND:
      // Under a dialog of its own it takes no orders, wherever they come from.
      if (!IsWindowEnabled(window_)) return TRUE;
      if (!dialog_.closed()) onCommand(LOWORD(wide), HIWORD(wide));
      endWhenClosed();
      return TRUE;
    case WM_CLOSE:
      if (!IsWindowEnabled(window_)) return TRUE;
      // Left to the system, it would be Cancel.
      dialog_.closeBox();
      endWhenClosed();
      return TRUE;
    default:
      break;
  }
  const std::optional<INT_PTR> answer = onMessage(message, wide, longer);
  return answer.value_or(FALSE);
}

void DialogFace::endWhenClosed() {
  if (dialog_.closed() && window_ != nullptr) EndDialog(window_, 0);
}

std::string textOf(HWND window) { return platform::toUtf8(wideTextOf(window)); }

void setText(HWND window, const std::string& text) {
  const std::wstring wanted = platform::toWide(text);
  if (wideTextOf(window) != wanted) SetWindowTextW(window, wanted.c_str());
}

}  // namespace activex
