#include "netcdf/wholeVariable.h"

#include <array>

#include "netcdf/NetCDF.h"
#include "netcdf/routine.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"

namespace ocxNetNc {
namespace {

template <class Number>
std::vector<double> readAs(int (*read)(int, int, Number*), int32_t variable, int64_t count) {
  std::vector<Number> raw(static_cast<std::size_t>(count));
  checked(read(ncf.NcId, variable - 1, raw.data()));
  return {raw.begin(), raw.end()};
}

}  // namespace

// The file is asked and not the catalogue: it may have been replaced since it was catalogued.
void requireElements(int32_t variable, int64_t count) {
  if (count > kMostElements) util::raise(util::kOutOfMemory);
  const NetCDF::EntryPoints& library = NetCDF::library;
  int rank = 0;
  checked(library.nc_inq_varndims(ncf.NcId, variable - 1, &rank));
  std::array<int, NC_MAX_VAR_DIMS> dimIds{};
  checked(library.nc_inq_vardimid(ncf.NcId, variable - 1, dimIds.data()));
  double elements = 1;
  for (std::size_t position = 0; position < static_cast<std::size_t>(rank); ++position) {
    std::array<char, NC_MAX_NAME + 1> name{};
    std::size_t length = 0;
    checked(library.nc_inq_dim(ncf.NcId, dimIds[position], name.data(), &length));
    elements *= static_cast<double>(length);
  }
  if (elements != static_cast<double>(count)) util::raise(util::kSubscript);
}

int32_t dimensionLength(int32_t dimId) { return ncf.NcDims(int64_t{dimId} + 1).Length; }

std::vector<double> readAxis(int32_t variable, int64_t count, const char* message,
                             const char* typePiece) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  const NcVar& record = ncf.NcVars(variable);
  if (record.Type < NC_SHORT || record.Type > NC_DOUBLE) {
    throw DataProblem(typeMessage(message, record, typePiece));
  }
  requireElements(variable, count);
  switch (record.Type) {
    case NC_SHORT:
      return readAs(library.nc_get_var_short, variable, count);
    case NC_INT:
      return readAs(library.nc_get_var_int, variable, count);
    case NC_FLOAT:
      return readAs(library.nc_get_var_float, variable, count);
    default:
      return readAs(library.nc_get_var_double, variable, count);
  }
}

std::string typeMessage(const char* message, const NcVar& variable, const char* typePiece) {
  return joinPieces(
      {message, "Variable Name = " + variable.Name, typePiece + util::generalText(variable.Type)});
}

}  // namespace ocxNetNc
