#include "unit/colorkey/KeyDialogTest.h"

using ModColor::frmColorKey;

namespace {

class KeyScroll : public KeyDialogTest {
 protected:
  void load(int32_t n) {
    makeKey(n);
    ASSERT_TRUE(editor.LoadColorKey());
  }
  void expectScroll(int value, int max, int page, const char* when) const {
    EXPECT_EQ(editor.VScroll1.Value, value) << when;
    EXPECT_EQ(editor.VScroll1.Max, max) << when;
    EXPECT_EQ(editor.VScroll1.LargeChange, page) << when;
  }
  frmColorKey editor{dialogs};
};

TEST_F(KeyScroll, RangesOverTheRowsThatDoNotFit) {
  const struct {
    int32_t rows, fit;
    int max, page;
  } table[] = {{1, 8, 0, 8},         {8, 8, 0, 8},
               {9, 8, 1, 8},         {100, 8, 92, 8},
               {100, 1, 99, 1},      {100, 0, 99, 1},
               {100, -5, 99, 1},     {32767, 1, 32766, 1},
               {5, 40000, 0, 32767}, {32767, 2147483647, 0, 32767}};
  for (const auto& [rows, fit, max, page] : table) {
    load(rows);
    editor.ResetScrollbar(fit);
    expectScroll(0, max, page, (std::to_string(rows) + " rows").c_str());
  }
}

TEST_F(KeyScroll, KeepsThePlaceWhileThereIsEnoughBehindIt) {
  load(20);
  editor.ResetScrollbar(8);
  editor.VScroll1.Value = 12;
  editor.ResetScrollbar(10);
  expectScroll(10, 10, 10, "a larger window");
  editor.ResetScrollbar(4);
  expectScroll(10, 16, 4, "a smaller window");
  editor.VScroll1.Value = -3;
  editor.ResetScrollbar(4);
  expectScroll(0, 16, 4, "a place before the first row");
}

TEST_F(KeyScroll, ShowsTheRowThatWasAdded) {
  load(8);
  editor.ResetScrollbar(8);
  editor.cmdAdd();
  expectScroll(1, 1, 8, "the first that does not fit");
  editor.VScroll1.Value = 0;
  editor.cmdAdd();
  expectScroll(2, 2, 8, "from another place");
}

TEST_F(KeyScroll, StaysWhereARowWasDeletedUnlessItIsTheEnd) {
  load(20);
  editor.ResetScrollbar(8);
  editor.VScroll1.Value = 5;
  editor.cmdDelete(7);
  expectScroll(5, 11, 8, "in the middle");
  editor.VScroll1.Value = 11;
  editor.cmdDelete(18);
  expectScroll(10, 10, 8, "at the end");
  for (int n = 0; n < 30; ++n) editor.cmdDelete(0);
  EXPECT_EQ(editor.rows.size(), 1U);
  expectScroll(0, 0, 8, "of the last row");
}

TEST_F(KeyScroll, StartsAtTheFirstOfNewRows) {
  load(20);
  editor.ResetScrollbar(8);
  editor.VScroll1.Value = 12;
  dialogs.divisions.push_back([](ModColor::frmAutoDiv& form) {
    form.fldDivisions = 15;
    form.OK();
  });
  editor.cmdAutoDiv();
  expectScroll(0, 7, 8, "after a division");
  editor.VScroll1.Value = 3;
  load(30);
  expectScroll(0, 22, 8, "after loading");
}

TEST_F(KeyScroll, ReportsMoreRowsThanItCounts) {
  load(20);
  editor.ResetScrollbar(8);
  editor.VScroll1.Value = 2;
  editor.rows.resize(32768);
  editor.ResetScrollbar(9);
  EXPECT_EQ(util::LastError, "frmColorKey ResetScrollbar: 6, KelvaneCtl, Overflow");
  expectScroll(2, 12, 8, "unchanged");
  editor.cmdOK();
  EXPECT_EQ(util::LastError, "frmColorKey SaveColorKey: 6, KelvaneCtl, Overflow");
  EXPECT_FALSE(editor.closed());
  EXPECT_EQ(key(), rowsOf(20));
}

}  // namespace
