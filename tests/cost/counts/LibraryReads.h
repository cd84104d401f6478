#pragma once

#include <cstdint>

namespace cost {

// Counts the reads that reach the netCDF library itself, beneath what is read ahead, for as long
// as it lives. One at a time.
class LibraryReads {
 public:
  LibraryReads();
  ~LibraryReads();
  LibraryReads(const LibraryReads&) = delete;
  LibraryReads& operator=(const LibraryReads&) = delete;

  int64_t count() const;
};

}  // namespace cost
