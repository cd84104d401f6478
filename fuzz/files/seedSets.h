#pragma once

#include <filesystem>

namespace fuzz {

// Makes the small data sets that are damaged, each of which the control can draw, in folders named
// by their format below the given one: classic, offset64, data64, netcdf4 and odd. The library must
// know all of them. Throws on any refusal.
void makeSeedSets(const std::filesystem::path& folder);

}  // namespace fuzz
