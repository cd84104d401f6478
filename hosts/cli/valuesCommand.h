#pragma once

#include <cstdint>

#include "sectionRequest.h"

namespace cli {

struct ValuesRequest {
  SectionRequest section;
  int32_t step = 1;
};

// Writes the values of a section to standard output as comma-separated lines, one for each
// column and level.
void values(const ValuesRequest& request);

}  // namespace cli
