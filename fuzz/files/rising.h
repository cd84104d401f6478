#pragma once

#include <cstddef>
#include <vector>

namespace fuzz {

// Evenly spaced numbers.
inline std::vector<double> rising(std::size_t count, double first, double step) {
  std::vector<double> values;
  for (std::size_t i = 0; i < count; ++i) {
    values.push_back(first + step * static_cast<double>(i));
  }
  return values;
}

}  // namespace fuzz
