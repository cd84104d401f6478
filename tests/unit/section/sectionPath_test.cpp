#include <limits>

#include "unit/section/SectionTest.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ocxNetNc::ncf;
using Cells = std::vector<Cell>;

namespace {

class SectionPath : public SectionTest {
 protected:
  static std::vector<std::string> labels() {
    return {section.point_label.begin(), section.point_label.end()};
  }
  static std::vector<int32_t> pointColumns() {
    return {section.point_column.begin(), section.point_column.end()};
  }
};

struct Path {
  std::vector<SectionPoint> points;
  int32_t kind;
  Cells cells;
  std::vector<int32_t> pointColumns;
  std::vector<std::string> labels;
  double km;
};

TEST_F(SectionPath, TurnsPointsIntoASection) {
  const Path paths[] = {
      {{{0, 0}, {4, 0}}, kSameLatitude, {{1, 6}, {2, 6}, {3, 6}, {4, 6}}, {1, 4},
       {".00W/.00S", "3.00E/.00S"}, 333.32030199031914},
      {{{4, 0}, {0, 0}}, kSameLatitude, {{5, 6}, {6, 6}, {7, 6}, {8, 6}}, {1, 4},
       {"4.00E/.00S", "7.00E/.00S"}, 333.32030199031914},
      {{{2, 1}, {2, -3}}, kSameLongitude, {{3, 7}, {3, 8}, {3, 9}, {3, 10}}, {1, 4},
       {"2.00E/1.00N", "2.00E/4.00N"}, 333.3329942889193},
      {{{0, 0}, {2, 0}, {4, 0}}, kGeneralPath, {{1, 6}, {2, 6}, {3, 6}, {4, 6}}, {1, 2, 4},
       {".00W/.00S", "1.00E/.00S", "3.00E/.00S"}, 333.32030199031914},
      {{{0.5F, -4.5F}, {3.5F, -2.5F}}, kGeneralPath,
       {{1, 1}, {2, 1}, {2, 2}, {3, 2}, {3, 3}, {4, 3}}, {1, 6},
       {".00W/5.00S", "3.00E/3.00S"}, 554.8994749191737},
      {{{0, 0}, {0.3F, 0}, {3, 0}}, kGeneralPath, {{1, 6}, {2, 6}, {3, 6}}, {1, 0, 3},
       {"", "", "2.00E/.00S"}, 222.21353466021276},
      {{{0, 0}, {3, 3}, {0, 3}}, kGeneralPath,
       {{1, 6}, {2, 7}, {3, 8}, {4, 9}, {5, 9}, {6, 9}}, {1, 3, 6},
       {".00W/.00S", "2.00E/2.00N", "5.00E/3.00N"}, 693.0440922706864},
  };
  useGridA();
  for (const Path& path : paths) {
    SCOPED_TRACE(path.labels.back());
    usePoints(path.points);
    EXPECT_EQ(MakeKelvane(), 1);
    EXPECT_EQ(section.npts, static_cast<int32_t>(path.points.size()));
    EXPECT_EQ(section.section_kind, path.kind);
    EXPECT_EQ(section.ncols, static_cast<int32_t>(path.cells.size()));
    EXPECT_EQ(columns(), path.cells);
    EXPECT_EQ(pointColumns(), path.pointColumns);
    EXPECT_EQ(labels(), path.labels);
    EXPECT_EQ(section.section_length_km, path.km);
  }
  EXPECT_EQ(util::LastError, "");
}

TEST_F(SectionPath, TiesPointsToTheirCells) {
  useGridA();
  usePoints({{0.5F, -4.5F}, {3.5F, -2.5F}});
  ASSERT_EQ(MakeKelvane(), 1);
  EXPECT_EQ(section.point_cell(1), (Cell{1, 1}));
  EXPECT_EQ(section.point_cell(2), (Cell{4, 3}));
  EXPECT_EQ(section.point_lonlat(2).lon, 3.0F);
  EXPECT_EQ(section.point_lonlat(2).lat, -3.0F);
}

TEST_F(SectionPath, RefusesPathsOfLessThanTwoColumnsAndKeepsWhatWasBuilt) {
  struct Row {
    std::vector<SectionPoint> points;
    Cells cells;
    std::vector<int32_t> pointColumns;
  };
  const Row rows[] = {
      {{}, {}, {}},
      {{{0, 0}}, {}, {1}},
      {{{0, 0}, {0.3F, 0.3F}}, {}, {1, 0}},
      {{{0, 0}, {1, 0}}, {{1, 6}}, {1, 1}},
      {{{40, 0}, {50, 0}}, {}, {1, 0}},
  };
  useGridA();
  usePoints({{0, 0}, {4, 0}});
  ASSERT_EQ(MakeKelvane(), 1);
  const double length = section.section_length_km;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.points.size());
    usePoints(row.points);
    util::LastError.clear();
    EXPECT_EQ(MakeKelvane(), -1);
    EXPECT_EQ(util::LastError, "[MakeKelvane] Section distance is too short, or input error");
    EXPECT_EQ(columns(), row.cells);
    EXPECT_EQ(section.ncols, static_cast<int32_t>(row.cells.size()));
    EXPECT_EQ(pointColumns(), row.pointColumns);
    EXPECT_EQ(section.section_length_km, length) << "the length stays that of the last section";
  }
}

TEST_F(SectionPath, NeedsAGrid) {
  usePoints({{0, 0}, {4, 0}});
  EXPECT_EQ(MakeKelvane(), -1);
  EXPECT_EQ(util::LastError, "[Set_cell_Section] ncf.dlon <= 0 Or ncf.dlat <= 0");
}

TEST_F(SectionPath, EndsAtTheSegmentThatFails) {
  useGridA();
  usePoints({{0, 0}, {4, 0}, {std::numeric_limits<float>::quiet_NaN(), 0}, {5, 0}});
  EXPECT_EQ(MakeKelvane(), -1);
  EXPECT_EQ(util::LastError, "[Set_cell_Section] Error: Overflow");
  EXPECT_EQ(section.ncols, 4);
  EXPECT_EQ(pointColumns(), (std::vector<int32_t>{1, 4, 0, 0}));
}

TEST_F(SectionPath, ReportsCoordinateListsThatAreTooShort) {
  useGridA();
  ncf.lat_values.assign(3);
  ncf.lat_values(1) = -5;
  usePoints({{0, 0}, {4, 0}});
  EXPECT_EQ(MakeKelvane(), -1);
  EXPECT_EQ(util::LastError, "[MakeKelvane] Error: Subscript out of range");
}

TEST_F(SectionPath, PlacesCellsByTheMeanSpacings) {
  useGridB();
  const LonLat place = cellPlace({3, 1});
  // 2.5 x the single nearest to 0.1, computed in double and stored as a single.
  EXPECT_EQ(place.lon, static_cast<float>(2.5 * static_cast<double>(0.1F)));
  EXPECT_EQ(place.lat, 0.05F);
}

TEST_F(SectionPath, AddingACornerBeyondTheCounterIsAnOverflow) {
  usePoints({{1, 2}});
  NumSectionPoints = std::numeric_limits<int32_t>::max();
  try {
    AddSectionPoint(3, 4);
    FAIL() << "no run-time error";
  } catch (const util::RuntimeError& error) {
    EXPECT_EQ(error.number(), util::kOverflow);
  }
  EXPECT_EQ(NumSectionPoints, std::numeric_limits<int32_t>::max());
  EXPECT_EQ(SectionPoints.size(), 1);
  ClearSectionPoints();
  AddSectionPoint(5, 6);
  EXPECT_EQ(NumSectionPoints, 1);
  EXPECT_EQ(SectionPoints(1).x, 5.0F);
}

TEST(PointLabel, HasTwoDecimalsAndTheHemispheres) {
  struct Row {
    float lon, lat;
    const char* label;
  };
  constexpr Row rows[] = {
      {12.5F, -0.25F, "12.50E/.25S"},     {0, 0, ".00W/.00S"},
      {350, -89.999F, "350.00E/90.00S"},  {0.004F, 0.005F, ".00E/.01N"},
      {179.999F, 0.125F, "180.00E/.13N"}, {365, 10.5F, "365.00E/10.50N"},
      {2.675F, -1.005F, "2.68E/1.01S"},   {-0.0F, -0.0F, ".00W/.00S"},
      {-179.5F, 3, "179.50W/3.00N"},
  };
  for (const Row& row : rows) EXPECT_EQ(PointLabel(row.lon, row.lat), row.label);
}

TEST(SectionDistance, IsFlatEarth) {
  struct Row {
    double x1, y1, x2, y2, metres;
  };
  constexpr Row rows[] = {
      {0, 0, 1, 0, 111110.99809630643},     {0, 60, 1, 60, 55555.50076704489},
      {10, -30, 12, -29, 223055.8802180727}, {0, 89, 180, 89, 349048.3035794764},
      {1, 2, -3, 4, 496358.7731743936},     {359, 0, 361, 0, 222221.99619261286},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(SectionDistance(row.x1, row.y1, row.x2, row.y2), row.metres)
        << row.x1 << ", " << row.y1;
  }
}

}  // namespace
