#pragma once

#include <cstdint>

namespace cost {

// Counts the instructions between its making and count(): the same on a busy machine and an idle
// one. Only where valgrind runs this program with its tool callgrind; std::runtime_error elsewhere.
class Instructions {
 public:
  Instructions();
  int64_t count();
};

// The instructions of some work. It is done once before, uncounted, so that what is made only once
// (glyphs, lists that grow) is there.
template <class Work>
int64_t instructions(const Work& work) {
  work();
  Instructions counted;
  work();
  return counted.count();
}

// One cost in terms of another; what was counted goes to the output.
double ratio(const char* what, int64_t cost, int64_t of);

}  // namespace cost
