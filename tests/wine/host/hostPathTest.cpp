#include <windows.h>

#include <commctrl.h>

#include "HostTest.h"
#include "library.h"
#include "userActions.h"

namespace winetest {
namespace {

class HostPath : public HostTest {
 protected:
  void open() {
    startDrawn();
    program_->key('E', User::WithControl);
    dialog_ = program_->user().dialog(L"Path");
    list_ = part(IDC_POINTS);
  }
  HWND part(int id) const { return GetDlgItem(dialog_, id); }
  std::string problem() const { return textOf(part(IDC_PROBLEM)); }
  LRESULT rows() const { return SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0); }
  void untilProblem(const std::string& text) {
    program_->user().until("problem: " + text, [&] { return problem() == text; });
  }
  void click(int id) { program_->user().click(dialog_, id); }
  void type(int id, const std::wstring& text) { program_->user().type(part(id), text); }
  void cancel() {
    click(IDCANCEL);
    program_->user().untilGone(dialog_);
  }

  HWND dialog_ = nullptr, list_ = nullptr;
};

TEST_F(HostPath, ShowsThePathInUse) {
  open();
  EXPECT_EQ(rows(), 2);
  EXPECT_EQ(textOf(part(IDC_LONGITUDE)), "354.5");
  EXPECT_EQ(textOf(part(IDC_LATITUDE)), "-1");
  EXPECT_EQ(problem(), "");
  EXPECT_TRUE(IsWindowEnabled(part(IDOK)));
  cancel();
}

TEST_F(HostPath, TellsAtOnceWhatIsWrong) {
  open();
  type(IDC_LONGITUDE, L"east");
  untilProblem("Point 1: the longitude is not a number.");
  EXPECT_FALSE(IsWindowEnabled(part(IDOK)));
  type(IDC_LONGITUDE, L"354,5");
  untilProblem("");
  EXPECT_TRUE(IsWindowEnabled(part(IDOK)));
  type(IDC_LATITUDE, L"1");
  untilProblem("Point 2 lies south of point 1, but from each point a path runs east and north.");
  EXPECT_TRUE(IsWindowEnabled(part(IDOK)));
  type(IDC_LATITUDE, L"91");
  untilProblem("Point 1: the latitude must be from -90 to 90.");
  cancel();
}

TEST_F(HostPath, AddsMovesAndRemovesRows) {
  open();
  click(IDC_ADD);
  untilProblem("Point 2: the longitude is missing.");
  EXPECT_EQ(rows(), 3);
  type(IDC_LONGITUDE, L"354.8");
  type(IDC_LATITUDE, L"0.4");
  untilProblem("Point 3 lies west of point 2, but from each point a path runs east and north.");
  click(IDC_DOWN);
  untilProblem("");
  EXPECT_EQ(textOf(part(IDC_LONGITUDE)), "354.8");
  EXPECT_FALSE(IsWindowEnabled(part(IDC_DOWN)));
  click(IDC_UP);
  untilProblem("Point 3 lies west of point 2, but from each point a path runs east and north.");
  click(IDC_REMOVE);
  untilProblem("");
  EXPECT_EQ(rows(), 2);
  click(IDC_REMOVE);
  untilProblem("A path needs two points or more.");
  click(IDC_REMOVE);
  program_->user().until("no rows", [&] { return rows() == 0; });
  EXPECT_FALSE(IsWindowEnabled(part(IDC_LONGITUDE)));
  EXPECT_FALSE(IsWindowEnabled(part(IDC_REMOVE)));
  cancel();
}

TEST_F(HostPath, TakesPointsFromTheClipboard) {
  open();
  putOnClipboard(L"Longitude;Latitude\r\n354,5;-1\r\n354,8;0,2\r\n355;0,4\r\n");
  click(IDC_PASTE);
  program_->user().until("three rows", [&] { return rows() == 3; });
  EXPECT_EQ(problem(), "");
  putOnClipboard(L"354,5;-1\r\nhalf past 8\r\n");
  click(IDC_PASTE);
  untilProblem("Line 2 is not a longitude and a latitude: half past 8");
  EXPECT_EQ(rows(), 3);
  click(IDOK);
  program_->user().untilGone(dialog_);
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostPath, PastesPointsIntoABoxAsRows) {
  open();
  putOnClipboard(L"354.5\t-1\r\n354.8\t0.2\r\n355\t0.4\r\n");
  PostMessageW(part(IDC_LONGITUDE), WM_PASTE, 0, 0);
  program_->user().until("three rows", [&] { return rows() == 3; });
  EXPECT_EQ(textOf(part(IDC_LONGITUDE)), "354.5");
  // A number is pasted as in any box.
  putOnClipboard(L"9");
  PostMessageW(part(IDC_LATITUDE), EM_SETSEL, 0, -1);
  PostMessageW(part(IDC_LATITUDE), WM_PASTE, 0, 0);
  program_->user().until("the number", [&] { return textOf(part(IDC_LATITUDE)) == "9"; });
  EXPECT_EQ(rows(), 3);
  // Its decimal comma makes no point of it.
  putOnClipboard(L"9,25");
  PostMessageW(part(IDC_LATITUDE), EM_SETSEL, 0, -1);
  PostMessageW(part(IDC_LATITUDE), WM_PASTE, 0, 0);
  program_->user().until("the comma", [&] { return textOf(part(IDC_LATITUDE)) == "9,25"; });
  EXPECT_EQ(rows(), 3);
  cancel();
}

TEST_F(HostPath, StaysUpWithTheControlsReason) {
  open();
  type(IDC_LATITUDE, L"0.3");  // less than a cell away
  click(IDOK);
  program_->user().until("the reason", [&] {
    return problem().find("There is no section along this path.") == 0;
  });
  EXPECT_NE(problem().find("too short"), std::string::npos);
  cancel();
  // The path in use is still that of before.
  program_->key(VK_RIGHT);
  program_->untilStep("2");
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostPath, SavesAndLoadsATextFile) {
  open();
  User& user = program_->user();
  click(IDC_SAVE);
  chooseName(user, L"Save Path", file("path.txt"));
  user.until("the file", [&] { return !readFile(file("path.txt")).empty(); });
  EXPECT_EQ(readFile(file("path.txt")), "# longitude\tlatitude\n354.5\t-1\n354.5\t0.4\n");
  type(IDC_LATITUDE, L"0");
  click(IDC_LOAD);
  chooseName(user, L"Load Path", file("path.txt"));
  user.until("the old row", [&] { return textOf(part(IDC_LATITUDE)) == "-1"; });
  cancel();
}

TEST_F(HostPath, GoesWithItsWindow) {
  open();
  PostMessageW(program_->window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(program_->waitForEnd(), 0U);
}

}  // namespace
}  // namespace winetest
