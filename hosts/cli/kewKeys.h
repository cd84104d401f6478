#pragma once

#include <string>
#include <vector>

#include "colorkey/kewListing.h"

namespace cli {

// The keys of a KEW file. Throws Failure with the file's name and why it cannot be read.
std::vector<ModColor::KewVariable> keysOf(const std::string& file);

}  // namespace cli
