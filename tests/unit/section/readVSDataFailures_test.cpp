#include <filesystem>
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

namespace {

class FailedRead : public SectionTest {
 protected:
  FailedRead() : path(folder.file("set.nc")) {
    support::makeTinySet(path);
    openAlong(path, {{350, 0}, {358, 0}});
    util::LastError = "before";
  }
  void expectRefusal(int32_t variable, int32_t time, const std::string& text) {
    EXPECT_EQ(ReadVSData(variable, time), -1);
    EXPECT_EQ(util::LastError, text);
    EXPECT_FALSE(ocxNetNc::isOpen());
    EXPECT_FALSE(desktop.waiting);
  }

  std::string path;
};

TEST_F(FailedRead, ChecksInOrder) {
  const ReadRecorder recorder;
  expectRefusal(0, 0, "before");
  expectRefusal(VarShown, -3, "before");
  ncf.grid_order = 0;
  ncf.level_dId = -1;
  ncf.nlevels = 0;
  expectRefusal(0, 1, "[ReadVSData&] nvar_it& <= 0; need to specify variable id");
  expectRefusal(VarShown, 1, "[ReadVSData&] nvcoord& <= 0");
  ncf.nlevels = 3;
  expectRefusal(VarShown, 1, "[ReadVSData&] ncf.level_dId& < 0");
  ncf.level_dId = 1;
  expectRefusal(VarShown, 1, "[ReadVSData&] not proper nc grid ");
  EXPECT_EQ(recorder.opened(), 0);
  EXPECT_EQ(desktop.waits, 0);
}

TEST_F(FailedRead, AsksForTheGridOrderAgain) {
  const int32_t timeVariable = ncf.time_vId;  // one dimension: no horizontal order
  expectRefusal(timeVariable, 1, "[ReadVSData&] not proper nc grid ");
  EXPECT_EQ(ncf.grid_order, -1);
  EXPECT_EQ(ReadVSData(VarShown, 1), 1);
  EXPECT_EQ(ncf.grid_order, 2);
}

TEST_F(FailedRead, ReportsAVariableOutsideTheCatalogue) {
  expectRefusal(99, 1, "[ReadVSData] Error: Subscript out of range");
  ncf.grid_order = 2;
  expectRefusal(std::numeric_limits<int32_t>::max(), 1,
                "[ReadVSData] Error: Subscript out of range");
}

TEST_F(FailedRead, ReportsVariablesThatLackAnAxis) {
  ncf.grid_order = 2;
  expectRefusal(6, 1, "[ReadVSData] Vertical coordinate not identified");  // zeta
  ncf.time_dId = -1;
  expectRefusal(VarShown, 1, "[ReadVSData] Time dimension ID not identified");
}

// As after an opening that failed between the two.
TEST_F(FailedRead, ReportsAVariableWhoseOneDimensionIsLevelAndTime) {
  ncf.grid_order = 2;
  ncf.level_dId = ncf.time_dId;
  expectRefusal(ncf.time_vId, 1, "[ReadVSData] Error: Subscript out of range");
}

TEST_F(FailedRead, KeepsTheHeldGridWhenThereIsNoColumn) {
  ASSERT_EQ(ReadVSData(VarShown, 1), 1);
  DrawItems(1).maximum = 77;
  usePoints({{0, 0}});
  ASSERT_EQ(MakeKelvane(), -1);
  expectRefusal(VarShown, 1, "[ReadVSData] Error: Subscript out of range");
  EXPECT_EQ(DrawItems(1).maximum, 77) << "the extremes are untouched";
  EXPECT_EQ(section_values.value(1, 1), 15.82F);
}

TEST_F(FailedRead, ReportsAnItemOutsideTheList) {
  for (const int32_t item : {-1, 0, 3, std::numeric_limits<int32_t>::max()}) {
    Item_shown = item;
    util::LastError.clear();
    expectRefusal(VarShown, 1, "[ReadVSData] Error: Subscript out of range");
  }
}

TEST_F(FailedRead, AddsWhatWasAskedToTheLibrarysText) {
  expectRefusal(VarShown, 9,
                "NetCDF: Index exceeds dimension bound\n"
                "nvar, tcount= 5, 12\n"
                "start, count, stride = 8 0 2 0; 1 3 1 4; 1 1 1 1");
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0].caption, "NetCDF Error");
  EXPECT_EQ(desktop.messages[0].text, "NetCDF: Index exceeds dimension bound");
  EXPECT_EQ(section_values.ncols(), 4);
  EXPECT_EQ(section_values.mark(1, 1), 0) << "nothing of the earlier values is left";
}

TEST_F(FailedRead, PaintsOnlyWhatWasStored) {
  // A path that begins in the grid and leaves it, as an old section does on a smaller grid.
  usePoints({{350, -1}, {360, 0.5F}});
  ASSERT_EQ(MakeKelvane(), 1);
  section.column_cells(3).i = 700;
  EXPECT_EQ(ReadVSData(VarShown, 1), -1);
  EXPECT_EQ(section_values.mark(1, 1), 1);
  EXPECT_EQ(section_values.mark(2, 3), 1);
  EXPECT_EQ(section_values.mark(3, 1), 0);
  EXPECT_EQ(section_values.mark(7, 1), 0);
}

TEST_F(FailedRead, SurvivesASectionOfALargerGrid) {
  const std::string smaller = folder.file("smaller.nc");
  SmallSet set(smaller);  // five longitudes in place of six
  set.add("v", NC_FLOAT, {set.time, set.depth, set.lat, set.lon});
  set.finish();
  // Columns 3..5 exist in both.
  ASSERT_NO_FATAL_FAILURE(openAlong(path, {{354, 0.5F}, {360, 0.5F}}));
  ASSERT_NO_FATAL_FAILURE(open(smaller));
  EXPECT_EQ(ReadVSData(VarShown, 2), 2) << util::LastError;
  EXPECT_EQ(section_values.value(1, 1), 2143);
  // Column 6 does not.
  ASSERT_NO_FATAL_FAILURE(openAlong(path, {{356, 0.5F}, {362, 0.5F}}));
  ASSERT_NO_FATAL_FAILURE(open(smaller));
  EXPECT_EQ(ReadVSData(VarShown, 2), -1);
  EXPECT_EQ(util::LastError.rfind("NetCDF: Start+count exceeds dimension bound\n", 0), 0U)
      << util::LastError;
}

TEST_F(FailedRead, ReportsAFileThatHasGone) {
  std::filesystem::remove(path);
  EXPECT_EQ(ReadVSData(VarShown, 1), -1);
  EXPECT_EQ(util::LastError, "No such file or directory");
  EXPECT_EQ(desktop.messages.size(), 1U);
  EXPECT_FALSE(desktop.waiting);
  ncf.NcFileName.clear();
  EXPECT_EQ(ReadVSData(VarShown, 1), -1);
}

TEST_F(FailedRead, KeepsTheReadersOwnTextInFront) {
  SmallSet set(folder.file("big.nc"));
  set.add("v", NC_DOUBLE, {set.time, set.depth, set.lat, set.lon},
          std::vector<double>(120, 1e300));
  set.finish();
  ASSERT_NO_FATAL_FAILURE(openAlong(folder.file("big.nc"), {{10, 0}, {18, 0}}));
  EXPECT_EQ(ReadVSData(VarShown, 1), -1);
  EXPECT_NE(util::LastError.find("Overflow\nnvar, tcount= "), std::string::npos)
      << util::LastError;
  EXPECT_FALSE(ocxNetNc::isOpen());
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(FailedRead, CountsBeyondThirtyTwoBitsAreAnOverflow) {
  section.ncols = 70000;
  ncf.nlevels = 70000;
  expectRefusal(VarShown, 1, "[ReadVSData] Error: Overflow");
}

TEST_F(FailedRead, SurvivesLevelsThatDoNotFitTheirCount) {
  ncf.nlevels = 5;  // the list holds three
  expectRefusal(VarShown, 1, "[ReadVSData] Error: Subscript out of range");
  ncf.nlevels = 3;
  ncf.level_values[3] = 1e300;
  expectRefusal(VarShown, 1, "[ReadVSData] Error: Overflow");
}

}  // namespace
