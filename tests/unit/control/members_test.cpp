#include <limits>

#include "colorkey/colorKey.h"
#include "netcdf/ncf.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "unit/control/ControlTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using Kind = support::Operation::Kind;

namespace {

constexpr int32_t kLargest = std::numeric_limits<int32_t>::max();
constexpr int32_t kSmallest = std::numeric_limits<int32_t>::min();

using Members = ControlTest;

TEST_F(Members, BeforeTheFirstDataSetGiveFailuresAndDrawNothing) {
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(control.NumDrawAbleItems(), 0);
  EXPECT_EQ(control.ItemName(1), "");
  EXPECT_FALSE(control.DrawProfile());
  EXPECT_FALSE(control.DrawVerticalSection());
  EXPECT_FALSE(control.UseColorKey());
  EXPECT_EQ(control.SetVarByOrder(1), -1);
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(control.SetVarByName("temp"), -1);
  EXPECT_EQ(control.ErrorMessage(), "[SelectVarByName] nc varable not identified");
  EXPECT_EQ(sectionThrough({{0, 0}, {4, 0}}), -1);
  EXPECT_EQ(control.ErrorMessage(), "[Set_cell_Section] ncf.dlon <= 0 Or ncf.dlat <= 0");
  control.Draw();
  control.ReDraw();
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(VarShown, 0);
  util::LastError.clear();
  control.SetCurrentTime(1);
  EXPECT_EQ(control.ErrorMessage(), "[ReadVSData&] nvar_it& <= 0; need to specify variable id");
  EXPECT_EQ(control.AdvanceTime(1), 1);
  for (const support::RecordingPictureBox* box :
       {&boxes.Picture1, &boxes.picSection, &boxes.picContours, &boxes.picDateTime}) {
    EXPECT_TRUE(box->operations.empty()) << box->name;
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Members, SelectItemsByNameAndOrder) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  EXPECT_EQ(control.SetVarByName("SALT"), 1);
  EXPECT_EQ(VarShown, 7);
  EXPECT_EQ(control.SetVarByName("nosuch"), -1);
  EXPECT_EQ(control.ErrorMessage(), "[SelectVarByName] nc varable not identified");
  EXPECT_EQ(VarShown, 7);
  util::LastError = "kept";
  for (const int32_t order : {kSmallest, -1, 0, 3, kLargest}) {
    EXPECT_EQ(control.SetVarByOrder(order), -1);
  }
  EXPECT_EQ(control.ErrorMessage(), "kept");
  EXPECT_EQ(control.SetVarByOrder(1), 1);
  EXPECT_EQ(VarShown, 5);
  EXPECT_EQ(control.ErrorMessage(), "kept") << "success clears nothing";
}

TEST_F(Members, SwitchBetweenTheViewsWithoutDrawing) {
  control.DrawProfile(true);
  EXPECT_TRUE(control.DrawProfile());
  EXPECT_FALSE(control.DrawVerticalSection());
  control.DrawProfile(false);
  EXPECT_TRUE(control.DrawVerticalSection());
  control.DrawVerticalSection(false);
  EXPECT_TRUE(control.DrawProfile());
  control.DrawVerticalSection(true);
  EXPECT_FALSE(control.DrawProfile());
  EXPECT_TRUE(boxes.Picture1.operations.empty());
}

TEST_F(Members, DrawRepairsTheItemOnlyWhenItIsBelowOne) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  Item_shown = -4;
  VarShown = 0;
  control.Draw();
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(VarShown, 5);
  Item_shown = 9;
  control.Draw();
  EXPECT_EQ(Item_shown, 9);
  EXPECT_NE(control.ErrorMessage(), "");
  Item_shown = 0;
  control.SetCurrentTime(1);
  EXPECT_EQ(Item_shown, 0) << "stepping in time repairs nothing";
}

TEST_F(Members, DrawTheHeldSectionAgainWithoutReading) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.Draw();
  const auto painted = boxes.picSection.of(Kind::Box).size();
  ASSERT_GT(painted, 8U);
  boxes.forget();
  desktop.waits = 0;
  ASSERT_EQ(sectionThrough({{354.5F, -1}, {354.5F, 0.4F}}), 1);
  ASSERT_EQ(control.SetVarByOrder(2), 1);
  control.ReDraw();
  EXPECT_EQ(desktop.waits, 0);
  EXPECT_EQ(section_values.ncols(), 4) << "the grid of the last read";
  EXPECT_FALSE(boxes.picSection.of(Kind::Box).empty());
}

TEST_F(Members, ShowNoOptionsInAHostWithoutWindows) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  boxes.forget();
  control.ShowOptions();
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(Item_shown, 1);
  EXPECT_TRUE(control.DrawVerticalSection());
  EXPECT_TRUE(boxes.Picture1.operations.empty());
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Members, UseAColourKeyOnlyWhenThereIsOne) {
  control.NewColorKey();
  control.UseColorKey(true);
  EXPECT_FALSE(control.UseColorKey());
  control.AddColorKey(0, 1, 255);
  EXPECT_FALSE(control.UseColorKey());
  control.UseColorKey(true);
  EXPECT_TRUE(control.UseColorKey());
  control.NewColorKey();
  EXPECT_TRUE(control.UseColorKey()) << "emptying the key does not turn it off";
  control.UseColorKey(false);
  EXPECT_FALSE(control.UseColorKey());
}

TEST_F(Members, AddToTheKeyAfterAFailedLoadOnlyOnTheSecondAttempt) {
  EXPECT_EQ(control.KewFile("any.kew"), -1);
  EXPECT_EQ(ModColor::ColorKey.nDivision, -1);
  control.UseColorKey(true);
  EXPECT_FALSE(control.UseColorKey());
  EXPECT_EQ(errorOf([&] { control.AddColorKey(0, 1, 255); }), util::kSubscript);
  EXPECT_EQ(ModColor::ColorKey.nDivision, 0);
  control.AddColorKey(0, 1, 255);
  EXPECT_EQ(ModColor::ColorKey.nDivision, 1);
  EXPECT_EQ(ModColor::ColorKey.color(1), 255);
}

TEST_F(Members, KeepTheirCountersWhenTheyOverflow) {
  control.AddSection(1, 2);
  NumSectionPoints = kLargest;
  EXPECT_EQ(errorOf([&] { control.AddSection(3, 4); }), util::kOverflow);
  EXPECT_EQ(NumSectionPoints, kLargest);
  control.NewSection();
  control.AddSection(3, 4);
  EXPECT_EQ(NumSectionPoints, 1);

  control.AddColorKey(0, 1, 255);
  ModColor::ColorKey.nDivision = kLargest;
  EXPECT_EQ(errorOf([&] { control.AddColorKey(1, 2, 0); }), util::kOverflow);
  EXPECT_EQ(ModColor::ColorKey.nDivision, kLargest);
  control.NewColorKey();
  control.AddColorKey(1, 2, 0);
  EXPECT_EQ(ModColor::ColorKey.nDivision, 1);

  TimeShown = 5;
  EXPECT_EQ(errorOf([&] { control.AdvanceTime(kLargest); }), util::kOverflow);
  EXPECT_EQ(TimeShown, 5);
  TimeShown = -5;
  EXPECT_EQ(errorOf([&] { control.AdvanceTime(kSmallest); }), util::kOverflow);
  EXPECT_EQ(TimeShown, -5);
}

TEST_F(Members, KeepAnyPointUntilTheSectionIsEnded) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  constexpr float inf = std::numeric_limits<float>::infinity();
  EXPECT_EQ(sectionThrough({{350, 0}, {inf, 0}}), -1);
  EXPECT_EQ(control.ErrorMessage(), "[Set_cell_Section] Error: Overflow");
  EXPECT_EQ(NumSectionPoints, 2);
  EXPECT_EQ(sectionThrough({{350, 0}, {358, 0}}), 1);
}

TEST_F(Members, ShareTheirStateBetweenControls) {
  support::RecordingPictures otherBoxes;
  control::KelvaneCtl other(otherBoxes.pictures(), desktop);
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  EXPECT_EQ(other.NumDrawAbleItems(), 2);
  other.Draw();
  EXPECT_FALSE(otherBoxes.picSection.of(Kind::Box).empty());
  EXPECT_TRUE(boxes.picSection.operations.empty()) << "the pictures are each control's own";
}

}  // namespace
