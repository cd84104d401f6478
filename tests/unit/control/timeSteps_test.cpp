#include <limits>

#include "netcdf/ncf.h"
#include "netcdf/status.h"
#include "netcdf/title.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using Kind = support::Operation::Kind;

namespace {

class TimeSteps : public ControlTest {
 protected:
  TimeSteps() { openAlongLatitude(); }
};

TEST_F(TimeSteps, AdvanceAndWrapToTheFirst) {
  ocxNetNc::ncf.ntime = 4;  // as a data set of four steps; the third and fourth cannot be read
  TimeShown = 2;
  EXPECT_EQ(control.AdvanceTime(2), 4);
  EXPECT_EQ(control.AdvanceTime(5), 1);
  EXPECT_EQ(section_values.value(1, 1), 15.82F);
}

TEST_F(TimeSteps, BelowOneAreKeptAndReadNothing) {
  control.Draw();
  ocxNetNc::ncf.ntime = 4;
  TimeShown = 2;
  util::LastError = "kept";
  boxes.forget();
  EXPECT_EQ(control.AdvanceTime(-5), -3);
  EXPECT_EQ(control.ErrorMessage(), "kept");
  EXPECT_FALSE(boxes.picSection.of(Kind::Box).empty()) << "the held picture is drawn again";
  EXPECT_EQ(control.AdvanceTime(3), 0);
  EXPECT_EQ(control.AdvanceTime(1), 1);
}

TEST_F(TimeSteps, SetBelowOneDoNothing) {
  control.Draw();
  boxes.forget();
  for (const int32_t step : {0, -1, std::numeric_limits<int32_t>::min()}) {
    control.SetCurrentTime(step);
    EXPECT_EQ(TimeShown, step);
  }
  EXPECT_TRUE(boxes.picSection.operations.empty());
  control.SetCurrentTime(0);
  EXPECT_EQ(control.AdvanceTime(1), 1);
  EXPECT_FALSE(boxes.picSection.operations.empty());
}

TEST_F(TimeSteps, BeyondTheLastAreRefusedByTheLibrary) {
  control.Draw();
  boxes.forget();
  desktop.messages.clear();
  control.SetCurrentTime(9);
  EXPECT_EQ(TimeShown, 9);
  EXPECT_EQ(control.ErrorMessage(),
            "NetCDF: Index exceeds dimension bound\n"
            "nvar, tcount= 5, 12\n"
            "start, count, stride = 8 0 2 0; 1 3 1 4; 1 1 1 1");
  ASSERT_EQ(desktop.messages.size(), 1U);
  EXPECT_EQ(desktop.messages[0].caption, "NetCDF Error");
  EXPECT_FALSE(ocxNetNc::isOpen());
  EXPECT_FALSE(desktop.waiting);
  EXPECT_EQ(ocxNetNc::TitleLines(2), "1990-01-02 12:00:00") << "of the last step that was read";
  EXPECT_EQ(boxes.Picture1.of(Kind::Refresh).size(), 1U);
  control.SetCurrentTime(2);
  EXPECT_EQ(ocxNetNc::TitleLines(2), "1990-01-03 12:00:00");
  EXPECT_EQ(section_values.value(1, 1), 16.37F);
}

TEST_F(TimeSteps, OfADataSetWithoutATimeAxisCannotBeRead) {
  ocxNetNc::ncf.time_dId = -1;
  control.SetCurrentTime(1);
  EXPECT_EQ(control.ErrorMessage(), "[ReadVSData] Time dimension ID not identified");
}

}  // namespace
