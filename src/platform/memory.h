#pragma once

#include <cstddef>

namespace platform {

// Whether the system would give this process so many bytes more, in one piece. Nothing is taken.
bool hasMemoryFor(std::size_t bytes);

}  // namespace platform
