#include "netcdf/geoWindow.h"

#include <netcdf.h>

#include "netcdf/ncf.h"
#include "netcdf/routine.h"
#include "netcdf/status.h"
#include "netcdf/timeAxis.h"
#include "netcdf/wholeVariable.h"
#include "util/RuntimeError.h"
#include "util/rounding.h"

namespace ocxNetNc {
namespace {

enum class Grid { None, Regular, Cells, CellList };

constexpr double kFullCircle = 360.0;

Grid kindOfGrid() {
  if (ncf.lon_dId >= 0 && ncf.lat_dId >= 0) return Grid::Regular;
  if (ncf.icell_dId >= 0 && ncf.jcell_dId >= 0) return Grid::Cells;
  return ncf.ncell_dId >= 0 ? Grid::CellList : Grid::None;
}

void makeRoom(int32_t longitudes, int32_t latitudes) {
  if (longitudes > kMostElements || latitudes > kMostElements) util::raise(util::kOutOfMemory);
  ncf.lon_values.assign(longitudes);
  ncf.lat_values.assign(latitudes);
}

// Sizes the coordinate lists; false for a data set with no horizontal axis at all, which has no
// message of its own.
bool sizeCoordinates(Grid grid) {
  switch (grid) {
    case Grid::Regular:
      ncf.nlon = dimensionLength(ncf.lon_dId);
      ncf.nlat = dimensionLength(ncf.lat_dId);
      if (ncf.nlon < 1 || ncf.nlat < 1) {
        throw DataProblem("[SetGeoWindow] nlon& <= 0 Or nlat& <= 0");
      }
      makeRoom(ncf.nlon, ncf.nlat);
      return true;
    case Grid::Cells: {
      ncf.icells = dimensionLength(ncf.icell_dId);
      ncf.jcells = dimensionLength(ncf.jcell_dId);
      if (ncf.icells < 1 || ncf.jcells < 1) {
        throw DataProblem("[SetGeoWindow] icells& <= 0 Or jcells& <= 0");
      }
      const int32_t cells = util::multiplyLong(ncf.icells, ncf.jcells);
      makeRoom(cells, cells);
      return true;
    }
    case Grid::CellList:
      ncf.ncells = dimensionLength(ncf.ncell_dId);
      if (ncf.ncells < 1) throw DataProblem("ncells <= 0 ");
      makeRoom(ncf.ncells, ncf.ncells);
      return true;
    case Grid::None:
      break;
  }
  if (ncf.icell_dId == -1 && ncf.jcell_dId == -1 && ncf.lon_dId == -1 && ncf.lat_dId == -1) {
    return false;
  }
  throw DataProblem("[SetGeoWindow] IF Fall of: Section 1");
}

// Reads both lists as the type of the longitudes says; the library converts the latitudes.
void loadCoordinates() {
  const NcVar& longitude = ncf.NcVars(ncf.lon_vId);
  if (longitude.Type != NC_FLOAT && longitude.Type != NC_DOUBLE) {
    throw DataProblem(typeMessage("Variable-Type of Geographical coodrinate(lon/lat) not expected:",
                                  longitude, "Tyep Number = "));
  }
  const auto read = longitude.Type == NC_FLOAT ? readFloats : readDoublesAsFloats;
  read(ncf.lon_vId, {ncf.lon_values.begin(), ncf.lon_values.end()});
  read(ncf.lat_vId, {ncf.lat_values.begin(), ncf.lat_values.end()});
}

// Makes the longitudes rise across the date line. Each compares with its corrected neighbour.
void unwrapLongitudes(CoordinateValues& values) {
  for (int32_t i = 2; i <= values.size(); ++i) {
    if (values(i) - values(i - 1) < 0) {
      values(i) = util::storeSingle(static_cast<double>(values(i)) + kFullCircle);
    }
  }
}

float meanSpacing(const CoordinateValues& values) {
  const int32_t count = values.size();
  if (count == 1) util::raise(util::kDivisionByZero);
  const double span = static_cast<double>(values(count)) - static_cast<double>(values(1));
  return util::storeSingle(span / (count - 1));
}

bool ensureOpen() { return isOpen() || NcReopen(1) > 0; }

int32_t setGeographic() {
  const Grid grid = kindOfGrid();
  if (!sizeCoordinates(grid) || !ensureOpen()) return -1;
  loadCoordinates();
  if (grid == Grid::Regular) {
    unwrapLongitudes(ncf.lon_values);
    ncf.dlon = meanSpacing(ncf.lon_values);
    ncf.dlat = meanSpacing(ncf.lat_values);
  }
  NcClose();
  return 1;
}

}  // namespace

int32_t SetGeoWindow() {
  const int32_t result = runRoutine("SetGeoWindow", [] {
    if (!ensureOpen() || LoadTimeAxis() < 0 || LoadVerticalAxis() < 0) return -1;
    return setGeographic();
  });
  return result < 0 ? -1 : 1;
}

}  // namespace ocxNetNc
