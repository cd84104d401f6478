#include <cmath>
#include <limits>
#include <random>

#include "unit/section/SectionTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ocxNetNc::ncf;
using Cells = std::vector<Cell>;

namespace {

class CellWalk : public SectionTest {
 protected:
  static int32_t walk(SectionPoint from, SectionPoint to) {
    usePoints({from, to});
    return Set_cell_Section(1);
  }
};

struct Segment {
  SectionPoint from, to;
  Cells cells;
  int32_t result;
};

TEST_F(CellWalk, FindsTheCellsOfASegmentTowardLargerCoordinates) {
  const Segment segments[] = {
      {{0, 0}, {4, 0}, {{1, 6}, {2, 6}, {3, 6}, {4, 6}}, 4},
      {{0, 0}, {0, 3}, {{1, 6}, {1, 7}, {1, 8}}, 3},
      {{0, 3}, {0, 0}, {{1, 9}, {1, 10}, {1, 11}}, 3},
      {{1, 1}, {3.5F, 1}, {{2, 7}, {3, 7}, {4, 7}}, 3},
      {{0, 0}, {0.4F, 0.4F}, {}, 0},
      {{0, 0}, {0.5F, 0.5F}, {}, 0},
      {{0, 0}, {1.5F, 0}, {{1, 6}, {2, 6}}, 2},
      {{-0.9F, 0}, {2.1F, 0}, {{1, 6}, {2, 6}}, 2},
      {{-2, 0}, {2, 0}, {{1, 6}, {2, 6}}, 2},
      {{9, 0}, {6, 0}, {{10, 6}, {11, 6}}, 2},
      {{50, 0}, {60, 0}, {}, 0},
      {{0, -5.5F}, {0, -3.5F}, {{1, 1}, {1, 2}}, 2},
  };
  useGridA();
  for (const Segment& segment : segments) {
    SCOPED_TRACE(testing::Message() << segment.from.x << ", " << segment.from.y << " to "
                                    << segment.to.x << ", " << segment.to.y);
    section = {};
    EXPECT_EQ(walk(segment.from, segment.to), segment.result);
    EXPECT_EQ(columns(), segment.cells);
    EXPECT_EQ(section.ncols, segment.result);
  }
}

TEST_F(CellWalk, ComputesInDoubleOnTheStoredSingles) {
  useGridB();
  EXPECT_EQ(walk({0, 0.5F}, {0.35F, 0.5F}), 4);
  EXPECT_EQ(columns(), (Cells{{1, 5}, {2, 5}, {3, 5}, {4, 5}}));
}

TEST_F(CellWalk, DoesNotRepeatTheLastCellOfTheSegmentBefore) {
  useGridA();
  section.column_cells.push({1, 6});
  section.ncols = 1;
  EXPECT_EQ(walk({0, 0}, {2, 0}), 2);
  EXPECT_EQ(columns(), (Cells{{1, 6}, {2, 6}}));
}

TEST_F(CellWalk, TakesHalfAStepToTheEvenCount) {
  useGridA();
  EXPECT_EQ(walk({0, 0}, {2.5F, 0}), 3);  // two steps; the sixth sample stands at 2.083
  EXPECT_EQ(columns(), (Cells{{1, 6}, {2, 6}, {3, 6}}));
}

TEST_F(CellWalk, NeedsPositiveSpacings) {
  const std::string text = "[Set_cell_Section] ncf.dlon <= 0 Or ncf.dlat <= 0";
  useGridA();
  for (const auto& [dlon, dlat] : {std::pair{0.0F, 1.0F}, {-1.0F, 1.0F}, {1.0F, 0.0F},
                                   {1.0F, -1.0F}}) {
    ncf.dlon = dlon;
    ncf.dlat = dlat;
    util::LastError.clear();
    EXPECT_EQ(walk({0, 0}, {4, 0}), -1);
    EXPECT_EQ(util::LastError, text);
  }
}

TEST_F(CellWalk, RefusesAGridOfCellsWhateverSpacingsAreLeft) {
  useGridA();
  ncf.grid_order = 0;
  EXPECT_EQ(walk({0, 0}, {4, 0}), -1);
  EXPECT_EQ(util::LastError, "[Set_cell_Section] ncf.dlon <= 0 Or ncf.dlat <= 0");
}

TEST_F(CellWalk, ReportsAPointNumberOutsideThePath) {
  useGridA();
  usePoints({{0, 0}, {4, 0}});
  for (const int32_t k : {std::numeric_limits<int32_t>::min(), -1, 0, 2, 3,
                          std::numeric_limits<int32_t>::max()}) {
    util::LastError.clear();
    EXPECT_EQ(Set_cell_Section(k), -1) << k;
    EXPECT_EQ(util::LastError, "[Set_cell_Section] Error: Subscript out of range") << k;
  }
}

TEST_F(CellWalk, ReportsSegmentsOfMoreStepsThanCanBeCounted) {
  constexpr float inf = std::numeric_limits<float>::infinity();
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  const std::pair<SectionPoint, SectionPoint> segments[] = {
      {{0, 0}, {3e9F, 0}},      {{0, 0}, {0, -3e9F}},     {{0, 0}, {inf, 0}},
      {{inf, 0}, {inf, 0}},     {{-inf, 0}, {inf, 0}},    {{nan, 0}, {4, 0}},
      {{0, 0}, {4, nan}},       {{0, inf}, {4, 0}},       {{-3e38F, 0}, {3e38F, 0}},
  };
  useGridA();
  for (const auto& [from, to] : segments) {
    SCOPED_TRACE(testing::Message() << from.x << ", " << from.y << " to " << to.x << ", " << to.y);
    util::LastError.clear();
    EXPECT_EQ(walk(from, to), -1);
    EXPECT_EQ(util::LastError, "[Set_cell_Section] Error: Overflow");
    EXPECT_EQ(section.ncols, 0);
  }
}

TEST_F(CellWalk, WalksTwoThousandMillionStepsOverASmallGrid) {
  useGridA();
  EXPECT_EQ(walk({-1e9F, -1e9F}, {1e9F, 1e9F}), 7);
  EXPECT_EQ(columns(), (Cells{{1, 5}, {1, 6}, {2, 7}, {3, 8}, {4, 9}, {5, 10}, {6, 11}}));
  section = {};
  // The last sample, a third of a step west of the grid, still counts as its first index.
  EXPECT_EQ(walk({-2e9F, 0}, {0, 0}), 1);
  section = {};
  EXPECT_EQ(walk({-1e9F, 0}, {1e9F, 0}), 11);
  EXPECT_EQ(columns().front(), (Cell{1, 6}));
  EXPECT_EQ(columns().back(), (Cell{11, 6}));
}

TEST_F(CellWalk, IsQuickOverAGridOfMinuteSpacing) {
  useGrid(0, 1e-9, 4, 0, 1e-9, 4);
  EXPECT_EQ(walk({0, 0}, {2, 0}), 4);
  EXPECT_EQ(walk({0, 0}, {1000, 0}), -1);
  EXPECT_EQ(util::LastError, "[Set_cell_Section] Error: Overflow");
}

TEST_F(CellWalk, PointsFarBeyondTheGridAreSkippedSilently) {
  useGridA();
  EXPECT_EQ(walk({3e30F, 0}, {3e30F, 5}), 0);
  EXPECT_EQ(walk({0, -1e20F}, {5, -1e20F}), 0);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(CellWalk, SurvivesAGridWhoseListsAreShorterThanItsCounts) {
  useGridA();
  ncf.lon_values.clear();
  EXPECT_EQ(walk({0, 0}, {4, 0}), -1);
  EXPECT_EQ(util::LastError, "[Set_cell_Section] Error: Subscript out of range");
}

// The walk as it is defined, one sample after the other.
Cells everySample(SectionPoint from, SectionPoint to) {
  const double dlon = static_cast<double>(ncf.dlon), dlat = static_cast<double>(ncf.dlat);
  const double dx = static_cast<double>(std::fabs(to.x - from.x));
  const double dy = static_cast<double>(std::fabs(to.y - from.y));
  const double n = std::max(std::nearbyint(dx / dlon), std::nearbyint(dy / dlat));
  Cells cells;
  for (double t = 1; t <= 3 * n; ++t) {
    const double x = static_cast<double>(from.x) + dx / (3 * n) * (t - 1);
    const double y = static_cast<double>(from.y) + dy / (3 * n) * (t - 1);
    const double i = std::trunc((x - static_cast<double>(ncf.lon_values(1))) / dlon) + 1;
    const double j = std::trunc((y - static_cast<double>(ncf.lat_values(1))) / dlat) + 1;
    if (i < 1 || i > ncf.nlon || j < 1 || j > ncf.nlat) continue;
    const Cell cell{static_cast<int32_t>(i), static_cast<int32_t>(j)};
    if (cells.empty() || cells.back() != cell) cells.push_back(cell);
  }
  return cells;
}

TEST_F(CellWalk, GivesTheCellsOfTheSampleBySampleWalk) {
  std::mt19937 random(20240611);
  const auto between = [&random](double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967296.0);
  };
  int found = 0;
  for (int round = 0; round < 3000; ++round) {
    const auto count = [&] { return static_cast<int32_t>(between(1, 40)); };
    useGrid(between(-400, 400), between(0.01, 3), count(), between(-90, 90), between(0.01, 3),
            count());
    const double reach = round % 3 == 0 ? 200 : 4;
    const auto nearGrid = [&](float first, float step, int32_t size) {
      const double length = static_cast<double>(step) * size;
      return static_cast<float>(static_cast<double>(first) +
                                between(-reach * 0.2, 1 + reach * 0.1) * length);
    };
    const auto point = [&] {
      return SectionPoint{nearGrid(ncf.lon_values(1), ncf.dlon, ncf.nlon),
                          nearGrid(ncf.lat_values(1), ncf.dlat, ncf.nlat)};
    };
    const SectionPoint from = point(), to = point();
    section = {};
    walk(from, to);
    const Cells expected = everySample(from, to);
    ASSERT_EQ(columns(), expected) << "round " << round;
    if (!expected.empty()) ++found;
  }
  EXPECT_GT(found, 500) << "too few of the random segments meet their grid";
}

}  // namespace
