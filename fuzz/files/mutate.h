#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Random.h"

namespace fuzz {

// A stretch of a file, first byte and one past the last.
struct Stretch {
  std::size_t begin = 0, end = 0;
};

// What a mutation may know of the file's format.
struct Layout {
  std::vector<Stretch> structure;  // where its headers stand; empty: anywhere
  bool bigEndian = false;
  std::size_t alignment = 1;       // of its numbers, bytes
  bool keepLength = false;         // nothing is cut out, inserted or cut off
};

// Damages the bytes of a file in one to sixteen places: flipped bits, foreign bytes, numbers that
// readers trip over, blocks that are missing, doubled or misplaced, an early end.
void mutate(std::string& bytes, const Layout& layout, Random& random);

}  // namespace fuzz
