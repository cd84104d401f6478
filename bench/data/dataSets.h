#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

// How the values of a data set lie in its file.
enum class Layout {
  Offset64,     // 64-bit-offset classic file
  Blocks,       // netCDF-4, deflated, blocks of several levels and of a part of the area
  LevelChunks,  // netCDF-4, deflated, one chunk a level and step: a common archive layout
};

// A made-up data set: temperatures as packed shorts on a regular grid.
struct DataSet {
  std::string name;  // without the suffix .nc
  std::size_t lons, lats, levels, steps;
  double west, south, spacing;  // degrees; the first grid point and the distance of two
  Layout layout;
  std::size_t blockLevels, blockSide;  // of Layout::Blocks

  std::size_t cells() const { return lons * lats; }
};

// The data sets of the benchmarks: a regional grid in three layouts, a global one, and one for very
// long sections. The tiny ones have the same names and layouts, for tests of the tools.
std::vector<DataSet> dataSets(bool tiny);

}  // namespace bench
