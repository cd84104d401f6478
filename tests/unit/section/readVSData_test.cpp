#include <cmath>
#include <limits>

#include "netcdf/catalogue.h"
#include "netcdf/status.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "support/sampleSets.h"
#include "unit/section/ReadRecorder.h"
#include "unit/section/SectionTest.h"
#include "unit/section/smallSet.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ocxNetNc::ncf;
using Points = std::vector<SectionPoint>;
using Read = ReadRecorder::Read;
using Grid = std::vector<std::vector<float>>;  // levels of columns

namespace {

const Points kAcross = {{350, -1}, {360, 0.5F}};
const Points kAlongLatitude = {{350, 0}, {358, 0}};
const Points kAlongLongitude = {{354.5F, -1}, {354.5F, 0.4F}};

class SectionRead : public SectionTest {
 protected:
  void openTinySet(const Points& points) {
    const std::string path = folder.file("set.nc");
    support::makeTinySet(path);
    openAlong(path, points);
  }

  static Grid held() {
    Grid grid;
    for (int32_t k = 1; k <= section_values.nlevels(); ++k) {
      grid.emplace_back();
      for (int32_t c = 1; c <= section_values.ncols(); ++c) {
        grid.back().push_back(section_values.value(c, k));
      }
    }
    return grid;
  }
  static int missingPoints() {
    int missing = 0;
    for (int32_t k = 1; k <= section_values.nlevels(); ++k) {
      for (int32_t c = 1; c <= section_values.ncols(); ++c) {
        if (section_values.mark(c, k) == 0) ++missing;
      }
    }
    return missing;
  }
  static void expectExtremes(float maximum, float minimum) {
    EXPECT_EQ(DrawItems(Item_shown).maximum, maximum);
    EXPECT_EQ(DrawItems(Item_shown).minimum, minimum);
  }
  static void expectRange(float top, float bottom, float interval) {
    RoundPlotRange();
    EXPECT_EQ(DrawItems(Item_shown).plot_max, top);
    EXPECT_EQ(DrawItems(Item_shown).plot_min, bottom);
    EXPECT_EQ(DrawItems(Item_shown).plot_interval, interval);
  }
};

TEST_F(SectionRead, TakesAGeneralPathColumnByColumn) {
  ASSERT_NO_FATAL_FAILURE(openTinySet(kAcross));
  EXPECT_EQ(section.section_kind, kGeneralPath);
  EXPECT_EQ(section.section_length_km, 999.973598390379);
  EXPECT_EQ(columns(), (std::vector<Cell>{{1, 1}, {2, 1}, {2, 2}, {3, 2}, {4, 2}, {4, 3}, {5, 3}}));
  EXPECT_EQ(ncf.grid_order, -1);
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(ncf.grid_order, 2);
  EXPECT_EQ(held(), (Grid{{16.22F, 16.59F, 16.39F, 16.76F, 17.13F, 16.93F, 17.3F},
                          {12.72F, 13.09F, 12.89F, 13.26F, 13.63F, 13.43F, 13.8F},
                          {9.22F, 9.59F, 9.39F, 9.76F, 10.13F, 9.93F, kMissingValue}}));
  EXPECT_EQ(missingPoints(), 1);
  EXPECT_EQ(section_values.mark(7, 3), 0);
  ASSERT_EQ(recorder.reads().size(), 7U);
  EXPECT_EQ(recorder.reads().front(), (Read{"temp", {0, 0, 0, 0}, {1, 3, 1, 1}}));
  EXPECT_EQ(recorder.reads().back(), (Read{"temp", {0, 0, 2, 4}, {1, 3, 1, 1}}));
  expectExtremes(17.3F, 9.22F);
  expectRange(17.3F, 9, 1);
  EXPECT_EQ(section_values.section_depth_max, 200);
  EXPECT_EQ(section_values.depth(1), 0);
  EXPECT_EQ(section_values.depth(2), 50);
  EXPECT_EQ(section_values.depth(3), 200);

  // The next time step gives new extremes and keeps the plotting range.
  ASSERT_EQ(ReadVSData(VarShown, 2), 2) << util::LastError;
  EXPECT_EQ(recorder.reads().back(), (Read{"temp", {1, 0, 2, 4}, {1, 3, 1, 1}}));
  expectExtremes(17.85F, 9.77F);
  expectRange(17.3F, 9, 1);
}

TEST_F(SectionRead, TakesALatitudeRowInOneRead) {
  ASSERT_NO_FATAL_FAILURE(openTinySet(kAlongLatitude));
  EXPECT_EQ(section.section_kind, kSameLatitude);
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(held(), (Grid{{15.82F, 16.19F, 16.56F, 16.93F},
                          {12.32F, 12.69F, 13.06F, 13.43F},
                          {8.82F, 9.19F, 9.56F, 9.93F}}));
  EXPECT_EQ(missingPoints(), 0);
  EXPECT_EQ(recorder.reads(), (std::vector<Read>{{"temp", {0, 0, 2, 0}, {1, 3, 1, 4}}}));
  expectExtremes(16.93F, 8.82F);
  expectRange(16.93F, 8, 1);
}

TEST_F(SectionRead, TakesALongitudeColumnInOneRead) {
  ASSERT_NO_FATAL_FAILURE(openTinySet(kAlongLongitude));
  EXPECT_EQ(section.section_kind, kSameLongitude);
  EXPECT_EQ(columns(), (std::vector<Cell>{{3, 1}, {3, 2}, {3, 3}}));
  EXPECT_EQ(section.point_column(2), 3);
  EXPECT_EQ(section.point_label(1), "354.00E/1.00S");
  EXPECT_EQ(section.point_label(2), "354.00E/.00S");
  EXPECT_EQ(section.section_length_km, 111.11099809630643);
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(recorder.reads(), (std::vector<Read>{{"temp", {0, 0, 0, 2}, {1, 3, 3, 1}}}));
  EXPECT_EQ(held(), (Grid{{16.96F, 16.76F, 16.56F},
                          {13.46F, 13.26F, 13.06F},
                          {9.96F, 9.76F, 9.56F}}));
  expectExtremes(16.96F, 9.56F);
  expectRange(16.96F, 9, 1);
}

TEST_F(SectionRead, OpensAndClosesTheDataSetEachTimeUnderTheWaitPointer) {
  ASSERT_NO_FATAL_FAILURE(openTinySet(kAlongLatitude));
  EXPECT_FALSE(ocxNetNc::isOpen());
  const ReadRecorder recorder;
  EXPECT_EQ(ReadVSData(VarShown, 1), 1);
  EXPECT_EQ(ReadVSData(VarShown, 2), 2);
  EXPECT_EQ(recorder.opened(), 2);
  EXPECT_EQ(recorder.closed(), 2);
  EXPECT_FALSE(ocxNetNc::isOpen());
  EXPECT_EQ(desktop.waits, 2);
  EXPECT_FALSE(desktop.waiting);
}

TEST_F(SectionRead, GivesTheSameGridInBothDimensionOrders) {
  const Points paths[] = {{{10, -1}, {18, 0.5F}}, {{10, 0}, {18, 0}}, {{14, -1}, {14, 0.5F}}};
  for (const Points& path : paths) {
    SCOPED_TRACE(testing::Message() << path[1].x << ", " << path[1].y);
    support::resetState();
    const std::string latLon = folder.file("latlon.nc"), lonLat = folder.file("lonlat.nc");
    SmallSet first(latLon), second(lonLat);
    first.add("v", NC_FLOAT, {first.time, first.depth, first.lat, first.lon});
    first.finish();
    second.add("v", NC_FLOAT, {second.time, second.depth, second.lon, second.lat});
    second.finish();

    ASSERT_NO_FATAL_FAILURE(openAlong(latLon, path));
    ASSERT_EQ(ReadVSData(VarShown, 2), 2) << util::LastError;
    EXPECT_EQ(ncf.grid_order, 2);
    const Grid expected = held();
    for (int32_t c = 1; c <= section.ncols; ++c) {
      const Cell cell = section.column_cells(c);
      EXPECT_EQ(section_values.value(c, 3), static_cast<float>(2300 + 10 * cell.j + cell.i));
    }
    ASSERT_NO_FATAL_FAILURE(openAlong(lonLat, path));
    ASSERT_EQ(ReadVSData(VarShown, 2), 2) << util::LastError;
    EXPECT_EQ(ncf.grid_order, 1);
    EXPECT_EQ(held(), expected);
  }
}

TEST_F(SectionRead, KeepsTheFirstVariablesDimensionOrder) {
  SmallSet set(folder.file("set.nc"));
  set.add("a", NC_FLOAT, {set.time, set.depth, set.lat, set.lon});
  set.add("b", NC_FLOAT, {set.time, set.depth, set.lon, set.lat});
  set.finish();
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("set.nc"), {{10, -1}, {14, -1}}));
  ASSERT_EQ(ReadVSData(VarShown, 1), 1);
  ASSERT_EQ(SelectVarByName("b"), 1);
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(recorder.reads(), (std::vector<Read>{{"b", {0, 0, 0, 0}, {1, 3, 1, 2}}}));
  EXPECT_EQ(held()[0], (std::vector<float>{1111, 1121})) << "runs along b's latitudes";
}

TEST_F(SectionRead, TakesTheFirstOfAnyFurtherDimension) {
  SmallSet set(folder.file("set.nc"));
  const int member = set.nc.dim("member", 1);
  set.add("v", NC_DOUBLE, {member, set.time, set.depth, set.lat, set.lon});
  set.finish();
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("set.nc"), {{12, -0.5F}, {18, -0.5F}}));
  const ReadRecorder recorder;
  ASSERT_EQ(ReadVSData(VarShown, 2), 2) << util::LastError;
  EXPECT_EQ(recorder.reads(), (std::vector<Read>{{"v", {0, 1, 0, 1, 1}, {1, 1, 3, 1, 3}}}));
  EXPECT_EQ(held()[2], (std::vector<float>{2322, 2323, 2324}));
}

TEST_F(SectionRead, MarksNothingWhereEverythingIsMissing) {
  ASSERT_NO_FATAL_FAILURE(openTinySet({{350, -1}, {356, -1}}));
  ASSERT_EQ(SelectVarByName("salt"), 1);
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(missingPoints(), 9);
  EXPECT_EQ(held()[0], std::vector<float>(3, kMissingValue));
  expectExtremes(-1e35F, 1e35F);
  expectRange(0, 0, 0);
}

TEST_F(SectionRead, StoresButDoesNotCountNotANumber) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  SmallSet set(folder.file("set.nc"));
  std::vector<double> values = set.values({set.time, set.depth, set.lat, set.lon});
  values[0] = nan;  // the first column's top
  set.add("v", NC_FLOAT, {set.time, set.depth, set.lat, set.lon}, values);
  set.finish();
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("set.nc"), {{10, -1}, {16, -1}}));
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_TRUE(std::isnan(section_values.value(1, 1)));
  EXPECT_EQ(missingPoints(), 1);
  expectExtremes(1313, 1112);
}

TEST_F(SectionRead, CountsTheZerosOfATextVariable) {
  SmallSet set(folder.file("set.nc"));
  set.nc.var("letters", NC_CHAR, {set.time, set.depth, set.lat, set.lon});
  set.finish();
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("set.nc"), {{10, -1}, {16, -1}}));
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(missingPoints(), 0);
  expectExtremes(0, 0);
}

TEST_F(SectionRead, IsEnoughWithOneColumn) {
  ASSERT_NO_FATAL_FAILURE(openTinySet(kAcross));
  usePoints({{350, 0}, {352, 0}});
  ASSERT_EQ(MakeKelvane(), -1);
  ASSERT_EQ(section.ncols, 1);
  ASSERT_EQ(ReadVSData(VarShown, 1), 1) << util::LastError;
  EXPECT_EQ(held(), (Grid{{15.82F}, {12.32F}, {8.82F}}));
}

TEST_F(SectionRead, CountsForTheItemShownAlsoWhenAnotherVariableIsRead) {
  ASSERT_NO_FATAL_FAILURE(openTinySet(kAlongLatitude));
  Item_shown = 2;
  ASSERT_EQ(ReadVSData(VarShown, 1), 1);
  EXPECT_EQ(DrawItems(2).maximum, 16.93F);
  EXPECT_EQ(DrawItems(1).maximum, 0);
}

}  // namespace
