#pragma once

#include "sectionRequest.h"

namespace cli {

// Writes the values of a section to standard output as comma-separated lines, one for each
// column and level.
void values(const SectionRequest& request);

}  // namespace cli
