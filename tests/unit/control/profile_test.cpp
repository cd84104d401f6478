#include "netcdf/title.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "unit/control/ControlTest.h"

using namespace KelvaneMain;
using support::Operation;
using Kind = Operation::Kind;

namespace {

// Profiles of a data set, as a host asks for them.
class Profile : public ControlTest {
 protected:
  void open() {
    ASSERT_EQ(control.NcFile(tinySet()), 1) << control.ErrorMessage();
    ASSERT_EQ(sectionThrough({{350, -1}, {354, 0}, {359, 0.3F}}), 1) << control.ErrorMessage();
    control.DrawProfile(true);
  }
  std::vector<Operation> profileLines() const {
    auto lines = boxes.picSection.of(Kind::Line);
    std::erase_if(lines, [](const Operation& line) { return line.drawWidth != 2; });
    return lines;
  }
};

TEST_F(Profile, IsDrawnAtEveryPointOfThePath) {
  ASSERT_NO_FATAL_FAILURE(open());
  boxes.forget();
  control.Draw();
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(desktop.waits, 1);
  for (const std::string& label : section.point_label) {
    EXPECT_EQ(boxes.picSection.printOf(label).y1, 39.0F) << label;
  }
  EXPECT_EQ(boxes.picDateTime.texts(),
            (std::vector<std::string>{"Date/Time: 1990-01-02 12:00:00"}));
  boxes.picSection.printOf("potential temperature [degC]");
  EXPECT_TRUE(boxes.picSection.of(Kind::Box).empty()) << "no cells";
  EXPECT_TRUE(boxes.picContours.operations.empty());
  EXPECT_EQ(boxes.Picture1.operations.back().kind, Kind::Refresh);

  // The last column has no value at the deepest level.
  const auto lines = profileLines();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0].y1, 52.0F);
  EXPECT_EQ(lines[0].y2, 126.0F);
  EXPECT_EQ(lines[1].y2, 348.0F);
  EXPECT_EQ(lines[4].y2, 126.0F);
}

TEST_F(Profile, StepsInTimeAndKeepsTheRange) {
  ASSERT_NO_FATAL_FAILURE(open());
  control.Draw();
  const float range = DrawItems(1).plot_max;
  const auto before = profileLines();
  boxes.forget();
  EXPECT_EQ(control.AdvanceTime(1), 2);
  EXPECT_EQ(DrawItems(1).plot_max, range);
  const auto after = profileLines();
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    EXPECT_GT(after[i].x1, before[i].x1) << "it is warmer everywhere";
    EXPECT_EQ(after[i].y1, before[i].y1);
  }
  EXPECT_EQ(boxes.picDateTime.texts(),
            (std::vector<std::string>{"Date/Time: 1990-01-03 12:00:00"}));
}

TEST_F(Profile, IsDrawnAgainInTheOtherStyleAndSizeWithoutReading) {
  ASSERT_NO_FATAL_FAILURE(open());
  control.Draw();
  desktop.waits = 0;
  settings.ProfileStyle = 1;
  boxes.forget();
  control.ReDraw();
  EXPECT_EQ(boxes.picSection.printOf(section.point_label(2)).colour, 65280);
  boxes.forget();
  control.Resize(1000, 600);
  EXPECT_EQ(profileLines().size(), 5U);
  EXPECT_GT(profileLines().back().x1, 588.0F);
  EXPECT_EQ(desktop.waits, 0);
}

TEST_F(Profile, GivesWayToTheSectionAndComesBack) {
  ASSERT_NO_FATAL_FAILURE(open());
  control.Draw();
  control.DrawProfile(false);
  boxes.forget();
  control.ReDraw();
  EXPECT_FALSE(boxes.picSection.of(Kind::Box).empty());
  EXPECT_TRUE(profileLines().empty());
  control.DrawVerticalSection(false);
  boxes.forget();
  control.ReDraw();
  EXPECT_TRUE(boxes.picSection.of(Kind::Box).empty());
  EXPECT_EQ(profileLines().size(), 5U);
}

TEST_F(Profile, BeforeAnyReadIsNothing) {
  ASSERT_NO_FATAL_FAILURE(open());
  boxes.forget();
  control.ReDraw();
  EXPECT_TRUE(boxes.Picture1.operations.empty());
  EXPECT_EQ(control.ErrorMessage(), "");
}

TEST_F(Profile, OfALongerPathThanTheReadOneLeavesOutWhatIsNotHeld) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_EQ(sectionThrough({{350, 0}, {354.5F, 0}}), 1) << control.ErrorMessage();
  control.Draw();
  ASSERT_LT(section_values.ncols(), 4);
  ASSERT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1) << control.ErrorMessage();
  boxes.forget();
  control.ReDraw();
  boxes.picSection.printOf(section.point_label(2));
  EXPECT_EQ(profileLines().size(), 2U);
  EXPECT_EQ(control.ErrorMessage(), "");
}

}  // namespace
