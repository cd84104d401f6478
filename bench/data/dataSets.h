#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace bench {

enum class Format {
  Offset64,  // 64-bit-offset classic file
  Records,   // the same with an unlimited time: the steps of two variables lie in turn
  Netcdf4,   // in chunks, deflated
};

// A made-up data set: temperatures as packed shorts on a regular grid.
struct DataSet {
  std::string name;  // without the suffix .nc
  std::size_t lons, lats, levels, steps;
  double west, south, spacing;  // degrees; the first grid point and the distance of two
  Format format;
  std::array<std::size_t, 4> chunk;  // of Format::Netcdf4: steps, levels, latitudes, longitudes

  std::size_t cells() const { return lons * lats; }
};

// The data sets of the benchmarks: a regional grid in many layouts, a global one, and one for very
// long sections. The tiny ones have the same names and layouts, for tests of the tools.
std::vector<DataSet> dataSets(bool tiny);

}  // namespace bench
