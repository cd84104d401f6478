#include <string>
#include <utility>
#include <vector>

#include "netcdf/identify.h"
#include "netcdf/ncf.h"
#include "netcdf/readAhead.h"
#include "netcdf/reader.h"
#include "netcdf/status.h"
#include "platform/Desktop.h"
#include "section/drawItems.h"
#include "section/extremes.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace KelvaneMain {

using ocxNetNc::NcCount;
using ocxNetNc::ncf;
using ocxNetNc::NcStart;
using ocxNetNc::NcStride;

namespace {

// Places of a variable's axes among its dimensions, from 0.
struct Axes {
  std::size_t level = 0, time = 0, lon = 0, lat = 0;
};

struct ClosedAtEnd {
  ClosedAtEnd() = default;
  ~ClosedAtEnd() { ocxNetNc::NcClose(); }
  ClosedAtEnd(const ClosedAtEnd&) = delete;
  ClosedAtEnd& operator=(const ClosedAtEnd&) = delete;
};

int32_t fail(const char* text) {
  util::LastError = text;
  return -1;
}

int32_t productOf(const std::vector<int32_t>& counts) {
  int32_t product = 1;
  for (const int32_t count : counts) product = util::multiplyLong(product, count);
  return product;
}

std::string listText(const std::vector<int32_t>& numbers) {
  std::string text;
  for (const int32_t number : numbers) {
    if (!text.empty()) text += ' ';
    text += util::generalText(number);
  }
  return text;
}

// What was asked of the reader, behind the reader's own account of the failure.
void addDiagnostics(int32_t nvar_it, int32_t tcount) {
  ocxNetNc::addToFailure("\nnvar, tcount= " + util::generalText(nvar_it) + ", " +
                         util::generalText(tcount) + "\nstart, count, stride = " +
                         listText(NcStart) + "; " + listText(NcCount) + "; " + listText(NcStride));
}

// The size of the grid and what belongs to it stay with the values: later repaints draw them
// whatever has become of the data set and the path. A grid that cannot be sized leaves the held
// one in place.
void sizeGrid() {
  SectionGrid::valuesOf(section.ncols, ncf.nlevels);  // its errors come first
  const float deepest = util::storeSingle(ocxNetNc::levelDepth(ncf.nlevels));
  std::vector<double> depths = ncf.level_values;
  section_values.beginStoring(section.ncols, ncf.nlevels);
  section_values.section_depth_max = deepest;
  section_values.depths = std::move(depths);
}

// However a read ends, nothing of an earlier one is left in the grid.
struct RestCleared {
  RestCleared() = default;
  ~RestCleared() { section_values.clearRest(); }
  RestCleared(const RestCleared&) = delete;
  RestCleared& operator=(const RestCleared&) = delete;
};

// Sets up the hyperslab of one profile, but for its place. False, with a message, for a
// variable that lacks an axis.
bool beginHyperslab(const ocxNetNc::NcVar& variable, Axes& axes) {
  const auto ndims = static_cast<std::size_t>(variable.NDims);
  NcStart.assign(ndims, 0);
  NcCount.assign(ndims, 1);
  NcStride.assign(ndims, 1);
  const int32_t level = variable.dimensionAt(ncf.level_dId);
  if (level < 0) {
    fail("[ReadVSData] Vertical coordinate not identified");
    return false;
  }
  const int32_t time = ncf.time_dId < 0 ? -1 : variable.dimensionAt(ncf.time_dId);
  if (time < 0) {
    fail("[ReadVSData] Time dimension ID not identified");
    return false;
  }
  axes.level = static_cast<std::size_t>(level);
  axes.time = static_cast<std::size_t>(time);
  NcCount[axes.level] = ncf.nlevels;
  // A catalogue left half made can have one dimension for both: then there are no two last ones.
  if (ndims < 2) util::raise(util::kSubscript);
  axes.lon = ncf.grid_order == 1 ? ndims - 2 : ndims - 1;
  axes.lat = ncf.grid_order == 1 ? ndims - 1 : ndims - 2;
  return true;
}

void startAt(const Axes& axes, Cell cell) {
  NcStart[axes.lon] = cell.i - 1;
  NcStart[axes.lat] = cell.j - 1;
}

// Reads the hyperslab as it is set up; false, with a message, when the reader refuses.
bool readHyperslab(int32_t nvar_it, util::OneBased<float>& values) {
  const int32_t tcount = productOf(NcCount);
  if (ocxNetNc::nc_get_varas_any(ncf.NcId, nvar_it, kMissingValue, values, tcount) >= 0) {
    return true;
  }
  addDiagnostics(nvar_it, tcount);
  return false;
}

// The reads of a general path, one a column, for who can make them quicker by knowing them.
NetCDF::ComingReads comingReads(int32_t nvar_it, const Axes& axes) {
  NetCDF::ComingReads reads;
  reads.ncid = ncf.NcId;
  reads.varid = nvar_it - 1;
  reads.rank = NcStart.size();
  for (std::size_t d = 0; d < reads.rank; ++d) {
    reads.start[d] = static_cast<std::size_t>(NcStart[d]);
    reads.count[d] = static_cast<std::size_t>(NcCount[d]);
  }
  const bool lonFirst = axes.lon < axes.lat;
  reads.places.reserve(static_cast<std::size_t>(section_values.ncols()));
  for (int32_t c = 1; c <= section_values.ncols(); ++c) {
    const Cell cell = section.column_cells(c);
    const auto i = static_cast<std::size_t>(cell.i - 1);
    const auto j = static_cast<std::size_t>(cell.j - 1);
    reads.places.push_back(lonFirst ? NetCDF::Place{i, j} : NetCDF::Place{j, i});
  }
  return reads;
}

// A general path: one read a column.
bool readColumns(int32_t nvar_it, const Axes& axes, Extremes& extremes) {
  const NetCDF::Announced announced([&] { return comingReads(nvar_it, axes); });
  util::OneBased<float> values;
  for (int32_t c = 1; c <= section_values.ncols(); ++c) {
    startAt(axes, section.column_cells(c));
    if (!readHyperslab(nvar_it, values)) return false;
    section_values.storeColumn(c, {values.begin(), values.end()});
    extremes.take(section_values.column(c));
  }
  return true;
}

// A path along one axis: its columns are neighbours in the grid, and a single read gives them
// all, level after level.
bool readRow(int32_t nvar_it, const Axes& axes, Extremes& extremes) {
  const int32_t ncols = section_values.ncols();
  startAt(axes, section.column_cells(1));
  NcCount[section.section_kind == kSameLatitude ? axes.lon : axes.lat] = ncols;
  util::OneBased<float> values;
  if (!readHyperslab(nvar_it, values)) return false;
  section_values.storeLevels({values.begin(), values.end()});
  extremes.take(section_values.values());
  return true;
}

int32_t readSection(int32_t nvar_it, int32_t time_step) {
  if (time_step <= 0) return -1;
  if (nvar_it <= 0) return fail("[ReadVSData&] nvar_it& <= 0; need to specify variable id");
  if (ncf.nlevels <= 0) return fail("[ReadVSData&] nvcoord& <= 0");
  if (ncf.level_dId < 0) return fail("[ReadVSData&] ncf.level_dId& < 0");
  if (ncf.grid_order == -1) ncf.grid_order = ocxNetNc::GridOrder(nvar_it);
  if (ncf.grid_order <= 0) return fail("[ReadVSData&] not proper nc grid ");
  sizeGrid();
  const RestCleared cleared;
  Axes axes;
  if (!beginHyperslab(ncf.NcVars(nvar_it), axes)) return -1;

  const platform::WaitPointer wait;
  const ClosedAtEnd closed;
  if (!ocxNetNc::isOpen() && ocxNetNc::NcReopen(1) < 0) return -1;
  DrawItem& item = DrawItems(Item_shown);
  item.maximum = kMissingValue;
  item.minimum = -kMissingValue;
  NcStart[axes.time] = time_step - 1;
  Extremes extremes;
  const bool read = section.section_kind == kGeneralPath ? readColumns(nvar_it, axes, extremes)
                                                         : readRow(nvar_it, axes, extremes);
  item.maximum = extremes.maximum(section_values.storedValues());
  item.minimum = extremes.minimum(section_values.storedValues());
  return read ? time_step : -1;
}

}  // namespace

int32_t ReadVSData(int32_t nvar_it, int32_t time_step) {
  try {
    return readSection(nvar_it, time_step);
  } catch (...) {
    util::reportBracketed("ReadVSData");
    return -1;
  }
}

}  // namespace KelvaneMain
