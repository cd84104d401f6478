#include "section/sectionPath.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "netcdf/ncf.h"
#include "util/exactMath.h"
#include "util/lastError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace KelvaneMain {

using ocxNetNc::ncf;

util::OneBased<SectionPoint> SectionPoints;
int32_t NumSectionPoints = 0;
Section section;

void ClearSectionPoints() {
  SectionPoints.clear();
  NumSectionPoints = 0;
}

void AddSectionPoint(float x, float y) {
  const int32_t count = util::addLong(NumSectionPoints, 1);
  SectionPoints.resizeKeeping(count);
  SectionPoints(count) = {x, y};
  NumSectionPoints = count;
}

double SectionDistance(double x1, double y1, double x2, double y2) {
  constexpr double degree = 3.1415926 / 180;
  constexpr double radius = 6366191.357;  // metres
  const double c = util::cosine((y1 + y2) / 2 * degree) * radius;
  const double east = (x2 - x1) * c * degree;
  const double north = (y2 - y1) * radius * degree;
  return std::sqrt(east * east + north * north);
}

std::string PointLabel(float lon, float lat) {
  return util::patternText(std::fabs(lon), lon <= 0 ? "#.00W/" : "#.00E/") +
         util::patternText(std::fabs(lat), lat <= 0 ? "#.00S" : "#.00N");
}

LonLat cellPlace(Cell cell) {
  const double dlon = static_cast<double>(ncf.dlon);
  const double dlat = static_cast<double>(ncf.dlat);
  return {util::storeSingle((cell.i - 0.5) * dlon + static_cast<double>(ncf.lon_values(1))),
          util::storeSingle((cell.j - 0.5) * dlat + static_cast<double>(ncf.lat_values(1)))};
}

namespace {

// Everything but the length, which stays that of the last good section.
void beginSection() {
  section.npts = NumSectionPoints;
  section.point_column.assign(section.npts);
  section.point_cell.assign(section.npts);
  section.point_lonlat.assign(section.npts);
  section.point_label.assign(section.npts);
  if (section.npts > 0) section.point_column(1) = 1;
  section.ncols = 0;
  section.column_cells.clear();
  section.section_kind = kGeneralPath;
}

// Ties a point of the path to the grid.
void placePoint(int32_t point, Cell cell) {
  section.point_cell(point) = cell;
  const LonLat place{ncf.lon_values(cell.i), ncf.lat_values(cell.j)};
  section.point_lonlat(point) = place;
  section.point_label(point) = PointLabel(place.lon, place.lat);
}

// A section of two points along a row or a column of the grid runs toward larger indices.
void classify() {
  if (section.npts != 2) return;
  Cell& first = section.point_cell(1);
  Cell& last = section.point_cell(2);
  bool backwards = false;
  if (first.i != last.i && first.j == last.j) {
    section.section_kind = kSameLatitude;
    backwards = first.i > last.i;
    if (backwards) std::swap(first.i, last.i);
  } else if (first.i == last.i) {
    section.section_kind = kSameLongitude;
    backwards = first.j > last.j;
    if (backwards) std::swap(first.j, last.j);
  }
  if (backwards) std::reverse(section.column_cells.begin(), section.column_cells.end());
}

double lengthInKm() {
  double metres = 0;
  LonLat before = cellPlace(section.column_cells(1));
  for (int32_t c = 2; c <= section.ncols; ++c) {
    const LonLat here = cellPlace(section.column_cells(c));
    metres += SectionDistance(static_cast<double>(before.lon), static_cast<double>(before.lat),
                              static_cast<double>(here.lon), static_cast<double>(here.lat));
    before = here;
  }
  return metres / 1000;
}

}  // namespace

int32_t MakeKelvane() {
  try {
    beginSection();
    for (int32_t k = 1; k < section.npts; ++k) {
      if (Set_cell_Section(k) < 0) return -1;
      if (section.ncols < 1) continue;
      if (k == 1) placePoint(1, section.column_cells(1));
      section.point_column(k + 1) = section.ncols;
      placePoint(k + 1, section.column_cells(section.ncols));
    }
    classify();
    if (section.ncols < 2) {
      util::LastError = "[MakeKelvane] Section distance is too short, or input error";
      return -1;
    }
    section.section_length_km = lengthInKm();
    return 1;
  } catch (...) {
    util::reportBracketed("MakeKelvane");
    return -1;
  }
}

}  // namespace KelvaneMain
