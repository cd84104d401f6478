#pragma once

#include <string>
#include <vector>

#include "colorkey/kewListing.h"

namespace cli {

// Why a key's reading ends before its last division, in plain words: "division 2 lacks low, high
// or color". Empty when it does not.
std::string failureOf(const ModColor::KewVariable& variable);

// The keys of a KEW file. Throws Failure with the file's name and why it cannot be read.
std::vector<ModColor::KewVariable> keysOf(const std::string& file);

}  // namespace cli
