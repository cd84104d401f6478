#include "diagnosis/Recognition.h"

#include <netcdf.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "netcdf/identify.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using ocxNetNc::ncf;
using ocxNetNc::NcVar;

constexpr int kNoLongitudeOrLatitude = -1;
constexpr int kNoCellAxis = -3;

// The catalogue's record of a variable, cut to what the record holds: its first dimensions, and
// the units before any other attribute, for identification asks for nothing else.
NcVar catalogued(const Header& header, const Variable& variable) {
  NcVar record;
  record.Name = variable.name;
  record.Type = variable.type;
  const auto rank = std::min<std::size_t>(variable.dims.size(), ocxNetNc::kDimensionLimit);
  record.NDims = static_cast<int32_t>(rank);
  for (std::size_t at = 0; at < rank; ++at) {
    record.DimId[at] = variable.dims[at];
    record.DimName[at] = dimensionOf(header, variable.dims[at]).name;
  }
  for (const Attribute& attribute : variable.attributes) {
    if (!ocxStrings::hasPrefix(attribute.name, "UNIT")) continue;
    const std::string text = valueText(attribute);
    record.Unit = text;
    if (record.NAtts == ocxNetNc::kAttributeLimit) continue;
    const auto place = static_cast<std::size_t>(record.NAtts++);
    record.AttName[place] = attribute.name;
    record.AttType[place] = attribute.type;
    record.AttValue[place] = text;
  }
  return record;
}

void fillCatalogue(const Header& header) {
  const std::string name = ncf.NcFileName;
  const int32_t id = ncf.NcId;
  ncf = {};
  ncf.NcFileName = name;
  ncf.NcId = id;
  for (const Dimension& dimension : header.dims) {
    ncf.NcDims.push(
        {.Name = dimension.name,
         .Length = static_cast<int32_t>(std::min<std::size_t>(dimension.length, INT32_MAX)),
         .Unlimited = dimension.unlimited ? 1 : 0,
         .Reserved = 0});
  }
  for (const Variable& variable : header.vars) {
    ncf.NcVars.push(catalogued(header, variable));
  }
}

// A variable that stands in for what is missing, behind all others and on a dimension of its own.
void addStandIn(const char* name, const char* units) {
  ncf.NcDims.push({.Name = name, .Length = 0, .Unlimited = 0, .Reserved = 0});
  NcVar record;
  record.Name = name;
  record.NDims = 1;
  record.DimId[0] = ncf.NcDims.size() - 1;
  record.DimName[0] = name;
  record.NAtts = 1;
  record.AttName[0] = "units";
  record.AttValue[0] = units;
  ncf.NcVars.push(record);
}

// Identification ends at the first thing it does not find. A stand-in lets it go on.
void identify() {
  constexpr int attempts = 4;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const int32_t result = ocxNetNc::IdentifyCoordinates();
    if (result == kNoCellAxis) {
      ncf.NcDims.push({.Name = "x", .Length = 0, .Unlimited = 0, .Reserved = 0});
    } else if (result == kNoLongitudeOrLatitude && ncf.lon_vId < 1) {
      addStandIn("lon", "degrees_east");
    } else if (result == kNoLongitudeOrLatitude && ncf.lat_vId < 1) {
      addStandIn("lat", "degrees_north");
    } else {
      return;
    }
  }
}

// Nothing for a stand-in, which lies behind the header's own.
int within(int number, std::size_t count) {
  return number >= 0 && static_cast<std::size_t>(number) < count ? number : -1;
}

Recognition::Axis axis(const Header& header, int32_t variable, int32_t dimension) {
  return {within(variable - 1, header.vars.size()), within(dimension, header.dims.size()), {}};
}

// As the control stores it; what is beyond the range of a single is infinite here.
double single(double value) {
  constexpr double largest = 0x1.fffffep127;
  if (std::fabs(value) > largest)
    return std::copysign(std::numeric_limits<double>::infinity(), value);
  return static_cast<double>(static_cast<float>(value));
}

void readValues(const Header& header, Recognition::Axis& axis, bool asSingles) {
  if (axis.variable < 0) return;
  axis.values = readCoordinate(header, axis.variable);
  if (!asSingles) return;
  for (double& value : axis.values) value = single(value);
}

}  // namespace

const Variable& variableOf(const Header& header, const Recognition::Axis& axis) {
  return header.vars[static_cast<std::size_t>(axis.variable)];
}

Recognition recognise(const Header& header) {
  fillCatalogue(header);
  identify();
  Recognition found;
  found.longitude = axis(header, ncf.lon_vId, ncf.lon_dId);
  found.latitude = axis(header, ncf.lat_vId, ncf.lat_dId);
  if (ncf.has_time == 1) found.time = axis(header, ncf.time_vId, ncf.time_dId);
  if (ncf.has_level == 1) found.vertical = axis(header, ncf.level_vId, ncf.level_dId);
  found.cellsI = within(ncf.icell_dId, header.dims.size());
  found.cellsJ = within(ncf.jcell_dId, header.dims.size());
  found.cellList = within(ncf.ncell_dId, header.dims.size());
  if (KelvaneMain::BuildDrawItems() > 0) {
    for (const KelvaneMain::DrawItem& item : KelvaneMain::DrawItems) {
      found.items.push_back(item.variable - 1);
    }
  }
  readValues(header, found.longitude, true);
  readValues(header, found.latitude, true);
  readValues(header, found.time, false);
  readValues(header, found.vertical, false);
  return found;
}

std::vector<double> unwrapped(std::vector<double> longitudes) {
  for (std::size_t i = 1; i < longitudes.size(); ++i) {
    if (single(longitudes[i] - longitudes[i - 1]) < 0) longitudes[i] = single(longitudes[i] + 360);
  }
  return longitudes;
}

double spacingOf(const std::vector<double>& values) {
  const double span = values.back() - values.front();
  return single(span / static_cast<double>(values.size() - 1));
}

}  // namespace cli::diagnosis
