#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace opendap_test {

// The number of values that a constraint "temp.temp[0][0:9]..." asks for.
inline int64_t valuesIn(const std::string& constraint) {
  int64_t product = 1;
  for (std::size_t at = constraint.find('['); at != std::string::npos;
       at = constraint.find('[', at + 1)) {
    char* end = nullptr;
    const int64_t first = std::strtoll(constraint.c_str() + at + 1, &end, 10);
    const int64_t last = *end == ':' ? std::strtoll(end + 1, &end, 10) : first;
    product *= last - first + 1;
  }
  return product;
}

}  // namespace opendap_test
