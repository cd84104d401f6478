#include <filesystem>

#include "colorkey/colorKey.h"
#include "colorkey/kewListing.h"
#include "unit/control/OptionsTest.h"

using control::frmOptions;
using ModColor::ColorKey;
using ModColor::frmColorKey;
using ModColor::KewDivision;

namespace {

// "Edit Legend": from the options dialog through the editor to the KEW file.
class EditLegend : public OptionsTest {
 protected:
  void open() {
    ASSERT_NO_FATAL_FAILURE(openAlongLatitude());
    control.Draw();
    boxes.forget();
    control.AddColorKey(0, 12.5F, 255);
    control.AddColorKey(12.5F, 20, 65280);
  }
  // Edits the key as an action does, then ends the options.
  void edit(const std::function<void(frmColorKey&)>& action, void (frmOptions::*end)()) {
    dialogs.editors.push_back(action);
    showOptions([&](frmOptions& dialog) {
      dialog.EditLegend();
      EXPECT_FALSE(dialog.closed()) << "the options stay";
      (dialog.*end)();
    });
  }
  std::string kewFile() const { return folder.file("tiny.KEW"); }
  bool saved() const { return std::filesystem::exists(folder.path() / "tiny.KEW"); }
};

TEST_F(EditLegend, SavesTheEditedKeyAndDrawsAfterOK) {
  ASSERT_NO_FATAL_FAILURE(open());
  control.UseColorKey(true);
  desktop.separator = ",";
  edit(
      [](frmColorKey& editor) {
        ASSERT_EQ(editor.rows.size(), 2U);
        EXPECT_EQ(editor.rows[1], (frmColorKey::Row{12.5, 20, 65280}));
        editor.cmdAdd();
        editor.rows[2] = {20, 30, 16711680};
        editor.cmdOK();
      },
      &frmOptions::OK);
  EXPECT_EQ(control.ErrorMessage(), "");
  EXPECT_EQ(ColorKey.nDivision, 3);
  EXPECT_EQ(drawings(), 1U);
  const auto keys = ModColor::ListKewFile(kewFile());
  ASSERT_EQ(keys.size(), 1U);
  EXPECT_EQ(keys[0].name, "temp");
  EXPECT_EQ(keys[0].divisions,
            (std::vector<KewDivision>{{0, 12, 255}, {12, 20, 65280}, {20, 30, 16711680}}))
      << "written with the user's comma, read with the point";
}

TEST_F(EditLegend, KeepsTheOtherKeysOfTheFile) {
  ASSERT_NO_FATAL_FAILURE(open());
  edit([](frmColorKey& editor) { editor.cmdOK(); }, &frmOptions::OK);
  ASSERT_EQ(control.SetVarByName("salt"), 1);
  edit(
      [](frmColorKey& editor) {
        editor.cmdDelete(0);
        editor.cmdOK();
      },
      &frmOptions::OK);
  const auto keys = ModColor::ListKewFile(kewFile());
  ASSERT_EQ(keys.size(), 2U);
  EXPECT_EQ(keys[0].name, "temp");
  EXPECT_EQ(keys[0].divisions.size(), 2U);
  EXPECT_EQ(keys[1].name, "salt");
  EXPECT_EQ(keys[1].divisions, (std::vector<KewDivision>{{12.5, 20, 65280}}));
}

TEST_F(EditLegend, IsNotTakenBackByTheOptionsCancel) {
  ASSERT_NO_FATAL_FAILURE(open());
  edit(
      [](frmColorKey& editor) {
        editor.rows[0].lblColor = 7;
        editor.cmdOK();
      },
      &frmOptions::Cancel);
  EXPECT_EQ(ColorKey.color(1), 7);
  EXPECT_TRUE(saved());
  EXPECT_EQ(drawings(), 0U);
}

TEST_F(EditLegend, SavesNothingWhenTheEditorIsCancelledOrClosed) {
  ASSERT_NO_FATAL_FAILURE(open());
  edit(
      [](frmColorKey& editor) {
        editor.cmdAdd();
        editor.cmdCancel();
      },
      &frmOptions::OK);
  edit([](frmColorKey& editor) { editor.cmdDelete(0); }, &frmOptions::OK);
  EXPECT_FALSE(saved());
  EXPECT_EQ(ColorKey.nDivision, 2);
  EXPECT_EQ(drawings(), 2U);
}

TEST_F(EditLegend, SavesNothingWhileABoundDoesNotFit) {
  ASSERT_NO_FATAL_FAILURE(open());
  edit(
      [](frmColorKey& editor) {
        editor.rows[0].fldLowRange = -1e40;
        editor.cmdOK();
        EXPECT_FALSE(editor.closed());
      },
      &frmOptions::OK);
  EXPECT_EQ(control.ErrorMessage(), "frmColorKey SaveColorKey: 6, KelvaneCtl, Overflow");
  EXPECT_FALSE(saved());
}

TEST_F(EditLegend, TurnsAnEmptyKeyIntoTheBuiltInRow) {
  ASSERT_NO_FATAL_FAILURE(open());
  control.NewColorKey();
  edit([](frmColorKey& editor) { editor.cmdOK(); }, &frmOptions::OK);
  EXPECT_FALSE(control.UseColorKey());
  const auto keys = ModColor::ListKewFile(kewFile());
  ASSERT_EQ(keys.size(), 1U);
  EXPECT_EQ(keys[0].divisions, (std::vector<KewDivision>{{0, 1, 16777215}}));
}

TEST_F(EditLegend, DoesNotEditAKeyOfMoreRowsThanTheEditorCounts) {
  ASSERT_NO_FATAL_FAILURE(open());
  while (ColorKey.nDivision < 32768) control.AddColorKey(0, 1, 2);
  showOptions([](frmOptions& dialog) {
    dialog.EditLegend();
    dialog.OK();
  });
  EXPECT_EQ(control.ErrorMessage(), "frmColorKey LoadColorKey: 6, KelvaneCtl, Overflow");
  EXPECT_EQ(ColorKey.nDivision, 32768);
  EXPECT_FALSE(saved());
}

TEST_F(EditLegend, ReportsAKeyThatCannotBeSaved) {
  control.AddColorKey(0, 1, 255);
  edit([](frmColorKey& editor) { editor.cmdOK(); }, &frmOptions::OK);  // no data set is open
  EXPECT_EQ(control.ErrorMessage(), "ModColor SaveKEW: 9, KelvaneCtl, Subscript out of range");
  EXPECT_EQ(ColorKey.nDivision, 1);
  EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
