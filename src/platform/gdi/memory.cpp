#include "platform/memory.h"

#include <windows.h>

namespace platform {

bool hasMemoryFor(std::size_t bytes) {
  void* const memory = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (memory == nullptr) return false;
  VirtualFree(memory, 0, MEM_RELEASE);
  return true;
}

}  // namespace platform
