#pragma once

#include <cstddef>
#include <vector>

#include "netcdf/NetCDF.h"

// Listens to the reads of single precision that reading ahead makes, for as long as it lives, and
// can let one of them fail or a file pass for a data set on a server.
class ReadsBeneath {
 public:
  struct Read {
    std::vector<std::size_t> start, count;
    std::size_t values() const {
      std::size_t product = 1;
      for (const std::size_t length : count) product *= length;
      return product;
    }
    bool operator==(const Read&) const = default;
  };

  ReadsBeneath() {
    reads.clear();
    failing = 0;
    cache.clear();
    NetCDF::beneath.nc_get_vars_float = [](int ncid, int varid, const std::size_t* start,
                                           const std::size_t* count, const std::ptrdiff_t* stride,
                                           float* values) {
      int rank = 0;
      nc_inq_varndims(ncid, varid, &rank);
      reads.push_back({{start, start + rank}, {count, count + rank}});
      if (static_cast<int>(reads.size()) == failing) return failure;
      return nc_get_vars_float(ncid, varid, start, count, stride, values);
    };
    NetCDF::beneath.nc_set_var_chunk_cache = [](int ncid, int varid, std::size_t bytes,
                                                std::size_t slots, float preemption) {
      cache.push_back(bytes);
      return nc_set_var_chunk_cache(ncid, varid, bytes, slots, preemption);
    };
  }
  ~ReadsBeneath() { NetCDF::beneath = NetCDF::bareLibrary(); }
  ReadsBeneath(const ReadsBeneath&) = delete;
  ReadsBeneath& operator=(const ReadsBeneath&) = delete;

  static void passForAServer() {
    NetCDF::beneath.nc_inq_format_extended = [](int, int* format, int* mode) {
      *format = NC_FORMATX_DAP2;
      *mode = 0;
      return NC_NOERR;
    };
  }

  static inline std::vector<Read> reads;
  static inline int failing = 0;  // which read fails, from 1
  static inline int failure = NC_EHDFERR;
  static inline std::vector<std::size_t> cache;  // sizes that were set
};
