#include "colorkey/frmAutoDiv.h"

#include <gtest/gtest.h>

using ModColor::frmAutoDiv;

namespace {

frmAutoDiv loaded(double minimum, double maximum, int32_t divisions) {
  frmAutoDiv dialog;
  dialog.MinVal = minimum;
  dialog.MaxVal = maximum;
  dialog.Divisions = divisions;
  dialog.Load();
  return dialog;
}

void type(frmAutoDiv& dialog, double minimum, double maximum, int32_t divisions) {
  dialog.fldMinVal = minimum;
  dialog.fldMaxVal = maximum;
  dialog.fldDivisions = divisions;
}

TEST(AutoDivDialog, ShowsItsProperties) {
  const frmAutoDiv dialog = loaded(-2.5, 7, 4);
  EXPECT_EQ(dialog.fldMinVal, -2.5);
  EXPECT_EQ(dialog.fldMaxVal, 7);
  EXPECT_EQ(dialog.fldDivisions, 4);
  EXPECT_EQ(dialog.Result(), 0);
  EXPECT_FALSE(dialog.closed());
}

TEST(AutoDivDialog, CopiesTheFieldsBackWithOKWithoutChecks) {
  frmAutoDiv dialog = loaded(0, 1, 1);
  type(dialog, 10, -10, -3);
  EXPECT_EQ(dialog.MinVal, 0) << "only with OK";
  dialog.OK();
  EXPECT_TRUE(dialog.closed());
  EXPECT_EQ(dialog.Result(), 1);
  EXPECT_EQ(dialog.MinVal, 10);
  EXPECT_EQ(dialog.MaxVal, -10);
  EXPECT_EQ(dialog.Divisions, -3);
}

TEST(AutoDivDialog, KeepsItsPropertiesWhenCancelledOrClosed) {
  frmAutoDiv cancelled = loaded(0, 1, 2), closed = loaded(0, 1, 2);
  type(cancelled, 5, 6, 7);
  type(closed, 5, 6, 7);
  cancelled.Cancel();
  closed.closeBox();
  EXPECT_EQ(cancelled.Result(), -1);
  EXPECT_EQ(closed.Result(), 0);
  for (const frmAutoDiv& dialog : {cancelled, closed}) {
    EXPECT_TRUE(dialog.closed());
    EXPECT_EQ(dialog.MinVal, 0);
    EXPECT_EQ(dialog.MaxVal, 1);
    EXPECT_EQ(dialog.Divisions, 2);
  }
}

TEST(AutoDivDialog, DoesNothingOnceItIsClosed) {
  frmAutoDiv dialog = loaded(0, 1, 2);
  dialog.closeBox();
  type(dialog, 5, 6, 7);
  dialog.OK();
  EXPECT_EQ(dialog.MinVal, 0);
  EXPECT_EQ(dialog.Result(), 0);
  dialog.Cancel();
  EXPECT_EQ(dialog.Result(), 0);
}

}  // namespace
