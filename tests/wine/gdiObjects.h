#pragma once

#include <windows.h>

namespace winetest {

// GDI objects of this process. Where the system does not count them, every handle is tried.
inline int gdiObjects() {
  const auto counted = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  if (counted > 0) return counted;
  int found = 0;
  for (ULONG_PTR index = 1; index < 0x10000; ++index) {
    found += GetObjectType(reinterpret_cast<HGDIOBJ>(index)) != 0;
  }
  return found;
}

}  // namespace winetest
