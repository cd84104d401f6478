#pragma once

#include <windows.h>

#include <string>

// The loaded library: where it is and whether it is still in use.
namespace activex {

HINSTANCE moduleHandle();
// Full path of the library's file; empty when the system does not tell.
std::wstring modulePath();

// While one lives, the library must stay loaded.
class ModuleReference {
 public:
  ModuleReference() noexcept { lock(); }
  ~ModuleReference() { unlock(); }
  ModuleReference(const ModuleReference&) = delete;
  ModuleReference& operator=(const ModuleReference&) = delete;

  static void lock() noexcept;
  static void unlock() noexcept;
  static bool any() noexcept;
};

}  // namespace activex
