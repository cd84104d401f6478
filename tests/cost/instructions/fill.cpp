#include "fill.h"

#include <algorithm>
#include <vector>

#include "Instructions.h"

namespace cost {

int64_t fill(bench::Size size) {
  std::vector<uint32_t> pixels(static_cast<std::size_t>(size.width) *
                               static_cast<std::size_t>(size.height));
  uint32_t colour = 0;
  return instructions([&] {
    std::ranges::fill(pixels, ++colour);
    // Somebody may look at them: they have to be there.
    asm volatile("" : : "r"(pixels.data()) : "memory");
  });
}

}  // namespace cost
