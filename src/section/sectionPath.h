#pragma once

#include <cstdint>
#include <string>

#include "util/OneBased.h"

namespace KelvaneMain {

// A corner of the path as the host gave it, degrees.
struct SectionPoint {
  float x = 0, y = 0;
};
extern util::OneBased<SectionPoint> SectionPoints;
extern int32_t NumSectionPoints;

// Empties the path. Appends a corner; more than a 32-bit count is run-time error 6 and leaves
// the path as it was.
void ClearSectionPoints();
void AddSectionPoint(float x, float y);

// A cell of the regular grid, counted from 1: i along longitude, j along latitude.
struct Cell {
  int32_t i = 0, j = 0;
  bool operator==(const Cell&) const = default;
};

struct LonLat {
  float lon = 0, lat = 0;
};

// section_kind
inline constexpr int32_t kGeneralPath = 0;
inline constexpr int32_t kSameLatitude = 1;   // two points in one latitude row
inline constexpr int32_t kSameLongitude = 2;  // two points in one longitude column

struct Section {
  int32_t npts = 0;
  util::OneBased<int32_t> point_column;  // column of each point; 0 where it has none
  util::OneBased<Cell> point_cell;
  util::OneBased<LonLat> point_lonlat;  // grid coordinates of point_cell
  util::OneBased<std::string> point_label;
  int32_t ncols = 0;
  util::OneBased<Cell> column_cells;  // in path order, no two neighbours equal
  int32_t section_kind = kGeneralPath;
  double section_length_km = 0;
};
extern Section section;

// Builds the section from SectionPoints. 1, or -1 with the reason in LastError; what was built
// before a failure stays.
int32_t MakeKelvane();

// Appends the cells of the segment from point k to k + 1. Returns the new ncols, 0 for a
// segment shorter than a grid step, -1 on failure. Samples always advance toward larger
// longitude and latitude from point k, whatever the direction of the segment.
int32_t Set_cell_Section(int32_t k);

// Flat-earth distance in metres between two places in degrees.
double SectionDistance(double x1, double y1, double x2, double y2);

// "12.50E/.25S"; exactly zero takes the west and south forms.
std::string PointLabel(float lon, float lat);

// The place of a cell's centre by the mean spacings, as the section length takes it.
LonLat cellPlace(Cell cell);

}  // namespace KelvaneMain
