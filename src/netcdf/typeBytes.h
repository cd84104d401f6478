#pragma once

#include <netcdf.h>

namespace NetCDF {

// Bytes of a value of one of the classic types; 0 for every other.
constexpr int bytesOfType(nc_type type) {
  switch (type) {
    case NC_BYTE:
    case NC_CHAR:
      return 1;
    case NC_SHORT:
      return 2;
    case NC_INT:
    case NC_FLOAT:
      return 4;
    case NC_DOUBLE:
      return 8;
    default:
      return 0;
  }
}

}  // namespace NetCDF
