#pragma once

#include <cstdint>

#include "Instructions.h"

namespace cost {

// What n things cost each, and how much more each of them costs where there are several times as
// many. 1: the cost grows in proportion. Where something is sorted or looked for in a tree, each
// costs a third more among 8,000 than among 1,000, as their logarithms do, and up to half more by
// the order in which they come. A search through all of them for each would cost 8 times as much.
inline constexpr double kInProportion = 1.1;
inline constexpr double kWithTrees = 2.0;

// costOf(n) gives instructions.
template <class CostOf>
double costOfEach(const char* what, int32_t n, int32_t times, const CostOf& costOf) {
  const int64_t few = costOf(n);
  return ratio(what, costOf(n * times), few) / times;
}

}  // namespace cost
