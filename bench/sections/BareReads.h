#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace bench {

// The least that a reader could do: the bare calls of the netCDF library that fetch the values of a
// section, raw and unconverted, the file opened and closed around them. Failures throw
// std::runtime_error.
class BareReads {
 public:
  using Place = std::pair<std::size_t, std::size_t>;  // longitude, latitude; from 0

  // The columns of a path through the variable temp(time, depth, lat, lon) of a file.
  BareReads(std::string file, std::vector<Place> columns);

  // One call a column. The chunk cache holds every chunk that the path meets, unless the library's
  // default is asked for.
  enum class Cache { Sufficient, Default };
  void columnByColumn(std::size_t step, Cache cache = Cache::Sufficient);
  // One call for the box around all columns, of which the columns are picked.
  void boundingBox(std::size_t step);
  // Opening, everything that the header tells, the coordinates, closing.
  void catalogue();

  const std::vector<int16_t>& values() const { return values_; }

 private:
  std::string file_;
  std::vector<Place> columns_;
  std::vector<int16_t> values_, box_;
};

}  // namespace bench
