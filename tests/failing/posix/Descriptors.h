#pragma once

#include <filesystem>
#include <iterator>

namespace failing {

// How many files this process has open.
inline std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

}  // namespace failing
