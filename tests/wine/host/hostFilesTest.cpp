#include "HostTest.h"

namespace winetest {
namespace {

class HostFiles : public HostTest {
 protected:
  static void answer(User& user, const wchar_t* caption) {
    const HWND box = user.dialog(caption);
    user.click(box, IDOK);
    user.untilGone(box);
  }
};

TEST_F(HostFiles, BeginsEmptyAndSaysWhatToDo) {
  HostProgram& program = start();
  EXPECT_EQ(program.title(), "Kelvane");
  EXPECT_EQ(program.status(0),
            "Open a netCDF file to begin: File, Open, or drop one on this window.");
  for (const int id : {ID_NEXT, ID_PLAY, ID_PATH, IDC_ITEM, IDC_STEP}) {
    EXPECT_FALSE(IsWindowEnabled(program.item(id))) << id;
  }
  EXPECT_TRUE(IsWindowEnabled(program.item(ID_OPEN)));
  // Keys that mean nothing yet do nothing.
  for (const WORD code : {WORD{VK_RIGHT}, WORD{VK_SPACE}, WORD{VK_F4}, WORD{VK_F5}}) {
    program.key(code);
  }
  EXPECT_EQ(program.close(), 0U);
}

TEST_F(HostFiles, OpensAFileFromTheSystemsDialog) {
  HostProgram& program = start();
  program.key('O', User::WithControl);
  program.user().chooseFile(folder_.file("tiny.nc"));
  program.enterPath({{L"354,5", L"-1"}, {L"354,5", L"0,4"}});
  program.untilStep("1");
  EXPECT_EQ(program.title(), "tiny.nc - Kelvane");
}

TEST_F(HostFiles, RemembersTheDataSetWithItsPath) {
  startDrawn();
  program_->close();
  start();
  program_->command(ID_FIRST_RECENT);
  program_->untilStep("1");  // without a question
  EXPECT_EQ(program_->title(), "tiny.nc - Kelvane");
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostFiles, RemembersWhatAnotherRunHasOpened) {
  startDrawn();
  for (const char* name : {"other.nc", "third.nc"}) support::makeTinySet(folder_.file(name));
  {
    HostProgram other(file("other.nc"));
    const HWND path = other.user().dialog(L"Path");
    other.user().click(path, IDOK);
    other.user().untilGone(path);
    other.untilStep("1");
  }
  program_->command(ID_OPEN);
  program_->user().chooseFile(folder_.file("third.nc"));
  program_->user().until("the third", [&] { return program_->title() == "third.nc - Kelvane"; });
  program_->close();
  start();
  program_->command(ID_FIRST_RECENT + 1);
  program_->untilStep("1");  // without a question
  EXPECT_EQ(program_->title(), "other.nc - Kelvane");
}

TEST_F(HostFiles, KeepsThePathForTheNextDataSet) {
  startDrawn();
  support::makeTinySet(folder_.file("other.nc"));
  program_->command(ID_OPEN);
  program_->user().chooseFile(folder_.file("other.nc"));
  program_->user().until("the other one",
                         [&] { return program_->title() == "other.nc - Kelvane"; });
  program_->untilStep("1");
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostFiles, KeepsWhatWasOpenWhenAnotherFails) {
  startDrawn();
  User& user = program_->user();
  program_->key(VK_RIGHT);
  program_->untilStep("2");
  program_->command(ID_OPEN_ADDRESS);
  const HWND dialog = user.dialog(L"Open Address");
  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
  user.type(GetDlgItem(dialog, IDC_ADDRESS), file("missing.nc"));
  user.until("OK", [&] { return IsWindowEnabled(GetDlgItem(dialog, IDOK)) != 0; });
  user.click(dialog, IDOK);
  answer(user, L"NetCDF Error");
  program_->untilMessage("\xE2\x80\x9Cmissing.nc\xE2\x80\x9D could not be opened.");
  program_->untilMessage("No such file");
  EXPECT_EQ(program_->title(), "tiny.nc - Kelvane");
  program_->untilStep("2");
  program_->key(VK_RIGHT);
  program_->untilStep("1");
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostFiles, SaysWhyTheFileOfTheCommandLineDoesNotOpen) {
  start(file("missing.nc"));
  answer(program_->user(), L"NetCDF Error");
  program_->untilMessage("could not be opened");
  EXPECT_EQ(program_->title(), "Kelvane");
  EXPECT_FALSE(IsWindowEnabled(program_->item(ID_NEXT)));
}

TEST_F(HostFiles, TakesADroppedFile) {
  start();
  program_->drop(file("tiny.nc"));
  program_->enterPath({{L"354.5", L"-1"}, {L"354.5", L"0.4"}});
  program_->untilStep("1");
  EXPECT_EQ(program_->title(), "tiny.nc - Kelvane");
}

TEST_F(HostFiles, ComesBackWhereItWas) {
  start();
  SetWindowPos(program_->window(), nullptr, 30, 40, 900, 500, SWP_NOZORDER);
  RECT before = {}, after = {};
  GetWindowRect(program_->window(), &before);
  program_->close();
  start();
  GetWindowRect(program_->window(), &after);
  EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(HostFiles, ChoosesAnItemByKeys) {
  startDrawn();
  const HWND item = program_->item(IDC_ITEM);
  ASSERT_EQ(SendMessageW(item, CB_GETCOUNT, 0, 0), 2);
  PostMessageW(item, WM_KEYDOWN, VK_DOWN, 1);
  program_->user().until("the other item", [&] { return program_->status(2) == "salt"; });
  EXPECT_EQ(program_->message(), "");
  PostMessageW(item, WM_KEYDOWN, VK_UP, 1);
  program_->user().until("the first item", [&] { return program_->status(2) == "temp"; });
}

TEST_F(HostFiles, KeepsTheItemInTheNextDataSet) {
  startDrawn();
  support::makeTinySet(folder_.file("other.nc"));
  PostMessageW(program_->item(IDC_ITEM), WM_KEYDOWN, VK_DOWN, 1);
  program_->user().until("the other item", [&] { return program_->status(2) == "salt"; });
  program_->command(ID_OPEN);
  program_->user().chooseFile(folder_.file("other.nc"));
  program_->user().until("the other one", [&] { return program_->status(1) == "other.nc"; });
  EXPECT_EQ(program_->status(2), "salt");
}

}  // namespace
}  // namespace winetest
