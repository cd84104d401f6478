#include "activex/module.h"

#include <atomic>

namespace activex {
namespace {

HINSTANCE thisModule = nullptr;
std::atomic<long> references{0};

}  // namespace

HINSTANCE moduleHandle() { return thisModule; }

std::wstring modulePath() {
  std::wstring path(MAX_PATH, L'\0');
  while (path.size() <= 0x8000) {
    const DWORD length =
        GetModuleFileNameW(thisModule, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) return {};
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());
  }
  return {};
}

void ModuleReference::lock() noexcept { ++references; }
void ModuleReference::unlock() noexcept { --references; }
bool ModuleReference::any() noexcept { return references > 0; }

}  // namespace activex

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID);

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    activex::thisModule = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}
