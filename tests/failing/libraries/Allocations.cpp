#include "failing/libraries/Allocations.h"

#include <cerrno>
#include <cstddef>

namespace failing {
namespace {

bool counting = false;
uint64_t made = 0;
uint64_t failing = 0;

bool failsNow() {
  if (!counting) return false;
  ++made;
  if (made != failing) return false;
  errno = ENOMEM;
  return true;
}

}  // namespace

void beginShortage(uint64_t n) {
  made = 0;
  failing = n;
  counting = true;
}

uint64_t endShortage() {
  counting = false;
  return made;
}

}  // namespace failing

// The program's own functions come before those of the C library, whose own are these.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

void* malloc(std::size_t size) {
  return failing::failsNow() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  return failing::failsNow() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
  return failing::failsNow() ? nullptr : __libc_realloc(memory, size);
}
}
