#include "unit/section/ReadRecorder.h"

#include "netcdf/NetCDF.h"

namespace {

std::vector<ReadRecorder::Read> seen;
int opens = 0;
int closes = 0;
NetCDF::EntryPoints behind;

void note(int ncid, int varid, const std::size_t* start, const std::size_t* count) {
  char name[NC_MAX_NAME + 1] = "";
  int ndims = 0;
  behind.nc_inq_varname(ncid, varid, name);
  behind.nc_inq_varndims(ncid, varid, &ndims);
  seen.push_back({name, {start, start + ndims}, {count, count + ndims}});
}

template <class T>
using Reader = int (*)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*, T*);

template <class T, Reader<T> NetCDF::EntryPoints::*entry>
int listen(int ncid, int varid, const std::size_t* start, const std::size_t* count,
           const std::ptrdiff_t* stride, T* values) {
  note(ncid, varid, start, count);
  return (behind.*entry)(ncid, varid, start, count, stride, values);
}

int countedOpen(const char* name, int mode, int* ncid) {
  ++opens;
  return behind.nc_open(name, mode, ncid);
}

int countedClose(int ncid) {
  ++closes;
  return behind.nc_close(ncid);
}

}  // namespace

ReadRecorder::ReadRecorder() {
  using NetCDF::EntryPoints;
  seen.clear();
  opens = closes = 0;
  behind = NetCDF::library;
  EntryPoints& library = NetCDF::library;
  library.nc_open = countedOpen;
  library.nc_close = countedClose;
  library.nc_get_vars_short = listen<short, &EntryPoints::nc_get_vars_short>;
  library.nc_get_vars_int = listen<int, &EntryPoints::nc_get_vars_int>;
  library.nc_get_vars_float = listen<float, &EntryPoints::nc_get_vars_float>;
  library.nc_get_vars_double = listen<double, &EntryPoints::nc_get_vars_double>;
}

ReadRecorder::~ReadRecorder() { NetCDF::library = behind; }

const std::vector<ReadRecorder::Read>& ReadRecorder::reads() const { return seen; }
int ReadRecorder::opened() const { return opens; }
int ReadRecorder::closed() const { return closes; }
