#include "HostTest.h"
#include "childProcess.h"
#include "library.h"
#include "userActions.h"

namespace winetest {
namespace {

constexpr wchar_t kOptions[] = L"Section View Options";

class HostControl : public HostTest {};

TEST_F(HostControl, ShowsItsOptionsOverTheWindow) {
  startDrawn();
  program_->key(VK_F4);
  const HWND options = program_->user().dialog(kOptions);
  EXPECT_EQ(GetWindow(options, GW_OWNER), program_->window());
  EXPECT_FALSE(IsWindowEnabled(program_->item(ID_NEXT)));
  // What comes in the meantime is not done.
  program_->command(ID_NEXT);
  program_->command(ID_OPEN);
  program_->user().click(options, IDOK);
  program_->user().untilGone(options);
  program_->user().until("the buttons",
                         [&] { return IsWindowEnabled(program_->item(ID_NEXT)) != 0; });
  program_->untilStep("1");
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostControl, HoldsThePlayingUpWhileADialogIsUp) {
  startDrawn();
  SendMessageW(program_->item(IDC_SPEED), CB_SETCURSEL, 4, 0);
  program_->key(VK_SPACE);
  program_->untilStep("2");
  program_->command(ID_OPTIONS);
  const HWND options = program_->user().dialog(kOptions);
  const std::string there = program_->shownStep();
  Sleep(300);
  EXPECT_EQ(program_->shownStep(), there);
  program_->user().click(options, IDCANCEL);
  program_->user().untilGone(options);
  program_->user().until("it plays on", [&] { return program_->shownStep() != there; });
}

TEST_F(HostControl, GoesWithItsWindowFromUnderItsDialogs) {
  startDrawn();
  program_->command(ID_OPTIONS);
  program_->user().dialog(kOptions);
  EXPECT_EQ(program_->close(), 0U);
}

TEST_F(HostControl, GoesWithItsWindowFromUnderAMessageBox) {
  start(file("missing.nc"));
  program_->user().dialog(L"NetCDF Error");
  EXPECT_EQ(program_->close(), 0U);
}

TEST_F(HostControl, SaysThatThereIsNoKeyToUse) {
  startDrawn();
  program_->key('K', User::WithControl);
  program_->untilMessage("There is no color key yet. Load one or make one first.");
  program_->command(ID_MAKE_KEY);
  program_->user().until("a key", [&] { return program_->message().empty(); });
  EXPECT_FALSE(readFile(file("tiny.KEW")).empty());
  program_->key('K', User::WithControl);
  program_->key('K', User::WithControl);
  program_->key(VK_RIGHT);
  program_->untilStep("2");
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostControl, SaysThatAKeyFileHasNoKey) {
  startDrawn();
  program_->command(ID_LOAD_KEY);
  chooseName(program_->user(), L"Load Color Key", file("tiny.nc"));
  program_->user().until("the message", [&] { return !program_->message().empty(); });
  program_->key(VK_RIGHT);
  program_->untilStep("2");
}

TEST_F(HostControl, IsReachedByTabAsEverythingElseIs) {
  startDrawn();
  const std::vector<int> order = {ID_OPEN, IDC_ITEM, ID_FIRST, ID_PREVIOUS, ID_PLAY, ID_NEXT,
                                  ID_LAST, IDC_STEP, IDC_SPEED, ID_PATH,    ID_OPTIONS};
  User& user = program_->user();
  const auto picture = [&] { return user.focus() == program_->control(); };
  user.until("the keyboard at the picture", picture);
  for (const int id : order) {
    program_->key(VK_TAB);
    user.until("the keyboard at " + std::to_string(id),
               [&] { return user.focus() == program_->item(id); });
  }
  program_->key(VK_TAB);
  user.until("the keyboard at the picture again", picture);
  program_->key(VK_TAB, User::WithShift);
  user.until("the last one", [&] { return user.focus() == program_->item(ID_OPTIONS); });
  program_->key('I', User::WithAlt);
  user.until("the one with the letter", [&] { return user.focus() == program_->item(IDC_ITEM); });
}

TEST_F(HostControl, FillsWhatTheWindowLeavesIt) {
  startDrawn();
  for (const SIZE size : {SIZE{700, 500}, SIZE{500, 600}}) {
    SetWindowPos(program_->window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    RECT stage = {}, control = {}, bar = {}, status = {};
    GetWindowRect(program_->item(IDC_STAGE), &stage);
    GetWindowRect(program_->control(), &control);
    GetWindowRect(program_->item(ID_OPTIONS), &bar);
    GetWindowRect(program_->item(IDC_STATUS), &status);
    EXPECT_TRUE(EqualRect(&stage, &control));
    EXPECT_GE(stage.top, bar.bottom);
    EXPECT_EQ(stage.bottom, status.top);
    EXPECT_GT(stage.bottom - stage.top, 100);
  }
}

// The program and what else lies in its folder.
class HostAlone : public HostTest {
 protected:
  HostAlone() { regsvr32(L"/u"); }
  ~HostAlone() override {
    program_.reset();
    for (const wchar_t* name : kAll) DeleteFileW((folder() + name).c_str());
    regsvr32(L"");
  }
  std::wstring folder() const { return file("") ; }
  void bring(const wchar_t* name) {
    const std::wstring built = hostProgram().substr(0, hostProgram().find_last_of(L'\\') + 1);
    ASSERT_TRUE(CopyFileW((built + name).c_str(), (folder() + name).c_str(), FALSE));
  }
  static constexpr const wchar_t* kAll[] = {L"KelvaneHost.exe", L"KelvaneCtl.ocx",
                                            L"KelvaneCtl.manifest"};

 private:
  static void regsvr32(const std::wstring& options) {
    EXPECT_EQ(runProgram(L"regsvr32.exe /s " + options + L" \"" + libraryPath() + L"\"").status,
              0U);
  }
};

TEST_F(HostAlone, TellsHowToGetTheControl) {
  bring(L"KelvaneHost.exe");
  program_.emplace(file("tiny.nc"), folder() + L"KelvaneHost.exe");
  EXPECT_EQ(program_->message(),
            "There is no section control for this program, so nothing can be drawn.");
  EXPECT_EQ(program_->control(), nullptr);
  for (const int id : {ID_OPEN, ID_NEXT, ID_PATH}) {
    EXPECT_FALSE(IsWindowEnabled(program_->item(id))) << id;
  }
  program_->command(ID_OPEN);
  program_->command(ID_NEXT);
  program_->command(ID_ABOUT);
  const HWND about = program_->user().dialog(L"About KelvaneHost");
  const std::string bits = std::to_string(8 * sizeof(void*)) + "-bit";
  EXPECT_NE(textOf(about, IDC_ABOUT_NAME).find(bits), std::string::npos);
  program_->user().click(about, IDOK);
  program_->user().untilGone(about);
  EXPECT_EQ(program_->close(), 0U);
}

TEST_F(HostAlone, UsesTheControlBesideItWithoutRegistration) {
  for (const wchar_t* name : kAll) bring(name);
  program_.emplace(file("tiny.nc"), folder() + L"KelvaneHost.exe");
  program_->enterPath({{L"354.5", L"-1"}, {L"354.5", L"0.4"}});
  program_->untilStep("1");
  EXPECT_EQ(program_->message(), "");
  EXPECT_EQ(program_->close(), 0U);
}

}  // namespace
}  // namespace winetest
