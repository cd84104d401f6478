#pragma once

#include <cstddef>
#include <string>

namespace winetest {

// What this process holds of the system's.
struct Counts {
  int handles = 0;  // of the kernel: files, events, threads, keys, ...
  int windows = 0;
  int userObjects = 0;  // windows, menus, cursors, hooks, ...; 0 where the system does not count
  int gdiObjects = 0;
  std::size_t privateKilobytes = 0;

  static Counts now();
};

}  // namespace winetest
