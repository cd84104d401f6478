#include "window/MainWindow.h"

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>

#include "container/controlFactory.h"
#include "ids.h"
#include "window/MainWindowModal.h"

namespace form {
namespace {

constexpr UINT kClosePause = 30;  // milliseconds
constexpr int kUsualWidth = 600, kUsualHeight = 340, kLeastStage = 60;  // units

std::wstring kindOf(HWND window) {
  wchar_t kind[32] = {};
  if (window != nullptr) GetClassNameW(window, kind, 32);
  return kind;
}

// A list's edit box is a window in the list.
bool takesText(HWND focus) {
  const std::wstring kind = kindOf(focus);
  return kind == L"Edit" || kind == L"ComboBox" || kindOf(GetParent(focus)) == L"ComboBox";
}

// In the middle of the screen, and no larger than it.
RECT usualPlace(LONG width, LONG height) {
  RECT screen = {};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
  width = std::min(width, screen.right - screen.left);
  height = std::min(height, screen.bottom - screen.top);
  const LONG left = (screen.left + screen.right - width) / 2;
  const LONG top = (screen.top + screen.bottom - height) / 2;
  return {left, top, left + width, top + height};
}

bool isEditingKey(const MSG& message) {
  return message.message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 &&
         (message.wParam == 'C' || message.wParam == 'V' || message.wParam == 'X' ||
          message.wParam == 'A' || message.wParam == 'Z');
}

}  // namespace

MainWindow::MainWindow() {
  const INITCOMMONCONTROLSEX wanted = {sizeof wanted, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&wanted);
  const HINSTANCE module = GetModuleHandleW(nullptr);
  keys_ = LoadAcceleratorsW(module, MAKEINTRESOURCEW(IDR_KEYS));
  timeKeys_ = LoadAcceleratorsW(module, MAKEINTRESOURCEW(IDR_TIME_KEYS));
  WNDCLASSEXW kind = {};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = procedure;
  kind.hInstance = module;
  kind.hIcon = LoadIconW(module, MAKEINTRESOURCEW(IDI_KELVANE));
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszMenuName = MAKEINTRESOURCEW(IDR_MENU);
  kind.lpszClassName = kClass;
  RegisterClassExW(&kind);
  const RECT place = usualPlace(metrics_.across(kUsualWidth), metrics_.down(kUsualHeight));
  CreateWindowExW(WS_EX_CONTROLPARENT | WS_EX_ACCEPTFILES, kClass, L"Kelvane",
                  WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place.left, place.top,
                  place.right - place.left, place.bottom - place.top, nullptr, nullptr, module,
                  this);
  if (window_ == nullptr) throw host::HostError(E_FAIL, "no windows here");
  try {
    create();
  } catch (...) {
    // No message may find its way here once the parts are gone.
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    throw;
  }
}

MainWindow::~MainWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
}

void MainWindow::create() {
  bar_.emplace(window_, metrics_);
  strip_.emplace(window_, metrics_);
  stage_.emplace(window_, metrics_);
  status_.emplace(window_, metrics_);
  recent_ = settings_.recent();
  bar_->setSpeed(settings_.speed().value_or(Bar::kUsualSpeed));
  fillRecentMenu();
  layOut();
  placeControl();
  refresh();
}

void MainWindow::placeControl() {
  try {
    holder_.reset(new ControlHolder(window_, stage_->window(), *this));
    session_.emplace(holder_->object());
    stage_->onFocus([this] {
      if (holder_) holder_->focus();
    });
    note(L"Open a netCDF file to begin: File, Open, or drop one on this window.");
  } catch (const host::HostError& error) {
    stage_->setText(howToGetControl(error.code()));
    say(L"There is no section control for this program, so nothing can be drawn.");
  }
}

void MainWindow::show(int command) {
  if (const auto before = settings_.window()) {
    WINDOWPLACEMENT placement = *before;
    if (command != SW_SHOWDEFAULT && command != SW_SHOWNORMAL) {
      placement.showCmd = static_cast<UINT>(command);
    }
    SetWindowPlacement(window_, &placement);
  } else {
    ShowWindow(window_, command);
  }
  UpdateWindow(window_);
  SetFocus(stage_->window());
}

bool MainWindow::translate(MSG& message) {
  if (holder_ && holder_->translate(message)) return true;
  return onHostKey(message) || IsDialogMessageW(window_, &message);
}

// Boxes keep the keys that move the caret, buttons the blank that presses them.
bool MainWindow::onHostKey(MSG& message) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  const HWND focus = GetFocus();
  const bool text = takesText(focus);
  if (leave(focus, message)) return true;
  if (text && isEditingKey(message)) return false;
  if (TranslateAcceleratorW(window_, keys_, &message)) return true;
  const bool press = message.wParam == VK_SPACE && kindOf(focus) == L"Button";
  return !text && !press && TranslateAcceleratorW(window_, timeKeys_, &message);
}

// The keyboard leaves the picture and the strip only by what is done here: a box of several lines
// keeps Tab for itself, and takes Escape for the end of its window.
bool MainWindow::leave(HWND focus, const MSG& message) {
  const bool strip = focus == strip_->window();
  const bool picture = focus == stage_->window() || IsChild(stage_->window(), focus);
  if (message.message != WM_KEYDOWN || (!strip && !picture)) return false;
  if (strip && message.wParam == VK_ESCAPE) {
    SetFocus(stage_->window());
    perform(IDCANCEL);
    return true;
  }
  if (message.wParam != VK_TAB || GetKeyState(VK_CONTROL) < 0) return false;
  const BOOL back = GetKeyState(VK_SHIFT) < 0;
  SetFocus(GetNextDlgTabItem(window_, strip ? focus : stage_->window(), back));
  return true;
}

void MainWindow::onControlModal(bool up) {
  modal_ = std::max(modal_ + (up ? 1 : -1), 0);
  refresh();
}

void MainWindow::onControlStatus(const wchar_t* text) { note(text); }

void MainWindow::layOut() {
  if (!status_ || IsIconic(window_)) return;  // not all there yet
  RECT area = {};
  GetClientRect(window_, &area);
  const int width = area.right;
  const int line = status_->layOut(width), top = bar_->layOut(width),
            message = strip_->heightAt(width);
  const int height = std::max<int>(area.bottom - top - line - message, 0);
  SetWindowPos(stage_->window(), nullptr, 0, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  strip_->place(0, top + height, width, message);
  if (holder_) holder_->resize();
}

void MainWindow::leastSize(MINMAXINFO& limits) const {
  if (!bar_) return;
  RECT window = {}, area = {};
  GetWindowRect(window_, &window);
  GetClientRect(window_, &area);
  const LONG frame = window.right - window.left - area.right;
  const LONG caption = window.bottom - window.top - area.bottom;
  limits.ptMinTrackSize = {bar_->leastWidth() + frame,
                           metrics_.down(2 * kLeastStage) + caption};
}

// The keyboard comes back to where it was.
void MainWindow::onActivate(bool active) {
  if (holder_) holder_->frameActivated(active);
  if (!active) {
    focus_ = GetFocus();
  } else if (stage_) {
    const bool there = focus_ != nullptr && IsChild(window_, focus_) && IsWindowEnabled(focus_);
    SetFocus(there ? focus_ : stage_->window());
  }
}

void MainWindow::onTimer(WPARAM timer) {
  if (timer == kPlayTimer) playNext();
  if (timer != kCloseTimer) return;
  if (modal_ > 0 || (session_ && session_->busy())) {
    const HWND popup = GetLastActivePopup(window_);
    if (popup != window_ && IsWindowEnabled(popup)) PostMessageW(popup, WM_CLOSE, 0, 0);
  } else {
    KillTimer(window_, kCloseTimer);
    PostMessageW(window_, WM_CLOSE, 0, 0);
  }
}

void MainWindow::onDrop(HDROP drop) {
  std::wstring name(DragQueryFileW(drop, 0, nullptr, 0), L'\0');
  DragQueryFileW(drop, 0, name.data(), static_cast<UINT>(name.size()) + 1);
  DragFinish(drop);
  if (!ready() || name.empty()) return;
  SetForegroundWindow(window_);
  open(name);
}

// Under a dialog, or from within the control, the window waits until both are through: the dialogs
// are cancelled one after the other.
void MainWindow::onClose() {
  stop();
  closing_ = true;
  if (modal_ > 0 || (session_ && session_->busy())) {
    SetTimer(window_, kCloseTimer, kClosePause, nullptr);
  } else {
    DestroyWindow(window_);
  }
}

void MainWindow::onDestroy() {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  if (GetWindowPlacement(window_, &placement)) settings_.setWindow(placement);
  settings_.setSpeed(bar_->chosenSpeed());
  session_.reset();
  holder_.reset();
  PostQuitMessage(0);
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    auto* created =
        static_cast<MainWindow*>(reinterpret_cast<const CREATESTRUCTW*>(longer)->lpCreateParams);
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* const self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wide, longer);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
    return DefWindowProcW(window, message, wide, longer);
  }
  try {
    return self->handle(message, wide, longer);
  } catch (const std::exception&) {  // no memory: nothing may be thrown through the system
    MessageBeep(MB_ICONERROR);
    return 0;
  }
}

LRESULT MainWindow::handle(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_SIZE: layOut(); return 0;
    case WM_GETMINMAXINFO: leastSize(*reinterpret_cast<MINMAXINFO*>(longer)); return 0;
    case WM_ACTIVATE: onActivate(LOWORD(wide) != WA_INACTIVE); return 0;
    case WM_SETFOCUS:
      if (stage_) SetFocus(stage_->window());
      return 0;
    case WM_NEXTDLGCTL:
      // Sent for the letter with Alt that belongs to a box's label.
      SetFocus(LOWORD(longer) != 0 ? reinterpret_cast<HWND>(wide)
                                   : GetNextDlgTabItem(window_, GetFocus(), wide != 0));
      return 0;
    case WM_COMMAND: onCommand(LOWORD(wide), HIWORD(wide)); return 0;
    case WM_INITMENUPOPUP: updateMenu(reinterpret_cast<HMENU>(wide)); return 0;
    case WM_TIMER: onTimer(wide); return 0;
    case WM_DROPFILES: onDrop(reinterpret_cast<HDROP>(wide)); return 0;
    case WM_CTLCOLORSTATIC:
      if (strip_ && reinterpret_cast<HWND>(longer) == strip_->window()) {
        return reinterpret_cast<LRESULT>(strip_->colour(reinterpret_cast<HDC>(wide)));
      }
      break;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
      if (holder_) holder_->ambientChanged();
      break;
    case WM_CLOSE: onClose(); return 0;
    case WM_DESTROY: onDestroy(); return 0;
    default: break;
  }
  return DefWindowProcW(window_, message, wide, longer);
}

bool MainWindow::ready() const { return session_ && modal_ == 0 && !session_->busy() && !closing_; }

PictureSize MainWindow::viewSize() const {
  RECT area = {};
  GetClientRect(stage_->window(), &area);
  return {area.right, area.bottom};
}

}  // namespace form
