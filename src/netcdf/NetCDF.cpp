#include "netcdf/NetCDF.h"

#include "netcdf/readAhead.h"

namespace NetCDF {

EntryPoints bareLibrary() {
  return {.nc_open = ::nc_open,
          .nc_close = ::nc_close,
          .nc_inq_ndims = ::nc_inq_ndims,
          .nc_inq_unlimdim = ::nc_inq_unlimdim,
          .nc_inq_dim = ::nc_inq_dim,
          .nc_inq_nvars = ::nc_inq_nvars,
          .nc_inq_varname = ::nc_inq_varname,
          .nc_inq_varndims = ::nc_inq_varndims,
          .nc_inq_vartype = ::nc_inq_vartype,
          .nc_inq_vardimid = ::nc_inq_vardimid,
          .nc_inq_natts = ::nc_inq_natts,
          .nc_inq_varnatts = ::nc_inq_varnatts,
          .nc_inq_attname = ::nc_inq_attname,
          .nc_inq_att = ::nc_inq_att,
          .nc_get_att_text = ::nc_get_att_text,
          .nc_get_att_short = ::nc_get_att_short,
          .nc_get_att_int = ::nc_get_att_int,
          .nc_get_att_float = ::nc_get_att_float,
          .nc_get_att_double = ::nc_get_att_double,
          .nc_get_var_short = ::nc_get_var_short,
          .nc_get_var_int = ::nc_get_var_int,
          .nc_get_var_float = ::nc_get_var_float,
          .nc_get_var_double = ::nc_get_var_double,
          .nc_get_vars_short = ::nc_get_vars_short,
          .nc_get_vars_int = ::nc_get_vars_int,
          .nc_get_vars_float = ::nc_get_vars_float,
          .nc_get_vars_double = ::nc_get_vars_double,
          .nc_inq_format_extended = ::nc_inq_format_extended,
          .nc_inq_var_chunking = ::nc_inq_var_chunking,
          .nc_get_var_chunk_cache = ::nc_get_var_chunk_cache,
          .nc_set_var_chunk_cache = ::nc_set_var_chunk_cache,
          .nc_strerror = ::nc_strerror,
          .ncdap_report = ::ncdap_report};
}

EntryPoints theLibrary() {
  EntryPoints entries = bareLibrary();
  entries.nc_close = closeBehindReads;
  entries.nc_get_vars_short = readAhead<short>;
  entries.nc_get_vars_int = readAhead<int>;
  entries.nc_get_vars_float = readAhead<float>;
  entries.nc_get_vars_double = readAhead<double>;
  return entries;
}

void dapLimits(long connect, long stall, long total) { ::ncdap_limits(connect, stall, total); }

EntryPoints library = theLibrary();
EntryPoints beneath = bareLibrary();

}  // namespace NetCDF
