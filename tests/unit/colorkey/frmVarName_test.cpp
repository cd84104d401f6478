#include "colorkey/frmVarName.h"

#include "unit/colorkey/KeyDialogTest.h"

using ModColor::frmVarName;
using Names = std::vector<std::string>;

namespace {

class VarNameDialog : public KeyDialogTest {
 protected:
  std::string threeKeys() const {
    return kewFile("<variable name=\"temp\"/><variable name=\"salt\"/><variable name=\"w\"/>");
  }
  frmVarName dialog;
};

TEST_F(VarNameDialog, ListsEveryVariableElementInDocumentOrder) {
  dialog.filename(
      kewFile("<variable name=\"temp\"><division/><variable name=\"inner\"/></variable>"
              "<group><variable name=\"deep &amp; down\"/></group>"
              "<variable/><Variable name=\"other\"/><variable name=\"temp\"/>"));
  EXPECT_EQ(dialog.lstVarNames(), (Names{"temp", "inner", "deep & down", "", "temp"}));
  EXPECT_EQ(dialog.ListIndex, -1);
}

TEST_F(VarNameDialog, ListsNothingOfAFileThatCannotBeLoaded) {
  const std::string broken = folder.file("broken.kew");
  std::ofstream(broken) << "<section><variable name=\"temp\"></section>";
  std::string deep = "<section>";
  for (int i = 0; i < 300; ++i) deep += "<v>";
  const std::string nested = folder.file("deep.kew");
  std::ofstream(nested) << deep;
  for (const std::string& name :
       {folder.file("missing.kew"), folder.path().string(), std::string(), broken, nested}) {
    dialog.filename(threeKeys());
    dialog.ListIndex = 1;
    dialog.filename(name);
    EXPECT_EQ(dialog.lstVarNames(), Names()) << name;
    EXPECT_EQ(dialog.ListIndex, -1);
  }
  EXPECT_EQ(util::LastError, "");
  dialog.OK();
  EXPECT_EQ(dialog.Result(), 1);
  EXPECT_EQ(dialog.varname(), "");
}

TEST_F(VarNameDialog, TakesTheSelectedEntry) {
  dialog.filename(threeKeys());
  dialog.ListIndex = 2;
  EXPECT_EQ(dialog.varname(), "");
  dialog.OK();
  EXPECT_TRUE(dialog.closed());
  EXPECT_EQ(dialog.Result(), 1);
  EXPECT_EQ(dialog.varname(), "w");
}

TEST_F(VarNameDialog, TakesTheEmptyTextWithoutAnEntry) {
  for (const int32_t index : {-1, -2, 3, 2147483647}) {
    frmVarName fresh;
    fresh.filename(threeKeys());
    fresh.ListIndex = index;
    fresh.OK();
    EXPECT_EQ(fresh.Result(), 1) << index;
    EXPECT_EQ(fresh.varname(), "") << index;
  }
}

TEST_F(VarNameDialog, IsMinusOneWhenCancelledOrClosed) {
  EXPECT_EQ(dialog.Result(), -1);
  dialog.filename(threeKeys());
  dialog.ListIndex = 0;
  dialog.Cancel();
  EXPECT_TRUE(dialog.closed());
  EXPECT_EQ(dialog.Result(), -1);
  EXPECT_EQ(dialog.varname(), "");
  frmVarName closed;
  closed.closeBox();
  EXPECT_EQ(closed.Result(), -1);
}

TEST_F(VarNameDialog, DoesNothingOnceItIsClosed) {
  dialog.filename(threeKeys());
  dialog.closeBox();
  dialog.ListIndex = 0;
  dialog.OK();
  EXPECT_EQ(dialog.Result(), -1);
  EXPECT_EQ(dialog.varname(), "");
  frmVarName chosen;
  chosen.filename(threeKeys());
  chosen.ListIndex = 0;
  chosen.OK();
  chosen.Cancel();
  chosen.ListIndex = 1;
  chosen.OK();
  EXPECT_EQ(chosen.Result(), 1);
  EXPECT_EQ(chosen.varname(), "temp");
}

}  // namespace
