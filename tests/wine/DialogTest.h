#pragma once

#include <gtest/gtest.h>

#include <string>

#include "Form.h"
#include "User.h"
#include "activex/dialogs/ids.h"
#include "library.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {

inline constexpr wchar_t kOptions[] = L"Section View Options";
inline constexpr wchar_t kEditor[] = L"Edit Color Key";
inline constexpr wchar_t kAutoDiv[] = L"Auto Division";
inline constexpr wchar_t kColorRamp[] = L"Color Ramp";
inline constexpr wchar_t kVarName[] = L"Choose Variable";
inline constexpr wchar_t kChooser[] = L"Color";
inline constexpr wchar_t kOpen[] = L"Open";

// A form with a section drawn on it, and a user at its dialogs.
class DialogTest : public testing::Test {
 protected:
  DialogTest()
      : form_((support::makeTinySet(folder_.file("tiny.nc")), L"Kelvane.KelvaneCtl"), 480, 360) {
    SetForegroundWindow(form_.window());
    control().call(L"NewColorKey");
    control().put(L"UseColorKey", false);
    control().call(L"NcFile", {host::wide(folder_.file("tiny.nc"))});
    control().call(L"NewSection");
    control().call(L"AddSection", {354.5, -1.0});
    control().call(L"AddSection", {354.5, 0.4});
    control().call(L"EndSection");
    control().call(L"Draw");
    form_.pump();
  }

  host::Object& control() { return form_.control(); }
  // A key of so many divisions, from 0 on, each 1 wide, of shades of red.
  void makeKey(int divisions) {
    control().call(L"NewColorKey");
    for (int k = 0; k < divisions; ++k) {
      control().call(L"AddColorKey", {double(k), double(k + 1), k % 256});
    }
    control().put(L"UseColorKey", true);
  }
  // ShowOptions, with the user's work on the options dialog.
  void showOptions(const std::function<void(User&, HWND)>& script) {
    EXPECT_EQ(User::during([&] { control().call(L"ShowOptions"); },
                           [&](User& user) { script(user, user.dialog(kOptions)); }),
              "");
    form_.pump();
  }
  // The same on the colour-key editor. The options dialog is ended with OK.
  void editKey(const std::function<void(User&, HWND)>& script) {
    showOptions([&](User& user, HWND options) {
      user.click(options, IDC_CMDEDITLEGEND);
      const HWND editor = user.dialog(kEditor);
      script(user, editor);
      user.untilGone(editor);
      user.click(options, IDOK);
    });
  }
  std::string kewFile() const { return readFile(host::wide(folder_.file("tiny.KEW"))); }

  static int partOf(int line, int part) { return IDC_FIRSTROW + line * ROW_PARTS + part; }
  static HWND part(HWND editor, int line, int which) {
    return GetDlgItem(editor, partOf(line, which));
  }

  support::TempFolder folder_;
  host::Form form_;
};

}  // namespace winetest
