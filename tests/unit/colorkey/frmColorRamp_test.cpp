#include "colorkey/frmColorRamp.h"

#include "unit/colorkey/KeyDialogTest.h"

using ModColor::frmColorRamp;
using platform::rgb;
using Presets = std::vector<platform::Colour>;

namespace {

class ColorRampDialog : public KeyDialogTest {
 protected:
  frmColorRamp dialog{dialogs};
};

TEST_F(ColorRampDialog, GoesFromRedToBlueAtFirst) {
  EXPECT_EQ(dialog.FirstColor(), 255);
  EXPECT_EQ(dialog.LastColor(), 16711680);
  EXPECT_EQ(dialog.Result(), -1);
}

TEST_F(ColorRampDialog, TakesChosenColoursAndKeepsThemWhenTheChoiceIsCancelled) {
  dialogs.colours = {rgb(1, 2, 3), std::nullopt, rgb(4, 5, 6), std::nullopt};
  dialog.lblFirstColor_Click();
  EXPECT_EQ(dialog.FirstColor(), rgb(1, 2, 3));
  EXPECT_EQ(dialog.LastColor(), 16711680);
  dialog.lblFirstColor_Click();
  EXPECT_EQ(dialog.FirstColor(), rgb(1, 2, 3));
  dialog.lblLastColor_Click();
  dialog.lblLastColor_Click();
  EXPECT_EQ(dialog.FirstColor(), rgb(1, 2, 3));
  EXPECT_EQ(dialog.LastColor(), rgb(4, 5, 6));
  EXPECT_EQ(dialogs.presets, (Presets{255, rgb(1, 2, 3), 16711680, rgb(4, 5, 6)}));
  EXPECT_FALSE(dialog.closed());
  EXPECT_EQ(util::LastError, "");
}

TEST_F(ColorRampDialog, EndsWithOKCancelOrTheCloseBox) {
  frmColorRamp cancelled(dialogs), closed(dialogs);
  dialog.OK();
  cancelled.Cancel();
  closed.closeBox();
  EXPECT_EQ(dialog.Result(), 1);
  EXPECT_EQ(cancelled.Result(), -1);
  EXPECT_EQ(closed.Result(), -1);
  for (const frmColorRamp* form : {&dialog, &cancelled, &closed}) EXPECT_TRUE(form->closed());
}

TEST_F(ColorRampDialog, DoesNothingOnceItIsClosed) {
  dialog.closeBox();
  dialog.lblFirstColor_Click();
  dialog.lblLastColor_Click();
  dialog.OK();
  EXPECT_EQ(dialog.Result(), -1);
  EXPECT_TRUE(dialogs.presets.empty());
  frmColorRamp taken(dialogs);
  taken.OK();
  taken.Cancel();
  EXPECT_EQ(taken.Result(), 1);
}

// A window can go while its chooser is open: when the session ends, for one.
TEST_F(ColorRampDialog, TakesNoColourWhenItWasClosedMeanwhile) {
  class Closing : public support::ScriptedDialogs {
   public:
    std::optional<platform::Colour> ChooseColor(platform::Colour) override {
      form->closeBox();
      return 7;
    }
    frmColorRamp* form = nullptr;
  } closing;
  frmColorRamp form(closing);
  closing.form = &form;
  form.lblFirstColor_Click();
  EXPECT_EQ(form.FirstColor(), 255);
}

}  // namespace
