#pragma once

#include <array>
#include <cstddef>
#include <new>
#include <vector>

#include "netcdf/ncf.h"
#include "netcdf/pathCover.h"

// Reading ahead: who is going to ask for one small hyperslab after another says so, and is served
// from memory. What lies between can be read in the order that the storage wants: each chunk of a
// netCDF-4 file once, neighbours in a file together, a server in a handful of requests.
namespace NetCDF {

// Reads of one variable that will be asked for in this order. They differ in their places along
// the last two dimensions, where each takes a single cell; at most one of the other dimensions has
// a count above 1, and all strides are 1.
struct ComingReads {
  template <class Number>
  using List = std::array<Number, ocxNetNc::kDimensionLimit>;

  int ncid = -1;
  int varid = -1;
  std::size_t rank = 0;
  List<std::size_t> start{}, count{};  // one entry a dimension; of the last two, only the places
  std::vector<Place> places;
};

// How much memory reading ahead takes: some 64 megabytes in all, so that a 32-bit host has room.
struct AheadLimits {
  std::size_t staged = std::size_t{16} << 20;    // bytes of values waiting to be asked for
  std::size_t cache = std::size_t{44} << 20;     // bytes of unpacked chunks kept by the library
  std::size_t buffer = std::size_t{4} << 20;     // bytes of one read, beside such a cache
  std::size_t buffers = std::size_t{48} << 20;   // the same where chunks are too large to be kept
  std::size_t request = std::size_t{15} << 20;   // bytes of one answer of a server
  std::size_t requests = 7;  // of a server, for one filling, as long as none is too large
};

// Announces reads of an open data set; the first of them that is asked for begins the reading
// ahead. Another read, before or between them, is simply done, and so are all when reading ahead
// fails; but not from a server: there a failure is that of the read which needed it. Reads of
// fewer than two dimensions, or of more than a variable has, are not announced. Announcements made
// before are forgotten.
void announceReads(ComingReads reads, const AheadLimits& limits = {});

// Forgets what was announced, and what was read and not asked for.
void forgetReads() noexcept;

// An announcement of the reads that a function gives, which ends with its scope. Without the memory
// for them nothing is announced.
class Announced {
 public:
  template <class Reads>
  explicit Announced(const Reads& reads) {
    try {
      announceReads(reads());
    } catch (const std::bad_alloc&) {
      forgetReads();
    }
  }
  ~Announced() { forgetReads(); }
  Announced(const Announced&) = delete;
  Announced& operator=(const Announced&) = delete;
};

// The entry points that know of announced reads: nc_get_vars_short, _int, _float, _double, and
// nc_close. Whatever is not announced goes on to `beneath`.
template <class Number>
int readAhead(int ncid, int varid, const std::size_t* start, const std::size_t* count,
              const std::ptrdiff_t* stride, Number* values);
int closeBehindReads(int ncid);

}  // namespace NetCDF
