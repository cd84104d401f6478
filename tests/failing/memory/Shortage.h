#pragma once

#include <cstdint>

namespace failing {

// A shortage of memory for the extent of a scope: the n-th allocation from now on (n from 1)
// fails, and with Extent::FromThenOn every later one too. Counted is everything that comes from
// operator new, and what the XML parser takes.
enum class Extent { Once, FromThenOn };

class Shortage {
 public:
  Shortage(uint64_t n, Extent extent);
  ~Shortage();
  Shortage(const Shortage&) = delete;
  Shortage& operator=(const Shortage&) = delete;

  // Ends it. True when an allocation has failed.
  bool end();
};

// How many allocations are not yet given back.
int64_t allocationsHeld();

}  // namespace failing
