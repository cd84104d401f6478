#pragma once

#include <netcdf.h>

#include <array>
#include <cstddef>
#include <optional>

#include "netcdf/ncf.h"

// How the values of a variable lie where they are read from.
namespace NetCDF {

enum class Layout {
  Classic,     // one after another, read through a small buffer
  Contiguous,  // one after another in a netCDF-4 file
  Chunked,     // in boxes, each read, and unpacked, as a whole
  Remote,      // on a server
};

struct Storage {
  template <class Number>
  using List = std::array<Number, ocxNetNc::kDimensionLimit>;

  Layout layout = Layout::Classic;
  std::size_t valueBytes = 0;     // of a value as it is stored
  std::size_t rank = 0;
  List<std::size_t> shape{};      // lengths of the dimensions
  List<std::size_t> chunk{};      // of a chunk, at least 1; chunked layout only

  // Bytes of an unpacked chunk.
  double chunkBytes() const;
};

// Looks at a variable of an open data set. Nothing when the library does not say it, when the
// variable has not that rank or is of no number type, or for formats that nothing is known of.
std::optional<Storage> storageOf(int ncid, int varid, std::size_t rank);

// Makes the library keep unpacked chunks of a variable up to so many bytes, at least `least` if
// that is not already so, at most `most`.
void limitChunkCache(int ncid, int varid, std::size_t least, std::size_t most);

}  // namespace NetCDF
