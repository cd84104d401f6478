#include "DialogTest.h"

namespace winetest {
namespace {

constexpr char kWanted[] = "Please enter a number such as 12.5.";

// The numeric fields of the dialogs, by way of the editor's and of the auto-division's.
class NumberFields : public DialogTest {
 protected:
  static std::string problem(HWND dialog) { return textOf(dialog, IDC_PROBLEM); }
  static void untilProblem(User& user, HWND dialog, const std::string& wanted) {
    user.until("the line says: " + wanted, [&] { return problem(dialog) == wanted; });
  }
  // Whether a box has the colour of wrong numbers.
  static bool isMarked(User& user, HWND dialog, HWND edit) {
    const host::Picture picture = user.shoot(dialog);
    RECT place = {}, window = {};
    GetWindowRect(edit, &place);
    GetWindowRect(dialog, &window);
    const uint32_t colour = picture.at(place.left - window.left + 4, place.top - window.top + 4);
    return (colour >> 16 & 0xFF) > (colour & 0xFF) + 20;
  }
};

TEST_F(NumberFields, MarkWhatIsNoNumber) {
  makeKey(2);
  editKey([](User& user, HWND editor) {
    const HWND low = part(editor, 0, ROW_FLDLOWRANGE), high = part(editor, 0, ROW_FLDHIGHRANGE);
    for (const wchar_t* wrong : {L"1x", L"", L"-", L"1 2", L"1e99", L"nan"}) {
      user.type(low, wrong);
      untilProblem(user, editor, kWanted);
      EXPECT_TRUE(isMarked(user, editor, low)) << host::narrow(wrong);
      user.type(low, L"0.5");
      untilProblem(user, editor, "");
      EXPECT_FALSE(isMarked(user, editor, low));
    }
    EXPECT_FALSE(isMarked(user, editor, high));
    user.click(editor, IDCANCEL);
  });
}

TEST_F(NumberFields, ComeBackToTheirNumberWhenLeft) {
  makeKey(2);
  editKey([](User& user, HWND editor) {
    const HWND low = part(editor, 0, ROW_FLDLOWRANGE), high = part(editor, 0, ROW_FLDHIGHRANGE);
    user.type(low, L"4");
    user.key(VK_TAB);
    user.until("the next box", [&] { return user.focus() == high; });
    user.type(low, L"12O0");  // 1 and 12 were numbers on the way
    user.key(VK_TAB);
    user.until("the number", [&] { return textOf(low) == "4"; });
    EXPECT_EQ(user.focus(), high);
    EXPECT_EQ(problem(editor), "");
    EXPECT_FALSE(isMarked(user, editor, low));
    user.type(high, L" 1.50 ");
    user.press(low);
    user.until("the number as it is written", [&] { return textOf(high) == "1.5"; });
    user.click(editor, IDOK);
  });
  EXPECT_NE(kewFile().find("<low>4</low><high>1.5</high>"), std::string::npos) << kewFile();
}

// Wrong texts are given up as well when something else is done with the rows.
TEST_F(NumberFields, ComeBackToTheirNumberBeforeTheRowsChange) {
  makeKey(40);
  editKey([](User& user, HWND editor) {
    const HWND low = part(editor, 0, ROW_FLDLOWRANGE), high = part(editor, 0, ROW_FLDHIGHRANGE);
    const HWND bar = GetDlgItem(editor, IDC_VSCROLL1);
    user.type(low, L"12O0");
    PostMessageW(editor, WM_VSCROLL, SB_LINEDOWN, reinterpret_cast<LPARAM>(bar));
    user.until("the next row", [&] { return textOf(low) == "1"; });
    EXPECT_EQ(problem(editor), "");
    user.type(high, L"34x");
    user.click(editor, IDC_CMDADD);  // without the focus
    user.until("the last row", [&] { return textOf(part(editor, 0, ROW_NUMBER)) != "2"; });
    EXPECT_EQ(problem(editor), "");
    PostMessageW(editor, WM_VSCROLL, SB_TOP, reinterpret_cast<LPARAM>(bar));
    user.until("the first row", [&] { return textOf(part(editor, 0, ROW_NUMBER)) == "1"; });
    user.type(low, L"-");
    PostMessageW(editor, WM_VSCROLL, SB_TOP, reinterpret_cast<LPARAM>(bar));
    untilProblem(user, editor, kWanted);  // nothing has moved
    EXPECT_TRUE(isMarked(user, editor, low));
    user.key(VK_TAB);
    user.until("the number", [&] { return textOf(low) == "0"; });
    user.click(editor, IDOK);
  });
  const std::string file = kewFile();
  for (const char* bounds :
       {"<low>0</low><high>1</high>", "<low>1</low><high>2</high>", "<low>2</low><high>3</high>"}) {
    EXPECT_NE(file.find(bounds), std::string::npos) << bounds;
  }
}

// A wrong text in a row for which the window is too small now.
TEST_F(NumberFields, DoNotRefuseOkUnseen) {
  makeKey(40);
  editKey([](User& user, HWND editor) {
    const HWND bar = GetDlgItem(editor, IDC_VSCROLL1);
    SCROLLINFO range = {};
    range.cbSize = sizeof range;
    range.fMask = SIF_ALL;
    GetScrollInfo(bar, SB_CTL, &range);
    const int last = static_cast<int>(range.nPage) - 1;
    const HWND low = part(editor, last, ROW_FLDLOWRANGE);
    user.type(low, L"9x");
    SetWindowPos(editor, nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_FALSE(IsWindowVisible(low));
    EXPECT_EQ(problem(editor), "");
    PostMessageW(editor, WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(bar));
    user.until("the last row",
               [&] { return textOf(part(editor, 0, ROW_NUMBER)) == std::to_string(38); });
    // What comes to a box that is not to be seen goes nowhere.
    SendMessageW(low, WM_CHAR, L'7', 1);
    EXPECT_EQ(problem(editor), "");
    user.click(editor, IDOK);
  });
  const std::string file = kewFile();
  for (int k = 0; k < 40; ++k) {
    const std::string bounds =
        "<low>" + std::to_string(k) + "</low><high>" + std::to_string(k + 1) + "</high>";
    EXPECT_NE(file.find(bounds), std::string::npos) << bounds;
  }
}

TEST_F(NumberFields, RefuseOk) {
  makeKey(2);
  editKey([](User& user, HWND editor) {
    const HWND low = part(editor, 0, ROW_FLDLOWRANGE);
    user.type(low, L"9x");
    user.key(VK_RETURN);
    untilProblem(user, editor, kWanted);
    EXPECT_EQ(user.focus(), low);
    EXPECT_EQ(textOf(low), "9x");
    // By the mouse: the focus goes to the button, and comes back.
    user.press(GetDlgItem(editor, IDOK));
    user.until("the selection", [&] {
      DWORD from = 1, to = 0;
      SendMessageW(low, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
      return user.focus() == low && from == 0 && to == 2;
    });
    EXPECT_EQ(textOf(low), "9x");
    EXPECT_EQ(problem(editor), kWanted);
    EXPECT_TRUE(IsWindow(editor));
    user.type(low, L"8");
    user.key(VK_RETURN);
  });
  EXPECT_NE(kewFile().find("<low>8</low>"), std::string::npos) << kewFile();
}

TEST_F(NumberFields, CountWholeDivisions) {
  makeKey(2);
  editKey([](User& user, HWND editor) {
    user.click(editor, IDC_CMDAUTODIV);
    const HWND division = user.dialog(kAutoDiv);
    user.type(GetDlgItem(division, IDC_FLDDIVISIONS), L"2.5");
    untilProblem(user, division, "Please enter a whole number such as 10.");
    user.click(division, IDOK);
    user.until("the field has the focus",
               [&] { return user.focus() == GetDlgItem(division, IDC_FLDDIVISIONS); });
    EXPECT_TRUE(IsWindowVisible(division));
    user.key(VK_ESCAPE);
    user.untilGone(division);
    user.click(editor, IDCANCEL);
  });
}

TEST_F(NumberFields, AreSpeltAsTheUserDoes) {
  wchar_t before[8] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before, 8);
  ASSERT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L","));
  control().call(L"NewColorKey");
  control().call(L"AddColorKey", {0.5, 1.25, 255});
  editKey([](User& user, HWND editor) {
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "0,5");
    user.type(part(editor, 0, ROW_FLDLOWRANGE), L"x");
    untilProblem(user, editor, "Please enter a number such as 12,5.");
    user.type(part(editor, 0, ROW_FLDLOWRANGE), L"0,75");
    user.type(part(editor, 0, ROW_FLDHIGHRANGE), L"2.5");
    user.press(part(editor, 0, ROW_FLDLOWRANGE));
    user.until("the user's spelling",
               [&] { return textOf(part(editor, 0, ROW_FLDHIGHRANGE)) == "2,5"; });
    user.click(editor, IDOK);
  });
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before);
  editKey([](User& user, HWND editor) {
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "0.75");
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDHIGHRANGE)), "2.5");
    user.click(editor, IDCANCEL);
  });
}

}  // namespace
}  // namespace winetest
