#include "netcdf/identify.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "netcdf/ncf.h"
#include "netcdf/routine.h"
#include "util/ocxStrings.h"

namespace ocxNetNc {
namespace {

using ocxStrings::hasPrefix;
using Keywords = std::initializer_list<std::string_view>;

bool startsWithAny(std::string_view text, Keywords keywords) {
  return std::any_of(keywords.begin(), keywords.end(),
                     [&](std::string_view keyword) { return hasPrefix(text, keyword); });
}

bool hasUnit(const NcVar& variable, Keywords units) {
  for (std::size_t i = 0; i < static_cast<std::size_t>(variable.NAtts); ++i) {
    if (hasPrefix(variable.AttName[i], "UNIT") && startsWithAny(variable.AttValue[i], units)) {
      return true;
    }
  }
  return false;
}

// A coordinate variable in the strict sense: named like its (first) dimension.
bool namedLikeItsDimension(const NcVar& variable) {
  return variable.NDims > 0 && variable.Name == variable.DimName[0];
}

// Number of the first variable that passes; 0 when none does.
template <class Test>
int32_t firstVariable(const Test& test) {
  for (int32_t number = 1; number <= ncf.NcVars.size(); ++number) {
    if (test(ncf.NcVars(number))) return number;
  }
  return 0;
}

// One horizontal axis: by name and any unit of degrees, else by its directed unit, else by that
// unit alone on whatever dimensions, which gives the variable and no axis. False when no
// variable passes.
bool findHorizontal(std::string_view nameKeyword, Keywords units, int32_t& dimension,
                    int32_t& variable) {
  int32_t found = firstVariable([&](const NcVar& v) {
    return hasPrefix(v.Name, nameKeyword) && hasUnit(v, {"DEGREE"}) && namedLikeItsDimension(v);
  });
  if (found == 0) {
    found = firstVariable(
        [&](const NcVar& v) { return hasUnit(v, units) && namedLikeItsDimension(v); });
  }
  if (found != 0) {
    dimension = ncf.NcVars(found).DimId[0];
    variable = found;
    return true;
  }
  found = firstVariable([&](const NcVar& v) { return hasUnit(v, units); });
  if (found != 0) variable = found;
  return found != 0;
}

// The first one-dimensional variable with one of the names.
void findOneDimensional(Keywords names, int32_t& dimension, int32_t& variable) {
  const int32_t found =
      firstVariable([&](const NcVar& v) { return v.NDims == 1 && startsWithAny(v.Name, names); });
  if (found == 0) return;
  dimension = ncf.NcVars(found).DimId[0];
  variable = found;
}

// The axes of a grid of cells. A later dimension overrides an earlier one, and the one-letter
// names override the long ones. False without an i axis.
bool findCellAxes() {
  const int32_t count = ncf.NcDims.size();
  for (int32_t id = 0; id < count; ++id) {
    if (hasPrefix(ncf.NcDims(id + 1).Name, "NCELL")) {
      ncf.ncell_dId = id;
      return true;
    }
  }
  const auto assign = [&](std::string_view i, std::string_view j, std::string_view k) {
    for (int32_t id = 0; id < count; ++id) {
      const std::string& name = ncf.NcDims(id + 1).Name;
      if (hasPrefix(name, i)) ncf.icell_dId = id;
      if (hasPrefix(name, j)) ncf.jcell_dId = id;
      if (hasPrefix(name, k)) ncf.kcell_dId = id;
    }
  };
  assign("ICEL", "JCEL", "KCEL");
  assign("X", "Y", "Z");
  return ncf.icell_dId != -1;
}

void findCellCoordinate(std::string_view nameKeyword, int32_t& variable) {
  const int32_t found = firstVariable(
      [&](const NcVar& v) { return hasPrefix(v.Name, nameKeyword) && hasUnit(v, {"DEGREE"}); });
  if (found != 0) variable = found;
}

int32_t identify() {
  ncf.lon_dId = ncf.lat_dId = ncf.time_dId = ncf.level_dId = -1;
  ncf.ncell_dId = ncf.icell_dId = ncf.jcell_dId = ncf.kcell_dId = -1;
  ncf.grid_order = ncf.has_time = ncf.has_level = -1;

  if (!findHorizontal("LON", {"DEGREES_EAST", "DEGREES EAST", "DEGREE_EAST", "DEGREE EAST"},
                      ncf.lon_dId, ncf.lon_vId) ||
      !findHorizontal("LAT", {"DEGREES_NORTH", "DEGREES NORTH", "DEGREE_NORTH", "DEGREE NORTH"},
                      ncf.lat_dId, ncf.lat_vId)) {
    return -1;
  }
  findOneDimensional({"TIME"}, ncf.time_dId, ncf.time_vId);
  if (ncf.lon_dId == -1 || ncf.lat_dId == -1) {
    if (!findCellAxes()) return -3;
    findCellCoordinate("LON", ncf.lon_vId);
    findCellCoordinate("LAT", ncf.lat_vId);
    ncf.grid_order = 0;
  }
  findOneDimensional({"LEVEL", "SIGMA", "Z", "LAYER", "DEPTH"}, ncf.level_dId, ncf.level_vId);
  ncf.has_time = ncf.time_dId != -1 ? 1 : -1;
  ncf.has_level = ncf.level_dId != -1 ? 1 : -1;
  return ncf.lon_vId != -1 && ncf.lat_vId != -1 ? 1 : -4;
}

}  // namespace

int32_t IdentifyCoordinates() { return runRoutine("IdentifyCoordinates", identify); }

int32_t GridOrder(int32_t var) {
  if (ncf.grid_order == 0 && ncf.ncell_dId >= 0) return 0;
  const NcVar& variable = ncf.NcVars(var);
  if (variable.NDims < 2) return -1;
  const auto last = static_cast<std::size_t>(variable.NDims) - 1;
  const int32_t inner = variable.DimId[last];
  const int32_t outer = variable.DimId[last - 1];
  if (inner == ncf.lat_dId && outer == ncf.lon_dId) return 1;
  if (inner == ncf.lon_dId && outer == ncf.lat_dId) return 2;
  return -1;
}

}  // namespace ocxNetNc
