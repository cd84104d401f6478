// KelvaneHost: the section control on a form, for looking at model output.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <string>

#include "Dispatch.h"
#include "window/MainWindow.h"
#include "window/run.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
  int count = 0;
  std::wstring name;
  if (LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count)) {
    if (count > 1) name = words[1];
    LocalFree(words);
  }
  if (FAILED(OleInitialize(nullptr))) return 1;
  int status = 1;
  try {
    form::MainWindow window;
    window.show(show);
    status = form::run(window, name);
  } catch (const std::exception& error) {
    MessageBoxW(nullptr, host::wide(error.what()).c_str(), L"Kelvane", MB_OK | MB_ICONERROR);
  }
  OleUninitialize();
  return status;
}
