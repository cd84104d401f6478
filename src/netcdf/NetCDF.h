#pragma once

#include <ncdap_report.h>
#include <netcdf.h>

#include <cstddef>

// The netCDF library's entry points, the only ones the system calls. They are held in a table,
// so that a test can count calls or stand in for a library that answers as no file can. Beneath
// the table announced reads are served from what was read ahead (readAhead.h).
namespace NetCDF {

struct EntryPoints {
  int (*nc_open)(const char* name, int mode, int* ncid);
  int (*nc_close)(int ncid);
  int (*nc_inq_ndims)(int ncid, int* ndims);
  int (*nc_inq_unlimdim)(int ncid, int* dimid);
  int (*nc_inq_dim)(int ncid, int dimid, char* name, std::size_t* length);
  int (*nc_inq_nvars)(int ncid, int* nvars);
  int (*nc_inq_varname)(int ncid, int varid, char* name);
  int (*nc_inq_varndims)(int ncid, int varid, int* ndims);
  int (*nc_inq_vartype)(int ncid, int varid, nc_type* type);
  int (*nc_inq_vardimid)(int ncid, int varid, int* dimids);
  int (*nc_inq_natts)(int ncid, int* natts);
  int (*nc_inq_varnatts)(int ncid, int varid, int* natts);
  int (*nc_inq_attname)(int ncid, int varid, int attnum, char* name);
  int (*nc_inq_att)(int ncid, int varid, const char* name, nc_type* type, std::size_t* length);
  int (*nc_get_att_text)(int ncid, int varid, const char* name, char* values);
  int (*nc_get_att_short)(int ncid, int varid, const char* name, short* values);
  int (*nc_get_att_int)(int ncid, int varid, const char* name, int* values);
  int (*nc_get_att_float)(int ncid, int varid, const char* name, float* values);
  int (*nc_get_att_double)(int ncid, int varid, const char* name, double* values);
  int (*nc_get_var_short)(int ncid, int varid, short* values);
  int (*nc_get_var_int)(int ncid, int varid, int* values);
  int (*nc_get_var_float)(int ncid, int varid, float* values);
  int (*nc_get_var_double)(int ncid, int varid, double* values);
  int (*nc_get_vars_short)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                           const std::ptrdiff_t* stride, short* values);
  int (*nc_get_vars_int)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                         const std::ptrdiff_t* stride, int* values);
  int (*nc_get_vars_float)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                           const std::ptrdiff_t* stride, float* values);
  int (*nc_get_vars_double)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                            const std::ptrdiff_t* stride, double* values);
  int (*nc_inq_format_extended)(int ncid, int* format, int* mode);
  int (*nc_inq_var_chunking)(int ncid, int varid, int* storage, std::size_t* lengths);
  int (*nc_get_var_chunk_cache)(int ncid, int varid, std::size_t* bytes, std::size_t* slots,
                                float* preemption);
  int (*nc_set_var_chunk_cache)(int ncid, int varid, std::size_t bytes, std::size_t slots,
                                float preemption);
  const char* (*nc_strerror)(int status);
  // What happened to the last request for a data set at an address.
  const NCDAPreport* (*ncdap_report)();
};

// The library itself, call by call.
EntryPoints bareLibrary();

// The library as the system uses it: `beneath`, but that reads which were announced are served
// from what was read ahead.
EntryPoints theLibrary();

// How long requests for data sets at an address wait, in seconds, from the next opening on: for a
// connection (15), while no byte comes (30), and for a whole request (300). A number below 1 stands
// for the default. The user's own settings of the library go before.
void dapLimits(long connect, long stall, long total);

// The entry points in use, and those that reading ahead uses.
extern EntryPoints library;
extern EntryPoints beneath;

}  // namespace NetCDF
