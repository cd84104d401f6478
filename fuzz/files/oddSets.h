#pragma once

#include <filesystem>

namespace fuzz {

// Makes HDF5 files with what HDF5 has and the netCDF library does not write, in a folder that is
// there: filters, types, links, old layouts, data outside of the file. The control can draw from
// all but one. Throws on any refusal.
void makeOddSets(const std::filesystem::path& folder);

}  // namespace fuzz
