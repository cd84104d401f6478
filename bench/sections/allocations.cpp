#include "allocations.h"

#include <cstdlib>
#include <new>

namespace {

int64_t asked = 0;

void* obtain(std::size_t bytes) {
  ++asked;
  void* memory = std::malloc(bytes == 0 ? 1 : bytes);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

namespace bench {

int64_t allocations() { return asked; }

}  // namespace bench

void* operator new(std::size_t bytes) { return obtain(bytes); }
void* operator new[](std::size_t bytes) { return obtain(bytes); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
