#include "unit/section/SectionTest.h"

#include <ostream>

#include "netcdf/catalogue.h"
#include "netcdf/geoWindow.h"
#include "netcdf/identify.h"
#include "section/drawItems.h"
#include "support/sampleSets.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ocxNetNc::ncf;

void KelvaneMain::PrintTo(const Cell& cell, std::ostream* out) {
  *out << '(' << cell.i << ", " << cell.j << ')';
}

SectionTest::SectionTest() { support::resetState(); }
SectionTest::~SectionTest() { support::resetState(); }

void SectionTest::useGrid(double lon, double dlon, int32_t nlon, double lat, double dlat,
                          int32_t nlat) {
  ncf.nlon = nlon;
  ncf.nlat = nlat;
  ncf.dlon = static_cast<float>(dlon);
  ncf.dlat = static_cast<float>(dlat);
  ncf.lon_values.assign(nlon);
  ncf.lat_values.assign(nlat);
  for (int32_t i = 1; i <= nlon; ++i) ncf.lon_values(i) = static_cast<float>(lon + dlon * (i - 1));
  for (int32_t j = 1; j <= nlat; ++j) ncf.lat_values(j) = static_cast<float>(lat + dlat * (j - 1));
}

void SectionTest::usePoints(const std::vector<SectionPoint>& points) {
  ClearSectionPoints();
  for (const SectionPoint& point : points) AddSectionPoint(point.x, point.y);
}

std::vector<Cell> SectionTest::columns() {
  return {section.column_cells.begin(), section.column_cells.end()};
}

void SectionTest::open(const std::string& path) {
  ASSERT_EQ(ocxNetNc::OpenCatalogue(path, 0), 1) << util::LastError;
  ASSERT_EQ(ocxNetNc::IdentifyCoordinates(), 1);
  ASSERT_GT(BuildDrawItems(), 0);
  ASSERT_EQ(ocxNetNc::SetGeoWindow(), 1) << util::LastError;
  Item_shown = 1;
  VarShown = ItemMatch(1);
  TimeShown = 1;
}

void SectionTest::openAlong(const std::string& path, const std::vector<SectionPoint>& points) {
  ASSERT_NO_FATAL_FAILURE(open(path));
  usePoints(points);
  ASSERT_EQ(MakeKelvane(), 1) << util::LastError;
}
