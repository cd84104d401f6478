#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "User.h"
#include "ids.h"

namespace winetest {

// KelvaneHost.exe, running as a process of its own, and a user at its windows. Every wait is
// bounded; one that fails throws.
class HostProgram {
 public:
  // Starts the program of the build, or another copy of it, and waits for its window.
  explicit HostProgram(const std::wstring& dataSet = L"", const std::wstring& program = L"");
  // Ends it, by force when it does not close.
  ~HostProgram();
  HostProgram(const HostProgram&) = delete;
  HostProgram& operator=(const HostProgram&) = delete;

  User& user() { return user_; }
  HWND window() const { return window_; }
  HWND item(int id) const { return GetDlgItem(window_, id); }
  HWND control() const;  // the section control's own window; null when there is none

  void command(int id) { PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(id), 0); }
  // A key while the window is in front and the picture has the keyboard.
  void key(WORD code, unsigned shift = User::None);
  // A file let go over the window.
  void drop(const std::wstring& file);
  // Fills in the path's dialog, which is up, and takes it.
  void enterPath(const std::vector<std::pair<std::wstring, std::wstring>>& corners);

  std::string title() const { return textOf(window_); }
  std::string message() const;  // empty while the strip is hidden
  std::string shownStep() const { return textOf(item(IDC_STEP)); }
  std::string status(int part) const;
  void untilMessage(const std::string& text);
  void untilStep(const std::string& step);

  // Closes the window: the exit status.
  DWORD close();
  // Waits for the program's end: its exit status.
  DWORD waitForEnd();
  bool running() const { return WaitForSingleObject(process_, 0) == WAIT_TIMEOUT; }

 private:
  static PROCESS_INFORMATION start(const std::wstring& dataSet, const std::wstring& program);
  explicit HostProgram(const PROCESS_INFORMATION& started);

  HANDLE process_;
  DWORD thread_;
  User user_;
  HWND window_ = nullptr;
};

// The program of the build.
std::wstring hostProgram();

}  // namespace winetest
