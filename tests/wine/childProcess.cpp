#include "childProcess.h"

#include <windows.h>

#include <stdexcept>

#include "Dispatch.h"
#include "library.h"

namespace winetest {
namespace {

constexpr DWORD kPoll = 20, kLimit = 60'000;  // milliseconds

std::string textOf(HWND window) {
  wchar_t text[2048] = {};
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, 2048, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                      2000, &length);
  return host::narrow(text);
}

// One look at all windows; a box is reported once, since it goes as soon as it is answered: a
// message box by OK, any other dialog, which has no text of its own, by Cancel.
BOOL CALLBACK answer(HWND window, LPARAM parameter) {
  constexpr int textItem = 0xFFFF;
  wchar_t kind[16] = {};
  GetClassNameW(window, kind, 16);
  const HWND text = GetDlgItem(window, textItem);
  if (std::wstring(kind) != L"#32770" || !IsWindowVisible(window)) return TRUE;
  const SeenBox box{textOf(window), text != nullptr ? textOf(text) : ""};
  const WPARAM reply = text != nullptr ? IDOK : IDCANCEL;
  DWORD_PTR ignored = 0;
  if (SendMessageTimeoutW(window, WM_COMMAND, reply, 0, SMTO_ABORTIFHUNG, 2000, &ignored) != 0) {
    reinterpret_cast<std::vector<SeenBox>*>(parameter)->push_back(box);
  }
  return TRUE;
}

struct Handle {
  explicit Handle(HANDLE opened) : handle(opened) {}
  ~Handle() { CloseHandle(handle); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  HANDLE handle;
};

}  // namespace

Outcome runProgram(const std::wstring& commandLine, Boxes boxes) {
  wchar_t folder[MAX_PATH] = {}, path[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, folder);
  GetTempFileNameW(folder, L"klv", 0, path);
  Outcome outcome;
  {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const Handle output(
        CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr));
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = output.handle;
    PROCESS_INFORMATION process = {};
    std::wstring line = commandLine;
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                        nullptr, &start, &process)) {
      throw std::runtime_error("cannot run " + host::narrow(commandLine));
    }
    const Handle thread(process.hThread), running(process.hProcess);
    for (unsigned waited = 0; waited < kLimit && !outcome.ended; waited += kPoll) {
      outcome.ended = WaitForSingleObject(running.handle, kPoll) == WAIT_OBJECT_0;
      if (outcome.ended || boxes == Boxes::LeftAlone) continue;
      EnumWindows(answer, reinterpret_cast<LPARAM>(&outcome.boxes));
    }
    if (!outcome.ended) TerminateProcess(running.handle, 1);
    WaitForSingleObject(running.handle, 5000);
    GetExitCodeProcess(running.handle, &outcome.status);
  }
  outcome.output = readFile(path);
  DeleteFileW(path);
  return outcome;
}

}  // namespace winetest
