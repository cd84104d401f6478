#pragma once

#include <string>

namespace fuzz {

// What a sound server would answer about a small data set that has everything the protocol knows:
// arrays, grids, strings, bytes, a sequence, an array of structures. kind is "dds", "das" or
// "dods". Of a grid whose array alone is asked for comes a structure, or, bare, the array itself:
// servers do either.
std::string dapAnswer(const std::string& kind, const std::string& constraint, bool bare);

// A number as it stands in the data: four bytes, the highest first.
std::string dapNumber(unsigned value);

}  // namespace fuzz
