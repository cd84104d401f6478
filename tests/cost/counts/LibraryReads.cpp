#include "LibraryReads.h"

#include "netcdf/NetCDF.h"

namespace cost {
namespace {

using NetCDF::EntryPoints;

int64_t reads = 0;

template <class T>
using Reader = int (*)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*, T*);

template <class T, Reader<T> EntryPoints::*entry>
int counted(int ncid, int varid, const std::size_t* start, const std::size_t* count,
            const std::ptrdiff_t* stride, T* values) {
  static const EntryPoints library = NetCDF::bareLibrary();
  ++reads;
  return (library.*entry)(ncid, varid, start, count, stride, values);
}

}  // namespace

LibraryReads::LibraryReads() {
  reads = 0;
  NetCDF::beneath.nc_get_vars_short = counted<short, &EntryPoints::nc_get_vars_short>;
  NetCDF::beneath.nc_get_vars_int = counted<int, &EntryPoints::nc_get_vars_int>;
  NetCDF::beneath.nc_get_vars_float = counted<float, &EntryPoints::nc_get_vars_float>;
  NetCDF::beneath.nc_get_vars_double = counted<double, &EntryPoints::nc_get_vars_double>;
}

LibraryReads::~LibraryReads() { NetCDF::beneath = NetCDF::bareLibrary(); }

int64_t LibraryReads::count() const { return reads; }

}  // namespace cost
