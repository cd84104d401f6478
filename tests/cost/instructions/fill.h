#pragma once

#include <cstdint>

#include "Scene.h"

namespace cost {

// The instructions of one fill of a picture's pixels.
int64_t fill(bench::Size size);

}  // namespace cost
