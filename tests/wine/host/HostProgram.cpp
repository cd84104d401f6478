#include "HostProgram.h"

#include <commctrl.h>
#include <shlobj.h>

#include <stdexcept>

#include "Dispatch.h"
#include "library.h"

namespace winetest {
namespace {

constexpr wchar_t kClass[] = L"KelvaneHostWindow";
constexpr DWORD kPatience = 20'000;  // milliseconds
constexpr UINT kTextMessageLimit = 2000;

BOOL CALLBACK findMain(HWND window, LPARAM place) {
  wchar_t kind[32] = {};
  GetClassNameW(window, kind, 32);
  if (std::wstring(kind) != kClass || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(place) = window;
  return FALSE;
}

// Room for a text in the other process, since messages of common controls carry its addresses.
class TheirMemory {
 public:
  TheirMemory(HANDLE process, SIZE_T size)
      : process_(process),
        place_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {}
  ~TheirMemory() { VirtualFreeEx(process_, place_, 0, MEM_RELEASE); }
  TheirMemory(const TheirMemory&) = delete;
  TheirMemory& operator=(const TheirMemory&) = delete;
  LPARAM address() const { return reinterpret_cast<LPARAM>(place_); }
  void read(void* to, SIZE_T size) const {
    ReadProcessMemory(process_, place_, to, size, nullptr);
  }
  void write(SIZE_T at, const void* from, SIZE_T size) const {
    WriteProcessMemory(process_, static_cast<char*>(place_) + at, from, size, nullptr);
  }

 private:
  HANDLE process_;
  void* place_;
};

}  // namespace

std::wstring hostProgram() {
  const std::wstring library = libraryPath();
  return library.substr(0, library.find_last_of(L'\\')) + L"\\KelvaneHost.exe";
}

PROCESS_INFORMATION HostProgram::start(const std::wstring& dataSet, const std::wstring& program) {
  const std::wstring path = program.empty() ? hostProgram() : program;
  std::wstring line = L"\"" + path + L"\"";
  if (!dataSet.empty()) line += L" \"" + dataSet + L"\"";
  STARTUPINFOW info = {};
  info.cb = sizeof info;
  PROCESS_INFORMATION started = {};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info,
                      &started)) {
    throw std::runtime_error("cannot run " + host::narrow(line));
  }
  CloseHandle(started.hThread);
  return started;
}

HostProgram::HostProgram(const std::wstring& dataSet, const std::wstring& program)
    : HostProgram(start(dataSet, program)) {}

HostProgram::HostProgram(const PROCESS_INFORMATION& started)
    : process_(started.hProcess), thread_(started.dwThreadId), user_(started.dwThreadId) {
  WaitForInputIdle(process_, kPatience);
  user_.until("the program's window", [&] {
    EnumThreadWindows(thread_, findMain, reinterpret_cast<LPARAM>(&window_));
    return window_ != nullptr;
  });
}

HostProgram::~HostProgram() {
  if (running()) {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process_, 3000) != WAIT_OBJECT_0) TerminateProcess(process_, 99);
    WaitForSingleObject(process_, 3000);
  }
  CloseHandle(process_);
}

HWND HostProgram::control() const { return GetWindow(item(IDC_STAGE), GW_CHILD); }

void HostProgram::key(WORD code, unsigned shift) {
  SetForegroundWindow(window_);
  user_.until("the window in front", [&] { return GetForegroundWindow() == window_; });
  user_.key(code, shift);
}

void HostProgram::drop(const std::wstring& file) {
  const DROPFILES head = {sizeof(DROPFILES), {}, FALSE, TRUE};
  const SIZE_T letters = (file.size() + 1) * sizeof(wchar_t);
  const TheirMemory theirs(process_, sizeof head + letters + sizeof(wchar_t));
  theirs.write(0, &head, sizeof head);
  theirs.write(sizeof head, file.c_str(), letters);
  // Taken by the time that the window opens the file or asks about it.
  PostMessageW(window_, WM_DROPFILES, static_cast<WPARAM>(theirs.address()), 0);
  user_.until("the file is taken", [&] {
    return title().starts_with(host::narrow(file.substr(file.find_last_of(L'\\') + 1)));
  });
}

void HostProgram::enterPath(const std::vector<std::pair<std::wstring, std::wstring>>& corners) {
  const HWND dialog = user_.dialog(L"Path");
  const HWND longitude = GetDlgItem(dialog, IDC_LONGITUDE), list = GetDlgItem(dialog, IDC_POINTS);
  const auto rows = [&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); };
  while (rows() > 0) {
    const auto before = rows();
    user_.click(dialog, IDC_REMOVE);
    user_.until("a row less", [&] { return rows() < before; });
  }
  for (const auto& [x, y] : corners) {
    const auto before = rows();
    user_.click(dialog, IDC_ADD);
    user_.until("a new row", [&] { return rows() > before && textOf(longitude).empty(); });
    user_.type(longitude, x);
    user_.type(GetDlgItem(dialog, IDC_LATITUDE), y);
  }
  user_.click(dialog, IDOK);
  user_.untilGone(dialog);
}

std::string HostProgram::message() const {
  return IsWindowVisible(item(IDC_MESSAGE)) ? textOf(item(IDC_MESSAGE)) : std::string();
}

std::string HostProgram::status(int part) const {
  wchar_t text[256] = {};
  const TheirMemory theirs(process_, sizeof text);
  DWORD_PTR ignored = 0;
  SendMessageTimeoutW(item(IDC_STATUS), SB_GETTEXTW, static_cast<WPARAM>(part), theirs.address(),
                      SMTO_ABORTIFHUNG, kTextMessageLimit, &ignored);
  theirs.read(text, sizeof text);
  return host::narrow(text);
}

void HostProgram::untilMessage(const std::string& text) {
  try {
    user_.until("a message", [&] { return message().find(text) != std::string::npos; });
  } catch (const std::exception&) {
    throw std::runtime_error("no message with \"" + text + "\" but \"" + message() + "\"");
  }
}

void HostProgram::untilStep(const std::string& step) {
  try {
    user_.until("a step", [&] {
      return shownStep() == step && status(3).starts_with("Step " + step);
    });
  } catch (const std::exception&) {
    throw std::runtime_error("not at step " + step + " but " + shownStep() + " (" + status(3) +
                             ") " + message());
  }
}

DWORD HostProgram::close() {
  PostMessageW(window_, WM_CLOSE, 0, 0);
  return waitForEnd();
}

DWORD HostProgram::waitForEnd() {
  if (WaitForSingleObject(process_, kPatience) != WAIT_OBJECT_0) {
    throw std::runtime_error("the program does not end");
  }
  DWORD status = 0;
  GetExitCodeProcess(process_, &status);
  return status;
}

}  // namespace winetest
