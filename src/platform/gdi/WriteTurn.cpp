#include "platform/WriteTurn.h"

#include <windows.h>

#include "platform/gdi/fileNames.h"
#include "platform/wholeFile.h"

namespace platform {
namespace {

// A name for the file that every program makes alike. Two files that share one by chance only wait
// for each other.
std::wstring nameOf(const std::string& path) {
  std::wstring name = systemName(path);
  CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
  uint64_t hash = 0xCBF29CE484222325;
  for (const wchar_t letter : name) hash = (hash ^ static_cast<uint16_t>(letter)) * 0x100000001B3;
  return L"Global\\Kelvane-write-" + std::to_wstring(hash);
}

}  // namespace

WriteTurn::WriteTurn(const std::string& path, std::chrono::milliseconds patience) : handle_(0) {
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, nameOf(path).c_str());
  if (mutex == nullptr) return;
  switch (WaitForSingleObject(mutex, static_cast<DWORD>(patience.count()))) {
    case WAIT_OBJECT_0:
    case WAIT_ABANDONED:  // its owner was killed; the file is whole all the same
      handle_ = reinterpret_cast<std::intptr_t>(mutex);
      return;
    case WAIT_TIMEOUT:
      CloseHandle(mutex);
      failFile("write", path, kBusy);
    default:
      CloseHandle(mutex);
  }
}

WriteTurn::~WriteTurn() {
  if (handle_ == 0) return;
  const HANDLE mutex = reinterpret_cast<HANDLE>(handle_);
  ReleaseMutex(mutex);
  CloseHandle(mutex);
}

}  // namespace platform
