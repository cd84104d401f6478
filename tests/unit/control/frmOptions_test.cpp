#include "control/frmOptions.h"

#include <limits>

#include "control/NoDialogs.h"
#include "unit/control/OptionsTest.h"

using control::frmOptions;
using namespace KelvaneMain;

namespace {

using Options = OptionsTest;

struct View {
  int32_t ViewMode, ViewStyle, ProfileStyle;
  bool operator==(const View&) const = default;
};
View view() { return {settings.ViewMode, settings.ViewStyle, settings.ProfileStyle}; }
void setView(const View& wanted) {
  settings.ViewMode = wanted.ViewMode;
  settings.ViewStyle = wanted.ViewStyle;
  settings.ProfileStyle = wanted.ProfileStyle;
}

TEST_F(Options, SelectTheButtonOfTheView) {
  const struct {
    View view;
    int32_t button;
  } table[] = {{{2, 0, 0}, 0}, {{2, 0, 1}, 0}, {{2, -1, 0}, 0}, {{0, 0, 1}, 0}, {{7, -3, 1}, 0},
               {{2, 1, 0}, 1}, {{2, 5, 1}, 1}, {{0, 1, 0}, 1},  {{1, 0, 1}, 2}, {{1, 1, 1}, 2},
               {{1, 0, 0}, 3}, {{1, 1, 2}, 3}, {{1, 0, -1}, 3}};
  for (const auto& [before, button] : table) {
    setView(before);
    frmOptions dialog(dialogs);
    dialog.Load();
    EXPECT_EQ(dialog.optViewStyle(), button)
        << before.ViewMode << ", " << before.ViewStyle << ", " << before.ProfileStyle;
    EXPECT_EQ(view(), before) << "loading changes no view";
    EXPECT_EQ(dialog.Result(), -1);
  }
}

TEST_F(Options, ChangeTheViewAtOnce) {
  const struct {
    int32_t button;
    View before, after;
  } table[] = {{0, {1, 7, 7}, {2, 0, 7}},
               {1, {1, 7, 7}, {2, 1, 7}},
               {2, {2, 7, 7}, {1, 7, 1}},
               {3, {2, 7, 7}, {1, 7, 0}}};
  for (const auto& [button, before, after] : table) {
    setView(before);
    frmOptions dialog(dialogs);
    dialog.Load();
    dialog.optViewStyle_Click(button);
    EXPECT_EQ(view(), after) << button;
    EXPECT_EQ(dialog.optViewStyle(), button);
    for (const int32_t none :
         {-1, 4, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
      dialog.optViewStyle_Click(none);
    }
    EXPECT_EQ(view(), after);
    EXPECT_EQ(dialog.optViewStyle(), button);
    EXPECT_FALSE(dialog.closed());
  }
}

TEST_F(Options, AreDrawnOnlyAfterOK) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.Draw();
  boxes.forget();
  desktop.waits = 0;
  showOptions([&](frmOptions& dialog) {
    dialog.optViewStyle_Click(2);
    EXPECT_EQ(drawings(), 0U) << "not before OK";
    dialog.OK();
    EXPECT_EQ(dialog.Result(), 1);
    EXPECT_TRUE(dialog.closed());
  });
  EXPECT_EQ(drawings(), 1U);
  EXPECT_EQ(desktop.waits, 0) << "drawn from what is held";
  EXPECT_TRUE(control.DrawProfile());
  EXPECT_EQ(settings.ProfileStyle, 1);
  EXPECT_TRUE(boxes.picContours.operations.empty()) << "a profile";
}

TEST_F(Options, StayAsTheyAreClickedWithTheCloseBoxButAreNotDrawn) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  control.Draw();
  boxes.forget();
  showOptions([](frmOptions& dialog) { dialog.optViewStyle_Click(1); });
  EXPECT_EQ(view(), (View{2, 1, 0}));
  EXPECT_EQ(drawings(), 0U);
}

TEST_F(Options, ArePutBackByCancel) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  ASSERT_EQ(control.SetVarByOrder(2), 1);
  control.Draw();
  boxes.forget();
  const View before = {1, 1, 1};
  setView(before);
  showOptions([](frmOptions& dialog) {
    for (const int32_t button : {0, 3, 1}) dialog.optViewStyle_Click(button);
    // As a host does that goes on meanwhile.
    Item_shown = 1;
    VarShown = 5;
    TimeShown = 2;
    dialog.Cancel();
    EXPECT_EQ(dialog.Result(), -1);
    EXPECT_TRUE(dialog.closed());
  });
  EXPECT_EQ(view(), before);
  EXPECT_EQ(Item_shown, 2);
  EXPECT_EQ(VarShown, 7);
  EXPECT_EQ(TimeShown, 2) << "a time step is not put back";
  EXPECT_EQ(drawings(), 0U);
}

TEST_F(Options, LeaveTheVariableAloneWhenTheItemDidNotChange) {
  ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
  VarShown = 3;
  showOptions([](frmOptions& dialog) { dialog.Cancel(); });
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(VarShown, 3);
}

TEST_F(Options, RepairAnItemBelowOneUntilCancel) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  for (const int32_t item : {0, -4}) {
    Item_shown = item;
    VarShown = 5;
    showOptions([](frmOptions& dialog) {
      EXPECT_EQ(Item_shown, 1);
      EXPECT_EQ(VarShown, 5);
      dialog.Cancel();
    });
    EXPECT_EQ(Item_shown, item);
    EXPECT_EQ(VarShown, 0);
  }
  Item_shown = 0;
  VarShown = 5;
  showOptions([](frmOptions& dialog) { dialog.OK(); });
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(VarShown, 5);
}

TEST_F(Options, PutBackAnItemThatIsNoLongerThere) {
  ASSERT_EQ(control.NcFile(tinySet()), 1);
  ASSERT_EQ(control.SetVarByOrder(2), 1);
  showOptions([](frmOptions& dialog) {
    Item_shown = 1;
    DrawItems.clear();
    dialog.Cancel();
  });
  EXPECT_EQ(Item_shown, 2);
  EXPECT_EQ(VarShown, 0);
}

TEST_F(Options, DoNothingOnceTheDialogIsClosed) {
  setView({2, 0, 0});
  frmOptions dialog(dialogs);
  dialog.Load();
  dialog.optViewStyle_Click(1);
  dialog.closeBox();
  dialog.optViewStyle_Click(3);
  dialog.EditLegend();
  dialog.OK();
  dialog.Cancel();
  EXPECT_EQ(dialog.Result(), -1);
  EXPECT_EQ(view(), (View{2, 1, 0}));
  frmOptions taken(dialogs);
  taken.Load();
  taken.OK();
  taken.Cancel();
  EXPECT_EQ(taken.Result(), 1);
}

TEST_F(Options, OpenBeforeTheFirstDataSetAndWithoutAPixel) {
  showOptions([](frmOptions& dialog) {
    dialog.optViewStyle_Click(1);
    dialog.OK();
  });
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(control.NcFile(tinySet()), 1);
  shown.Resize(0, 0);
  boxes.forget();
  showOptions([](frmOptions& dialog) { dialog.OK(); });
  EXPECT_EQ(drawings(), 0U);
  EXPECT_TRUE(desktop.messages.empty());
}

// A host without windows: all of it ends as by the close box.
TEST_F(Options, CloseAtOnceWithoutDialogs) {
  control::Dialogs& none = control::noDialogs();
  EXPECT_EQ(control::OpenOptionsForm(none), -1);
  ModColor::frmColorKey editor(none);
  ModColor::frmColorRamp ramp(none);
  ModColor::frmAutoDiv division;
  ModColor::frmVarName choice;
  none.ShowModal(editor);
  none.ShowModal(ramp);
  none.ShowModal(division);
  none.ShowModal(choice);
  EXPECT_TRUE(editor.closed() && ramp.closed() && division.closed() && choice.closed());
  EXPECT_EQ(editor.Result(), 0);
  EXPECT_EQ(ramp.Result(), -1);
  EXPECT_EQ(division.Result(), 0);
  EXPECT_EQ(choice.Result(), -1);
  EXPECT_EQ(none.ChooseColor(255), std::nullopt);
  EXPECT_EQ(none.ChooseKewFile(), std::nullopt);
}

}  // namespace
