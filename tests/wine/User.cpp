#include "User.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

#include "Dispatch.h"

namespace winetest {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLimit = std::chrono::seconds(15);
constexpr auto kPoll = std::chrono::milliseconds(4);

bool isDialog(HWND window) {
  wchar_t kind[16] = {};
  GetClassNameW(window, kind, 16);
  return std::wstring(kind) == L"#32770";
}

// The dialogs that take input.
BOOL CALLBACK collectDialog(HWND window, LPARAM all) {
  if (isDialog(window) && IsWindowVisible(window) && IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
  }
  return TRUE;
}

std::vector<HWND> dialogsOf(DWORD thread) {
  std::vector<HWND> found;
  EnumThreadWindows(thread, collectDialog, reinterpret_cast<LPARAM>(&found));
  return found;
}

// The main thread's errand. Its modal loops let its timers run.
std::function<void()> errand;
std::atomic<bool> errandWaits = false, errandDone = false;

void CALLBACK lookForErrand(HWND, UINT, UINT_PTR, DWORD) {
  if (!errandWaits.exchange(false)) return;
  errand();
  errandDone = true;
}

INPUT stroke(WORD code, DWORD flags) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

}  // namespace

std::string textOf(HWND window) {
  std::wstring text(1024, L'\0');
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                      SMTO_ABORTIFHUNG, 2000, &length);
  text.resize(length);
  return host::narrow(text);
}

std::string User::during(const std::function<void()>& call,
                         const std::function<void(User&)>& script) {
  User user(GetCurrentThreadId());
  std::string problem;
  std::atomic<bool> ended = false;
  std::thread thread([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);  // for writing pictures
    try {
      script(user);
    } catch (const std::exception& error) {
      problem = error.what();
    }
    CoUninitialize();
    // A script that leaves a dialog up must not hold up the test.
    const auto limit = Clock::now() + (problem.empty() ? kLimit : kPoll);
    while (!ended) {
      std::this_thread::sleep_for(kPoll);
      if (Clock::now() < limit) continue;
      if (problem.empty()) problem = "a dialog was left up";
      user.closeAll();
    }
  });
  const UINT_PTR timer = SetTimer(nullptr, 0, 10, lookForErrand);
  const auto end = [&] {
    KillTimer(nullptr, timer);
    ended = true;
    thread.join();
  };
  try {
    call();
  } catch (...) {
    end();
    throw;
  }
  end();
  return problem;
}

void User::closeAll() const {
  for (const HWND window : dialogsOf(thread_)) PostMessageW(window, WM_CLOSE, 0, 0);
}

void User::until(const std::string& what, const std::function<bool()>& condition) {
  const auto limit = Clock::now() + kLimit;
  while (!condition()) {
    if (Clock::now() > limit) throw std::runtime_error("waited in vain: " + what);
    std::this_thread::sleep_for(kPoll);
  }
}

HWND User::dialog(const std::wstring& caption) {
  HWND found = nullptr;
  until("dialog " + host::narrow(caption), [&] {
    for (const HWND window : dialogsOf(thread_)) {
      if (textOf(window) == host::narrow(caption)) found = window;
    }
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    return found != nullptr && GetGUIThreadInfo(thread_, &info) && info.hwndActive == found;
  });
  return found;
}

void User::untilGone(HWND window) {
  until("the dialog goes", [&] { return !IsWindow(window); });
}

void User::click(HWND dialog, int control) {
  const HWND button = GetDlgItem(dialog, control);
  if (button == nullptr || !IsWindowEnabled(button)) {
    throw std::runtime_error("no button " + std::to_string(control) + " to click");
  }
  PostMessageW(button, BM_CLICK, 0, 0);
}

void User::press(HWND control) {
  RECT area = {};
  GetClientRect(control, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageW(control, WM_LBUTTONUP, 0, middle);
}

void User::type(HWND edit, const std::wstring& text) {
  press(edit);
  until("the caret is in the box", [&] { return focus() == edit; });
  PostMessageW(edit, EM_SETSEL, 0, -1);
  if (text.empty()) PostMessageW(edit, WM_KEYDOWN, VK_DELETE, 1);
  for (const wchar_t letter : text) PostMessageW(edit, WM_CHAR, letter, 1);
  until("the text is typed", [&] { return textOf(edit) == host::narrow(text); });
}

void User::key(WORD code, unsigned shift) {
  std::vector<INPUT> input;
  const std::pair<unsigned, WORD> shifts[] = {
      {WithShift, VK_SHIFT}, {WithControl, VK_CONTROL}, {WithAlt, VK_MENU}};
  for (const auto& [bit, shiftCode] : shifts) {
    if ((shift & bit) != 0) input.push_back(stroke(shiftCode, 0));
  }
  input.push_back(stroke(code, 0));
  input.push_back(stroke(code, KEYEVENTF_KEYUP));
  for (const auto& [bit, shiftCode] : shifts) {
    if ((shift & bit) != 0) input.push_back(stroke(shiftCode, KEYEVENTF_KEYUP));
  }
  if (SendInput(static_cast<UINT>(input.size()), input.data(), sizeof(INPUT)) != input.size()) {
    throw std::runtime_error("the keyboard is blocked");
  }
}

void User::chooseFile(const std::string& path) {
  constexpr int nameCombo = 0x47C, nameEdit = 0x480;  // by the system's own templates
  const HWND open = dialog(L"Open");
  HWND name = nullptr;
  until("the box for the name", [&] {
    name = GetDlgItem(open, nameEdit);
    if (name == nullptr) name = GetDlgItem(open, nameCombo);
    return name != nullptr;
  });
  SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(host::wide(path).c_str()));
  click(open, IDOK);
  untilGone(open);
}

void User::chooseColor(std::optional<COLORREF> colour) {
  const HWND chooser = dialog(L"Color");
  if (colour) mixColor(chooser, *colour);
  click(chooser, colour ? IDOK : IDCANCEL);
  untilGone(chooser);
}

void User::mixColor(HWND chooser, COLORREF colour) {
  constexpr int red = 706, green = 707, blue = 708;  // by the system's own template
  SetDlgItemInt(chooser, red, GetRValue(colour), FALSE);
  SetDlgItemInt(chooser, green, GetGValue(colour), FALSE);
  SetDlgItemInt(chooser, blue, GetBValue(colour), FALSE);
}

void User::onMainThread(std::function<void()> action) {
  errand = std::move(action);
  errandDone = false;
  errandWaits = true;
  until("the main thread's errand", [] { return errandDone.load(); });
}

HWND User::focus() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(thread_, &info) ? info.hwndFocus : nullptr;
}

host::Picture User::shoot(HWND dialog) {
  RedrawWindow(dialog, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  until("the dialog is painted", [&] {
    bool painted = !GetUpdateRect(dialog, nullptr, FALSE);
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      painted = painted && (!IsWindowVisible(child) || !GetUpdateRect(child, nullptr, FALSE));
    }
    return painted;
  });
  SendMessageW(dialog, WM_NULL, 0, 0);
  RECT place = {};
  GetWindowRect(dialog, &place);
  const int width = place.right - place.left, height = place.bottom - place.top;
  return host::takePicture(width, height, [&](HDC dc) {
    const HDC window = GetWindowDC(dialog);
    BitBlt(dc, 0, 0, width, height, window, 0, 0, SRCCOPY);
    ReleaseDC(dialog, window);
  });
}

}  // namespace winetest
