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
    user.type(low, L"3");
    user.type(low, L"4y");  // 4 was a number on the way
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
