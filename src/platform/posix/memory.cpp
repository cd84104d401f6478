#include "platform/memory.h"

#include <sys/mman.h>

namespace platform {

bool hasMemoryFor(std::size_t bytes) {
  void* const memory =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) return false;
  munmap(memory, bytes);
  return true;
}

}  // namespace platform
