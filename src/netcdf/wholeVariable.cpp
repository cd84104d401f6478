#include "netcdf/wholeVariable.h"

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

void requireElements(const NcVar& variable, int64_t count) {
  if (count > kMostElements) util::raise(util::kOutOfMemory);
  double elements = 1;
  for (std::size_t position = 0; position < static_cast<std::size_t>(variable.NDims); ++position) {
    elements *= dimensionLength(variable.DimId[position]);
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
  requireElements(record, count);
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
