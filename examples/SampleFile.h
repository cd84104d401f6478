#pragma once

#include <string>

#include "SampleSea.h"

namespace sample {

enum class Format {
  Classic,     // netCDF classic
  Compressed,  // netCDF-4, shuffled and deflated, one chunk a level and month as models write it
};

// Writes a made-up sea to a file: complete, or not at all (an older file then stays as it
// is). A failure throws std::runtime_error with a text for the user.
void writeSea(const Sea& sea, const std::string& path, Format format);

}  // namespace sample
