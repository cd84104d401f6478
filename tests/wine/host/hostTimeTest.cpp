#include "HostTest.h"

namespace winetest {
namespace {

class HostTime : public HostTest {};

TEST_F(HostTime, OpensTheDataSetOfTheCommandLineAndCountsItsSteps) {
  HostProgram& program = startDrawn();
  EXPECT_EQ(program.title(), "tiny.nc - Kelvane");
  EXPECT_EQ(textOf(program.item(IDC_STEP_COUNT)), "of 2");
  EXPECT_EQ(program.status(1), "tiny.nc");
  EXPECT_EQ(program.status(2), "temp");
  EXPECT_EQ(program.status(3), "Step 1 of 2");
  EXPECT_EQ(program.message(), "");
  EXPECT_NE(program.control(), nullptr);
  EXPECT_EQ(program.close(), 0U);
}

TEST_F(HostTime, GoesByKeys) {
  HostProgram& program = startDrawn();
  program.key(VK_RIGHT);
  program.untilStep("2");
  program.key(VK_RIGHT);
  program.untilStep("1");
  program.key(VK_LEFT);
  program.untilStep("2");
  program.key(VK_HOME);
  program.untilStep("1");
  program.key(VK_END);
  program.untilStep("2");
  EXPECT_EQ(program.message(), "");
}

TEST_F(HostTime, GoesByButtons) {
  HostProgram& program = startDrawn();
  User& user = program.user();
  user.press(program.item(ID_NEXT));
  program.untilStep("2");
  user.press(program.item(ID_FIRST));
  program.untilStep("1");
  user.press(program.item(ID_PREVIOUS));
  program.untilStep("2");
  user.press(program.item(ID_FIRST));
  program.untilStep("1");
  user.press(program.item(ID_LAST));
  program.untilStep("2");
}

TEST_F(HostTime, GoesToATypedStep) {
  HostProgram& program = startDrawn();
  SetForegroundWindow(program.window());
  program.user().type(program.item(IDC_STEP), L"2");
  program.user().key(VK_RETURN);
  program.untilStep("2");
  program.user().type(program.item(IDC_STEP), L"3");
  program.user().key(VK_RETURN);
  program.untilMessage("The time steps go from 1 to 2.");
  EXPECT_EQ(program.status(3), "Step 2 of 2");
  // Escape takes the message away and shows the step again.
  program.user().key(VK_ESCAPE);
  program.user().until("no message", [&] { return program.message().empty(); });
  EXPECT_EQ(program.shownStep(), "2");
}

TEST_F(HostTime, RefusesAStepThatIsNoNumber) {
  HostProgram& program = startDrawn();
  SetForegroundWindow(program.window());
  program.user().type(program.item(IDC_STEP), L"1");
  SendMessageW(program.item(IDC_STEP), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"2nd"));
  program.user().key(VK_RETURN);
  program.untilMessage("The time steps go from 1 to 2.");
  EXPECT_EQ(program.status(3), "Step 1 of 2");
}

TEST_F(HostTime, LeavesTheArrowsToTheBoxThatHasTheKeyboard) {
  HostProgram& program = startDrawn();
  SetForegroundWindow(program.window());
  program.user().type(program.item(IDC_STEP), L"1");
  program.user().key(VK_LEFT);
  program.user().key('7');
  program.user().until("a typed digit", [&] { return program.shownStep() == "71"; });
  EXPECT_EQ(program.status(3), "Step 1 of 2");
}

TEST_F(HostTime, PlaysUntilItIsPaused) {
  HostProgram& program = startDrawn();
  SendMessageW(program.item(IDC_SPEED), CB_SETCURSEL, 4, 0);
  program.key(VK_SPACE);
  for (const char* step : {"2", "1", "2"}) program.untilStep(step);
  EXPECT_EQ(program.status(0), "Playing");
  program.key(VK_SPACE);
  program.user().until("the pause", [&] { return program.status(0) == "Ready"; });
  const std::string there = program.shownStep();
  Sleep(400);
  EXPECT_EQ(program.shownStep(), there);
}

TEST_F(HostTime, ClosesWhileItPlays) {
  HostProgram& program = startDrawn();
  SendMessageW(program.item(IDC_SPEED), CB_SETCURSEL, 5, 0);
  program.key(VK_SPACE);
  program.untilStep("2");
  EXPECT_EQ(program.close(), 0U);
}

TEST_F(HostTime, StopsPlayingWhenTheFileGoes) {
  HostProgram& program = startDrawn();
  SendMessageW(program.item(IDC_SPEED), CB_SETCURSEL, 4, 0);
  program.key(VK_SPACE);
  program.untilStep("2");
  // The control opens its file for every step.
  program.user().until("the file goes", [&] { return DeleteFileW(file("tiny.nc").c_str()); });
  const HWND box = program.user().dialog(L"NetCDF Error");
  program.user().click(box, IDOK);
  program.user().untilGone(box);
  program.untilMessage("No such file");
  EXPECT_NE(program.status(0), "Playing");
  EXPECT_EQ(program.close(), 0U);
}

}  // namespace
}  // namespace winetest
