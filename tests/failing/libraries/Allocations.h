#pragma once

#include <cstdint>

namespace failing {

// Of all allocations of this process from now on, those of the libraries too, the n-th fails; 0 for
// none. Ended by endShortage, which gives how many there were.
void beginShortage(uint64_t n);
uint64_t endShortage();

}  // namespace failing
