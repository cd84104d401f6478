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

}  // namespace
}  // namespace winetest
