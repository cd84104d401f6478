#include <filesystem>

#include "DialogTest.h"

namespace winetest {
namespace {

using OptionsDialog = DialogTest;

TEST_F(OptionsDialog, HasTheControlsNamed) {
  showOptions([](User& user, HWND options) {
    EXPECT_EQ(textOf(options, IDC_OPTVIEWSTYLE0), "Vertical Section with&out Contour Lines");
    EXPECT_EQ(textOf(options, IDC_OPTVIEWSTYLE1), "Vertical Section with &Contour Lines");
    EXPECT_EQ(textOf(options, IDC_OPTVIEWSTYLE2), "Vertical Profile (&Single Graph)");
    EXPECT_EQ(textOf(options, IDC_OPTVIEWSTYLE3), "Vertical Profile (S&eperate Graphs)");
    EXPECT_EQ(textOf(options, IDC_CMDEDITLEGEND), "Edit &Legend");
    EXPECT_EQ(textOf(options, IDOK), "OK");
    EXPECT_EQ(textOf(options, IDCANCEL), "Cancel");
    const HWND frame = FindWindowExW(options, nullptr, L"Button", L"View Options");
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(GetWindowLongW(frame, GWL_STYLE) & BS_TYPEMASK, BS_GROUPBOX);
    user.click(options, IDCANCEL);
  });
}

TEST_F(OptionsDialog, RedrawsAfterOkAlone) {
  const host::Picture section = form_.shoot();
  showOptions([](User& user, HWND options) {
    EXPECT_TRUE(IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE0));
    user.click(options, IDC_OPTVIEWSTYLE2);
    user.until("the click", [&] { return IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE2) != 0; });
    user.click(options, IDCANCEL);
  });
  EXPECT_TRUE(form_.shoot() == section);
  control().call(L"ReDraw");
  form_.pump();
  EXPECT_TRUE(form_.shoot() == section);
  showOptions([](User& user, HWND options) {
    EXPECT_TRUE(IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE0));
    user.click(options, IDC_OPTVIEWSTYLE2);
    user.click(options, IDOK);
  });
  const host::Picture profile = form_.shoot();
  EXPECT_FALSE(profile == section);
  EXPECT_TRUE(control().get(L"DrawProfile").flag());
  showOptions([](User& user, HWND options) {
    EXPECT_TRUE(IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE2));
    EXPECT_EQ(user.focus(), GetDlgItem(options, IDC_OPTVIEWSTYLE2));
    user.click(options, IDC_OPTVIEWSTYLE0);
    user.click(options, IDOK);
  });
  EXPECT_TRUE(form_.shoot() == section);
}

// Unlike Cancel, the close box leaves the choice as it was clicked.
TEST_F(OptionsDialog, KeepsTheChoiceWhenClosedByItsBox) {
  const host::Picture section = form_.shoot();
  showOptions([](User& user, HWND options) {
    user.click(options, IDC_OPTVIEWSTYLE2);
    user.until("the click", [&] { return IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE2) != 0; });
    PostMessageW(options, WM_CLOSE, 0, 0);
  });
  EXPECT_TRUE(form_.shoot() == section);
  EXPECT_TRUE(control().get(L"DrawProfile").flag());
}

TEST_F(OptionsDialog, IsWorkedByTheKeyboard) {
  showOptions([](User& user, HWND options) {
    user.key(VK_DOWN);
    user.until("the next option",
               [&] { return IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE1) != 0; });
    user.key('S', User::WithAlt);
    user.until("a mnemonic", [&] { return IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE2) != 0; });
    user.key(VK_TAB);
    user.until("Tab", [&] { return user.focus() == GetDlgItem(options, IDC_CMDEDITLEGEND); });
    user.key(VK_TAB);
    user.until("Tab", [&] { return user.focus() == GetDlgItem(options, IDOK); });
    user.key(VK_TAB);
    user.until("Tab", [&] { return user.focus() == GetDlgItem(options, IDCANCEL); });
    user.key(VK_TAB);
    user.until("Tab", [&] { return user.focus() == GetDlgItem(options, IDC_OPTVIEWSTYLE2); });
    user.key(VK_TAB, User::WithShift);
    user.until("Shift+Tab", [&] { return user.focus() == GetDlgItem(options, IDCANCEL); });
    user.key(VK_TAB, User::WithShift);
    user.until("Shift+Tab", [&] { return user.focus() == GetDlgItem(options, IDOK); });
    user.key(VK_RETURN);
  });
  EXPECT_TRUE(control().get(L"DrawProfile").flag());
  showOptions([](User& user, HWND options) {
    user.click(options, IDC_OPTVIEWSTYLE0);
    user.until("the click", [&] { return IsDlgButtonChecked(options, IDC_OPTVIEWSTYLE0) != 0; });
    user.key(VK_ESCAPE);
  });
  EXPECT_TRUE(control().get(L"DrawProfile").flag()) << "Escape is Cancel";
}

// A failure of Edit Legend is said where it was asked for; the next time, it is gone.
TEST_F(OptionsDialog, TellsOfAKeyThatCannotBeEditedOrSaved) {
  makeKey(32768);
  showOptions([](User& user, HWND options) {
    EXPECT_EQ(textOf(options, IDC_PROBLEM), "");
    user.click(options, IDC_CMDEDITLEGEND);
    user.until("the reason", [&] {
      return textOf(options, IDC_PROBLEM) == "The key cannot be edited: Overflow.";
    });
    user.click(options, IDCANCEL);
  });
  makeKey(2);
  std::filesystem::create_directory(host::wide(folder_.file("tiny.KEW")));
  const auto edit = [](User& user, HWND options) {
    user.click(options, IDC_CMDEDITLEGEND);
    const HWND editor = user.dialog(kEditor);
    // A failure of the editor's own has been told there.
    user.click(editor, IDC_CMDAUTODIV);
    const HWND division = user.dialog(kAutoDiv);
    user.type(GetDlgItem(division, IDC_FLDDIVISIONS), L"0");
    user.click(division, IDOK);
    user.untilGone(division);
    user.until("the reason", [&] { return !textOf(editor, IDC_PROBLEM).empty(); });
    return editor;
  };
  std::string reason;
  showOptions([&](User& user, HWND options) {
    HWND editor = edit(user, options);
    user.click(editor, IDOK);
    user.untilGone(editor);
    user.until("the reason", [&] { return !textOf(options, IDC_PROBLEM).empty(); });
    reason = textOf(options, IDC_PROBLEM);
    editor = edit(user, options);
    EXPECT_EQ(textOf(options, IDC_PROBLEM), "");
    user.click(editor, IDCANCEL);
    user.untilGone(editor);
    user.onMainThread([] {});
    EXPECT_EQ(textOf(options, IDC_PROBLEM), "");
    user.click(options, IDOK);
  });
  const std::string failure = host::narrow(control().get(L"ErrorMessage").text());
  EXPECT_TRUE(reason.starts_with("The key could not be saved: ")) << reason;
  EXPECT_EQ(reason.find("KelvaneCtl"), std::string::npos) << reason << failure;
}

}  // namespace
}  // namespace winetest
