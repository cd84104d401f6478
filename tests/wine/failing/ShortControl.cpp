// What the test's library has besides the control: orders for its own operator new.
#include <optional>

#include "failing/memory/Shortage.h"

namespace {

std::optional<failing::Shortage> shortage;

}  // namespace

extern "C" {
void kelvaneBeginShortage(unsigned n, int goesOn);
int kelvaneEndShortage();
int kelvaneAllocationsHeld();

// The n-th allocation of the control from now on fails; with goesOn every later one too.
void kelvaneBeginShortage(unsigned n, int goesOn) {
  shortage.emplace(n, goesOn != 0 ? failing::Extent::FromThenOn : failing::Extent::Once);
}
// 1 when one has failed.
int kelvaneEndShortage() { return shortage->end() ? 1 : 0; }
int kelvaneAllocationsHeld() { return static_cast<int>(failing::allocationsHeld()); }
}
