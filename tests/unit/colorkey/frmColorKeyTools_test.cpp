#include "unit/colorkey/KeyDialogTest.h"

using ModColor::frmAutoDiv;
using ModColor::frmColorKey;
using ModColor::frmColorRamp;
using ModColor::frmVarName;
using platform::rgb;

namespace {

// The dialogs behind the editor's buttons.
class KeyTools : public KeyDialogTest {
 protected:
  void load(int32_t n) {
    makeKey(n);
    ASSERT_TRUE(editor.LoadColorKey());
  }
  void divide(double minimum, double maximum, int32_t divisions) {
    dialogs.divisions.push_back([=](frmAutoDiv& form) {
      form.fldMinVal = minimum;
      form.fldMaxVal = maximum;
      form.fldDivisions = divisions;
      form.OK();
    });
    editor.cmdAutoDiv();
  }
  void import(const std::string& file, int32_t index) {
    dialogs.files.emplace_back(file);
    dialogs.choices.push_back([=](frmVarName& form) {
      form.ListIndex = index;
      form.OK();
    });
    editor.cmdImport();
  }
  frmColorKey editor{dialogs};
};

TEST_F(KeyTools, PresetTheDivisionWithTheRangeOfTheRows) {
  load(5);
  dialogs.divisions.push_back([](const frmAutoDiv& form) {
    EXPECT_EQ(form.fldMinVal, 1);
    EXPECT_EQ(form.fldMaxVal, 5.5);
    EXPECT_EQ(form.fldDivisions, 5);
    EXPECT_EQ(form.MinVal, 1);
  });
  editor.cmdAutoDiv();
  EXPECT_EQ(editor.rows, rowsOf(5)) << "its close box changes nothing";
}

TEST_F(KeyTools, DivideARangeOverMoreAndFewerRows) {
  load(2);
  divide(10, 0, 4);
  EXPECT_EQ(editor.rows,
            (std::vector<Row>{{10, 12.5, 1}, {12.5, 15, 2}, {15, 17.5, 2}, {17.5, 20, 2}}));
  divide(0, 10, 1);
  EXPECT_EQ(editor.rows, (std::vector<Row>{{0, 10, 1}}));
  EXPECT_EQ(key(), rowsOf(2)) << "the key waits for OK";
}

TEST_F(KeyTools, KeepTheRowsOfADivisionThatIsCancelledOrFails) {
  load(3);
  dialogs.divisions.push_back([](frmAutoDiv& form) {
    form.fldDivisions = 7;
    form.Cancel();
  });
  editor.cmdAutoDiv();
  EXPECT_EQ(util::LastError, "");
  const struct {
    double maximum;
    int32_t divisions;
    const char* failure;
  } table[] = {
      {10, 0, "frmColorKey cmdAutoDiv: 11, KelvaneCtl, Division by zero"},
      {10, -4, "frmColorKey cmdAutoDiv: 11, KelvaneCtl, Division by zero"},
      {10, 32768, "frmColorKey cmdAutoDiv: 6, KelvaneCtl, Overflow"},
      {10, 2147483647, "frmColorKey cmdAutoDiv: 6, KelvaneCtl, Overflow"},
      {1.7e308, 1, "frmColorKey cmdAutoDiv: 6, KelvaneCtl, Overflow"},
  };
  for (const auto& [maximum, divisions, failure] : table) {
    util::LastError.clear();
    divide(-maximum, maximum, divisions);
    EXPECT_EQ(util::LastError, failure) << divisions;
    EXPECT_EQ(editor.rows, rowsOf(3));
    EXPECT_FALSE(editor.closed());
  }
  divide(0, 1, 32767);
  EXPECT_EQ(editor.rows.size(), 32767U);
}

TEST_F(KeyTools, PaintARampOverTheRows) {
  load(4);
  dialogs.ramps.push_back([](frmColorRamp& form) { form.OK(); });
  editor.cmdColorRamp();
  EXPECT_EQ(editor.rows, (std::vector<Row>{{1, 1.5, rgb(255, 0, 0)},
                                           {2, 2.5, rgb(191, 0, 64)},
                                           {3, 3.5, rgb(127, 0, 128)},
                                           {4, 4.5, rgb(63, 0, 192)}}));
}

TEST_F(KeyTools, PaintARampOfChosenColours) {
  load(2);
  dialogs.colours = {rgb(0, 0, 0), rgb(5, 10, 0)};
  dialogs.ramps.push_back([](frmColorRamp& form) {
    form.lblFirstColor_Click();
    form.lblLastColor_Click();
    form.OK();
  });
  editor.cmdColorRamp();
  EXPECT_EQ(editor.rows[0].lblColor, 0);
  EXPECT_EQ(editor.rows[1].lblColor, rgb(2, 5, 0));
}

TEST_F(KeyTools, PaintNothingWhenTheRampIsCancelledOrClosed) {
  load(2);
  dialogs.ramps.push_back([](frmColorRamp& form) { form.Cancel(); });
  dialogs.ramps.push_back([](frmColorRamp&) {});
  editor.cmdColorRamp();
  editor.cmdColorRamp();
  EXPECT_EQ(editor.rows, rowsOf(2));
}

TEST_F(KeyTools, ImportTheKeyOfAVariable) {
  load(3);
  const std::string file =
      kewFile("<variable name=\"temp\">" + division("0", "1", "255") + "</variable>" +
              "<variable name=\"salt\">" + division(" 34,5", "35.5", "254.5") +
              division("0.1", "1E+20", "-1") + "</variable>");
  import(file, 1);
  EXPECT_EQ(util::LastError, "");
  EXPECT_EQ(editor.rows,
            (std::vector<Row>{{34, 35.5, 254},
                              {static_cast<double>(0.1F), static_cast<double>(1e20F), -1}}));
  EXPECT_EQ(key(), rowsOf(3)) << "the key waits for OK";
  editor.cmdOK();
  EXPECT_EQ(ModColor::ColorKey.nDivision, 2);
  EXPECT_EQ(ModColor::ColorKey.low(2), 0.1F);
}

TEST_F(KeyTools, KeepTheRowsWhenNoFileOrVariableIsChosen) {
  load(2);
  const std::string file =
      kewFile("<variable name=\"temp\">" + division("0", "1", "2") + "</variable>");
  dialogs.files = {std::nullopt, file, file};
  dialogs.choices.push_back([](frmVarName& form) {
    form.ListIndex = 0;
    form.Cancel();
  });
  dialogs.choices.push_back([](frmVarName& form) { form.ListIndex = 0; });
  for (int n = 0; n < 3; ++n) editor.cmdImport();
  import(file, -1);  // OK with nothing selected
  import(folder.file("missing.kew"), 0);
  EXPECT_EQ(editor.rows, rowsOf(2));
  EXPECT_EQ(util::LastError, "");
}

TEST_F(KeyTools, ImportAVariableWithAnEmptyNameOnlyWithOK) {
  load(2);
  const std::string file =
      kewFile("<variable name=\"\">" + division("0", "1", "2") + "</variable>");
  dialogs.files = {file, file};
  dialogs.choices.push_back([](frmVarName& form) { form.Cancel(); });
  dialogs.choices.push_back([](frmVarName&) {});
  editor.cmdImport();
  editor.cmdImport();
  EXPECT_EQ(editor.rows, rowsOf(2));
  import(file, 0);
  EXPECT_EQ(editor.rows, (std::vector<Row>{{0, 1, 2}}));
}

TEST_F(KeyTools, KeepTheRowsWhenTheVariableHasNoDivision) {
  load(2);
  import(kewFile("<variable name=\"temp\"/><variable/>"), 0);
  import(kewFile("<variable name=\"temp\"/><variable/>"), 1);
  EXPECT_EQ(editor.rows, rowsOf(2));
  EXPECT_EQ(util::LastError, "");
}

TEST_F(KeyTools, KeepTheRowsWhenAnImportFailsMidway) {
  const std::string good = division("0", "1", "2");
  const struct {
    std::string variable, failure;
  } table[] = {
      {"<variable name=\"t\">" + good + "<division><low>1</low></division></variable>",
       "91, KelvaneCtl, Object variable or With block variable not set"},
      {"<variable name=\"t\">" + good + division("0", "1", "3E9") + "</variable>",
       "6, KelvaneCtl, Overflow"},
      {"<variable name=\"t\">" + good + division("1e39", "1", "3") + "</variable>",
       "6, KelvaneCtl, Overflow"},
      {"<variable name=\"a&quot;b\">" + good + "</variable>",
       "5, KelvaneCtl, Invalid procedure call or argument"},
  };
  load(2);
  for (const auto& [variable, failure] : table) {
    import(kewFile(variable), 0);
    EXPECT_EQ(util::LastError, "frmColorKey OpenColorKey: " + failure);
    EXPECT_EQ(editor.rows, rowsOf(2));
    EXPECT_EQ(key(), rowsOf(2));
    EXPECT_FALSE(editor.closed());
  }
}

TEST_F(KeyTools, ImportAsManyDivisionsAsSixteenBitsCount) {
  load(2);
  std::string divisions;
  for (int k = 0; k < 32767; ++k) divisions += division("0", "1", "2");
  import(kewFile("<variable name=\"t\">" + divisions + division("0", "1", "2") + "</variable>"), 0);
  EXPECT_EQ(util::LastError, "frmColorKey OpenColorKey: 6, KelvaneCtl, Overflow");
  EXPECT_EQ(editor.rows, rowsOf(2));
  import(kewFile("<variable name=\"t\">" + divisions + "</variable>"), 0);
  EXPECT_EQ(editor.rows.size(), 32767U);
}

// The editor's window can go while a dialog above it is open: when the session ends, for one.
TEST_F(KeyTools, ChangeNothingInAnEditorThatWasClosedMeanwhile) {
  load(2);
  const std::string file =
      kewFile("<variable name=\"t\">" + division("0", "1", "2") + "</variable>");
  frmColorKey second(dialogs), third(dialogs);
  ASSERT_TRUE(second.LoadColorKey());
  ASSERT_TRUE(third.LoadColorKey());
  dialogs.divisions.push_back([&](frmAutoDiv& form) {
    editor.closeBox();
    form.fldDivisions = 9;
    form.OK();
  });
  editor.cmdAutoDiv();
  dialogs.ramps.push_back([&](frmColorRamp& form) {
    second.closeBox();
    form.OK();
  });
  second.cmdColorRamp();
  dialogs.files.emplace_back(file);
  dialogs.choices.push_back([&](frmVarName& form) {
    third.closeBox();
    form.ListIndex = 0;
    form.OK();
  });
  third.cmdImport();
  for (const frmColorKey* form : {&editor, &second, &third}) EXPECT_EQ(form->rows, rowsOf(2));
}

TEST_F(KeyTools, ReportWhatADialogFailsWith) {
  load(2);
  dialogs.divisions.push_back([](frmAutoDiv&) { throw std::bad_alloc(); });
  editor.cmdAutoDiv();
  EXPECT_EQ(util::LastError, "frmColorKey cmdAutoDiv: 7, KelvaneCtl, Out of memory");
  dialogs.ramps.push_back([](frmColorRamp&) { throw std::bad_alloc(); });
  editor.cmdColorRamp();
  EXPECT_EQ(util::LastError, "frmColorKey cmdColorRamp: 7, KelvaneCtl, Out of memory");
  EXPECT_EQ(editor.rows, rowsOf(2));
}

}  // namespace
