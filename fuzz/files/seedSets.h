#pragma once

#include <filesystem>

namespace fuzz {

// Makes the small data sets that are damaged, each of which the control can draw, in folders named
// by their format below the given one: classic, offset64, data64 and netcdf4. The library must know
// all four. Throws on any refusal.
void makeSeedSets(const std::filesystem::path& folder);

}  // namespace fuzz
