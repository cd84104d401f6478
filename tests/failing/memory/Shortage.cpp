#include "failing/memory/Shortage.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <pugixml.hpp>

namespace failing {
namespace {

std::atomic<bool> armed = false;
std::atomic<uint64_t> left = 0;
std::atomic<bool> goesOn = false;
std::atomic<bool> hit = false;
std::atomic<int64_t> held = 0;

// Whether the allocation that is asked for is to fail.
bool failsNow() {
  if (!armed) return false;
  if (left > 1) {
    --left;
    return false;
  }
  if (left == 0 && !goesOn) return false;
  left = 0;
  hit = true;
  return true;
}

void* take(std::size_t size) {
  if (failsNow()) return nullptr;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory != nullptr) ++held;
  return memory;
}

void giveBack(void* memory) noexcept {
  if (memory == nullptr) return;
  --held;
  std::free(memory);
}

}  // namespace

Shortage::Shortage(uint64_t n, Extent extent) {
  // The parser has its own way to memory.
  pugi::set_memory_management_functions(take, giveBack);
  left = n;
  goesOn = extent == Extent::FromThenOn;
  hit = false;
  armed = true;
}

Shortage::~Shortage() { end(); }

bool Shortage::end() {
  armed = false;
  return hit;
}

int64_t allocationsHeld() { return held; }

}  // namespace failing

// The program's own functions come before those of the standard library; its other forms of new
// and delete end up here.
void* operator new(std::size_t size) {
  void* const memory = failing::take(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept { failing::giveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { failing::giveBack(memory); }
