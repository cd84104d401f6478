#include "netcdf/catalogue.h"

#include <array>
#include <limits>

#include "netcdf/NetCDF.h"
#include "netcdf/attributes.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "netcdf/routine.h"
#include "netcdf/status.h"
#include "netcdf/typeBytes.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace ocxNetNc {
namespace {

using NameBuffer = std::array<char, NC_MAX_NAME + 1>;

NcDim readDimension(int32_t id) {
  NameBuffer name{};
  std::size_t length = 0;
  checked(NetCDF::library.nc_inq_dim(ncf.NcId, id, name.data(), &length));
  if (length > static_cast<std::size_t>(std::numeric_limits<int32_t>::max())) {
    util::raise(util::kOverflow);
  }
  const std::string trimmed = ocxStrings::trim(name.data());
  return {.Name = limitedName(trimmed.c_str(), "in reading dimension name"),
          .Length = static_cast<int32_t>(length),
          .Unlimited = id == ncf.NcUnlimDim ? 1 : 0,
          .Reserved = 0};
}

void readDimensions() {
  const NetCDF::EntryPoints& library = NetCDF::library;
  int count = 0;
  checked(library.nc_inq_ndims(ncf.NcId, &count));
  int unlimited = -1;
  checked(library.nc_inq_unlimdim(ncf.NcId, &unlimited));
  ncf.NcNDims = count;
  ncf.NcUnlimDim = unlimited;
  ncf.NcDims.assign(count);
  for (int32_t id = 0; id < count; ++id) ncf.NcDims(id + 1) = readDimension(id);
}

void readShape(NcVar& variable, int32_t id) {
  const NetCDF::EntryPoints& library = NetCDF::library;
  int count = 0;
  checked(library.nc_inq_varndims(ncf.NcId, id, &count));
  if (count > kDimensionLimit) {
    throw DataProblem(
        joinPieces({"Array dimension exceeds the limit(=5) for", "Variable: " + variable.Name,
                    "dimension = " + util::generalText(int32_t{count})}));
  }
  variable.NDims = count;
  nc_type type = NC_NAT;
  checked(library.nc_inq_vartype(ncf.NcId, id, &type));
  variable.Type = type;
  variable.ElemSize = NetCDF::bytesOfType(type);

  std::array<int, NC_MAX_VAR_DIMS> dimIds{};
  checked(library.nc_inq_vardimid(ncf.NcId, id, dimIds.data()));
  variable.TotalBytes = variable.ElemSize;
  for (std::size_t position = 0; position < static_cast<std::size_t>(count); ++position) {
    const NcDim& dimension = ncf.NcDims(int64_t{dimIds[position]} + 1);
    variable.DimId[position] = dimIds[position];
    variable.DimName[position] = dimension.Name;
    variable.TotalBytes *= dimension.Length;
  }
}

void readVariable(NcVar& variable, int32_t id) {
  NameBuffer name{};
  checked(NetCDF::library.nc_inq_varname(ncf.NcId, id, name.data()));
  variable.Name = limitedName(name.data(), "in reading variable name");
  readShape(variable, id);
  readAttributes(variable, id);
}

void readVariables() {
  int count = 0;
  checked(NetCDF::library.nc_inq_nvars(ncf.NcId, &count));
  ncf.NcNVars = count;
  ncf.NcVars.assign(count);
  for (int32_t id = 0; id < count; ++id) readVariable(ncf.NcVars(id + 1), id);
}

// A server that sends no attribute of any variable has lost them: no file of a grid is without
// units, and identification could only say that it found nothing.
void refuseWithoutAttributes() {
  if (!isAddress(ncf.NcFileName) || ncf.NcVars.size() == 0) return;
  for (const NcVar& variable : ncf.NcVars) {
    if (variable.NAtts > 0) return;
  }
  throw LibraryRefusal{NC_EDAS};
}

}  // namespace

int32_t OpenCatalogue(const std::string& name, int32_t keepOpen) {
  NcClose();
  const int32_t result = runRoutine("OpenCatalogue", [&] {
    ncf.NcFileName = name;
    ncf.NcStatus = -1;
    ncf.NcState = 0;
    // The library would take the part before it for the name.
    if (name.find('\0') != std::string::npos) throw LibraryRefusal{NC_EINVAL};
    openDataSet(ncf.NcFileName);
    readDimensions();
    readVariables();
    readGlobalAttributes();
    refuseWithoutAttributes();
    ncf.NcStatus = 0;
    return 1;
  });
  if (result < 0 || keepOpen == 1) NcClose();
  return result < 0 ? -1 : 1;
}

std::string FindAttribute(std::string_view attribute, std::string_view variable) {
  if (variable.empty()) {
    for (int32_t number = 1; number <= ncf.NcGAttName.size(); ++number) {
      if (ncf.NcGAttName(number) == attribute) return ncf.NcGAttValue(number);
    }
    return {};
  }
  for (const NcVar& candidate : ncf.NcVars) {
    if (candidate.Name != variable) continue;
    for (std::size_t number = 0; number < static_cast<std::size_t>(candidate.NAtts); ++number) {
      if (candidate.AttName[number] == attribute) return candidate.AttValue[number];
    }
  }
  return {};
}

}  // namespace ocxNetNc
