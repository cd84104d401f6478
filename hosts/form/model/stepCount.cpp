#include "model/stepCount.h"

namespace form {

int countSteps(const std::function<int(int)>& advance) {
  constexpr int kMost = 1 << 29;  // keeps every sum within the control's 32 bits
  int there = 1, beyond = 0, shown = 1;
  for (int stride = 1; beyond == 0; stride *= 2) {
    if (there > kMost) return 0;
    shown = advance(stride);
    if (shown == there + stride) {
      there = shown;
    } else if (shown == 1) {
      beyond = there + stride;
    } else {
      return 0;
    }
  }
  while (beyond - there > 1) {
    const int wanted = there + (beyond - there) / 2;
    shown = advance(wanted - shown);
    if (shown == wanted) {
      there = wanted;
    } else if (shown == 1) {
      beyond = wanted;
    } else {
      return 0;
    }
  }
  return there;
}

}  // namespace form
