#include "colorkey/frmColorKey.h"

#include <limits>

#include "support/specialValues.h"
#include "unit/colorkey/KeyDialogTest.h"

using ModColor::ColorKey;
using ModColor::frmColorKey;
using platform::rgb;

namespace {

using support::kNan;
constexpr float kEndless = std::numeric_limits<float>::infinity();

class KeyEditor : public KeyDialogTest {
 protected:
  frmColorKey editor{dialogs};
};

TEST_F(KeyEditor, ShowsTheDivisionsOfTheKey) {
  makeKey(3);
  EXPECT_TRUE(editor.LoadColorKey());
  EXPECT_EQ(editor.rows, rowsOf(3));
  EXPECT_EQ(editor.Result(), 0);
  EXPECT_FALSE(editor.closed());
}

TEST_F(KeyEditor, ShowsItsBuiltInRowWithoutAKey) {
  const std::vector<Row> builtIn = {{0, 1, 16777215}};
  for (const int32_t count : {0, -1}) {
    makeKey(2);
    ColorKey.nDivision = count;  // the lists may hold more than counts
    EXPECT_TRUE(editor.LoadColorKey());
    EXPECT_EQ(editor.rows, builtIn);
  }
  ModColor::bUseKey = 3;
  editor.cmdOK();
  EXPECT_EQ(editor.Result(), 1);
  EXPECT_EQ(key(), builtIn);
  EXPECT_EQ(ModColor::bUseKey, 3);
}

TEST_F(KeyEditor, LoadsNothingOfAKeyThatIsNotThere) {
  makeKey(2);
  ColorKey.nDivision = 3;
  EXPECT_FALSE(editor.LoadColorKey());
  EXPECT_EQ(util::LastError, "frmColorKey LoadColorKey: 9, KelvaneCtl, Subscript out of range");
  EXPECT_EQ(editor.rows, (std::vector<Row>{{0, 1, 16777215}}));
}

TEST_F(KeyEditor, StoresTheRowsAsTheyAreWithOK) {
  makeKey(4);
  ColorKey.nDivision = 2;
  ASSERT_TRUE(editor.LoadColorKey());
  editor.rows[0] = {10, -10, rgb(1, 2, 3)};
  editor.rows[1] = {0.1, 100.0 / 3, -5};
  EXPECT_EQ(ColorKey.low(1), 1) << "not before";
  editor.cmdOK();
  EXPECT_TRUE(editor.closed());
  EXPECT_EQ(editor.Result(), 1);
  EXPECT_EQ(ColorKey.nDivision, 2);
  for (const int32_t size : {ColorKey.low.size(), ColorKey.high.size(), ColorKey.color.size()}) {
    EXPECT_EQ(size, 2);
  }
  EXPECT_EQ(ColorKey.low(1), 10);
  EXPECT_EQ(ColorKey.high(1), -10);
  EXPECT_EQ(ColorKey.color(1), rgb(1, 2, 3));
  EXPECT_EQ(ColorKey.low(2), 0.1F);
  EXPECT_EQ(ColorKey.high(2), 33.333332F);
  EXPECT_EQ(ColorKey.color(2), -5);
  EXPECT_EQ(ModColor::bUseKey, 0);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(KeyEditor, StaysOpenWhenABoundIsBeyondASingle) {
  makeKey(2);
  const auto before = key();
  ASSERT_TRUE(editor.LoadColorKey());
  editor.rows[0].fldLowRange = 5;
  editor.rows[1].fldHighRange = 3.5e38;
  editor.cmdOK();
  EXPECT_EQ(util::LastError, "frmColorKey SaveColorKey: 6, KelvaneCtl, Overflow");
  EXPECT_FALSE(editor.closed());
  EXPECT_EQ(editor.Result(), 0);
  EXPECT_EQ(key(), before);
  editor.rows[1].fldHighRange = 3.4e38;
  editor.cmdOK();
  EXPECT_TRUE(editor.closed());
  EXPECT_EQ(editor.Result(), 1);
  EXPECT_EQ(ColorKey.low(1), 5);
  EXPECT_EQ(ColorKey.high(2), 3.4e38F);
}

TEST_F(KeyEditor, KeepsTheHostsEndlessAndUnknownBounds) {
  ModColor::AddColorKey(-kEndless, 0, 1);
  ModColor::AddColorKey(0, kEndless, 2);
  ModColor::AddColorKey(static_cast<float>(kNan), 1, 3);
  ASSERT_TRUE(editor.LoadColorKey());
  editor.cmdOK();
  EXPECT_EQ(editor.Result(), 1) << util::LastError;
  EXPECT_EQ(ColorKey.low(1), -kEndless);
  EXPECT_EQ(ColorKey.high(2), kEndless);
  EXPECT_NE(ColorKey.low(3), ColorKey.low(3));
}

TEST_F(KeyEditor, LeavesTheKeyAloneWhenCancelledOrClosed) {
  makeKey(3);
  frmColorKey closed(dialogs);
  for (frmColorKey* form : {&editor, &closed}) {
    ASSERT_TRUE(form->LoadColorKey());
    form->cmdAdd();
    form->cmdDelete(0);
    form->rows[0].fldLowRange = -7;
  }
  editor.cmdCancel();
  closed.closeBox();
  EXPECT_EQ(editor.Result(), -1);
  EXPECT_EQ(closed.Result(), 0);
  EXPECT_TRUE(editor.closed());
  EXPECT_EQ(key(), rowsOf(3));
}

TEST_F(KeyEditor, AddsACopyOfTheLastRow) {
  makeKey(2);
  ASSERT_TRUE(editor.LoadColorKey());
  editor.cmdAdd();
  EXPECT_EQ(editor.rows, (std::vector<Row>{rowOf(1), rowOf(2), rowOf(2)}));
  for (int n = 0; n < 100; ++n) editor.cmdAdd();  // the row that is copied moves with the list
  EXPECT_EQ(editor.rows.size(), 103U);
  EXPECT_EQ(editor.rows.back(), rowOf(2));
}

TEST_F(KeyEditor, DeletesDownToTheLastRow) {
  makeKey(4);
  ASSERT_TRUE(editor.LoadColorKey());
  editor.cmdDelete(1);
  EXPECT_EQ(editor.rows, (std::vector<Row>{rowOf(1), rowOf(3), rowOf(4)}));
  editor.cmdDelete(2);
  EXPECT_EQ(editor.rows, (std::vector<Row>{rowOf(1), rowOf(3)}));
  editor.cmdDelete(0);
  EXPECT_EQ(editor.rows, (std::vector<Row>{rowOf(3)}));
  editor.cmdDelete(0);
  EXPECT_EQ(editor.rows, (std::vector<Row>{rowOf(3)}));
  editor.cmdOK();
  EXPECT_EQ(key(), (std::vector<Row>{rowOf(3)}));
}

TEST_F(KeyEditor, ChoosesTheColourOfARow) {
  makeKey(3);
  ASSERT_TRUE(editor.LoadColorKey());
  dialogs.colours = {rgb(9, 8, 7), std::nullopt};
  editor.lblColor_Click(1);
  editor.lblColor_Click(2);
  EXPECT_EQ(dialogs.presets, (std::vector<platform::Colour>{2, 3}));
  EXPECT_EQ(editor.rows[0], rowOf(1));
  EXPECT_EQ(editor.rows[1], (Row{2, 2.5, rgb(9, 8, 7)}));
  EXPECT_EQ(editor.rows[2], rowOf(3));
  EXPECT_EQ(util::LastError, "") << "a cancelled choice is no failure";
}

TEST_F(KeyEditor, LeavesRowsAloneThatAreNotThere) {
  makeKey(2);
  ASSERT_TRUE(editor.LoadColorKey());
  for (const int32_t row :
       {-1, 2, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
    editor.lblColor_Click(row);
    editor.cmdDelete(row);
  }
  EXPECT_EQ(editor.rows, rowsOf(2));
  EXPECT_TRUE(dialogs.presets.empty());
}

TEST_F(KeyEditor, DoesNothingOnceItIsClosed) {
  makeKey(2);
  ASSERT_TRUE(editor.LoadColorKey());
  editor.closeBox();
  editor.rows[0].fldLowRange = 40;
  const auto rows = editor.rows;
  editor.lblColor_Click(0);
  editor.cmdAdd();
  editor.cmdDelete(0);
  editor.cmdAutoDiv();
  editor.cmdColorRamp();
  editor.cmdImport();
  editor.cmdOK();
  editor.cmdCancel();
  EXPECT_EQ(editor.rows, rows);
  EXPECT_EQ(editor.Result(), 0);
  EXPECT_EQ(key(), rowsOf(2));
}

TEST_F(KeyEditor, HasAsManyRowsAsSixteenBitsCount) {
  makeKey(32767);
  ASSERT_TRUE(editor.LoadColorKey()) << util::LastError;
  EXPECT_EQ(editor.rows.size(), 32767U);
  EXPECT_EQ(editor.VScroll1.Max, 32766);
  editor.cmdAdd();
  EXPECT_EQ(util::LastError, "frmColorKey cmdAdd: 6, KelvaneCtl, Overflow");
  EXPECT_EQ(editor.rows, rowsOf(32767));
  editor.cmdDelete(32766);
  editor.cmdAdd();
  EXPECT_EQ(editor.rows.size(), 32767U);
  EXPECT_EQ(editor.VScroll1.Value, 32766);
  editor.cmdOK();
  EXPECT_EQ(editor.Result(), 1);
  EXPECT_EQ(ColorKey.nDivision, 32767);
  EXPECT_EQ(ColorKey.color(32767), 32766);
}

TEST_F(KeyEditor, LoadsNothingOfAKeyBeyondThat) {
  makeKey(32768);
  EXPECT_FALSE(editor.LoadColorKey());
  EXPECT_EQ(util::LastError, "frmColorKey LoadColorKey: 6, KelvaneCtl, Overflow");
  EXPECT_EQ(editor.rows, (std::vector<Row>{{0, 1, 16777215}}));
  EXPECT_EQ(ColorKey.nDivision, 32768);
}

}  // namespace
