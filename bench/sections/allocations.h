#pragma once

#include <cstdint>

namespace bench {

// How many times this program's own code asked for memory so far (operator new; what the libraries
// in C ask for is not counted).
int64_t allocations();

}  // namespace bench
