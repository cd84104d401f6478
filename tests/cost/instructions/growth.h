#pragma once

#include <cstdint>

#include "Instructions.h"

namespace cost {

// What n things cost each, and how much more each of them costs where there are several times as
// many. 1: the cost grows in proportion. Where something is sorted or looked for in a tree, it
// grows with the logarithm too: 16 times of some thousands then cost a third more each. A search
// through all of them, for each of them, would cost as many times more.
inline constexpr double kInProportion = 1.1;
inline constexpr double kWithTrees = 1.5;

// costOf(n) gives instructions.
template <class CostOf>
double costOfEach(const char* what, int32_t n, int32_t times, const CostOf& costOf) {
  const int64_t few = costOf(n);
  return ratio(what, costOf(n * times), few) / times;
}

}  // namespace cost
