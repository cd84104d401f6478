#include "Counts.h"

#include <windows.h>

#include "../gdiObjects.h"

namespace winetest {
namespace {

// Some systems do not keep this count: then every number that a handle may have is tried.
int kernelHandles() {
  DWORD counted = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &counted) && counted > 0) {
    return static_cast<int>(counted);
  }
  int found = 0;
  for (ULONG_PTR value = 4; value < 0x8000; value += 4) {
    DWORD flags = 0;
    found += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != 0;
  }
  return found;
}

BOOL CALLBACK count(HWND, LPARAM number) {
  ++*reinterpret_cast<int*>(number);
  return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM number) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId()) return TRUE;
  ++*reinterpret_cast<int*>(number);
  EnumChildWindows(window, count, number);
  return TRUE;
}

int allWindows() {
  int found = 0;
  EnumWindows(countWithChildren, reinterpret_cast<LPARAM>(&found));
  // Windows for messages alone are not among the others.
  HWND next = nullptr;
  while ((next = FindWindowExW(HWND_MESSAGE, next, nullptr, nullptr)) != nullptr) {
    countWithChildren(next, reinterpret_cast<LPARAM>(&found));
  }
  return found;
}

// What is committed and not shared, as the map of the address space has it: the process counters
// are zero on some systems.
std::size_t memoryInUse() {
  std::size_t bytes = 0;
  MEMORY_BASIC_INFORMATION region = {};
  const char* place = nullptr;
  while (VirtualQuery(place, &region, sizeof region) == sizeof region) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
    place = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
  }
  return bytes / 1024;
}

}  // namespace

Counts Counts::now() {
  Counts counts;
  counts.handles = kernelHandles();
  counts.windows = allWindows();
  counts.userObjects = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  counts.gdiObjects = winetest::gdiObjects();
  counts.privateKilobytes = memoryInUse();
  return counts;
}

}  // namespace winetest
