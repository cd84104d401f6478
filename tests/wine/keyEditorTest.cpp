#include <algorithm>

#include "DialogTest.h"

namespace winetest {
namespace {

// The user at the colour-key editor: what reaches the key and its file.
class KeyEditor : public DialogTest {
 protected:
  // Whether the key file has a text.
  bool fileHas(const std::string& text) const { return kewFile().find(text) != std::string::npos; }
};

TEST_F(KeyEditor, WritesWhatWasTypedToTheFile) {
  // Every value of the section is in one of the divisions.
  control().call(L"NewColorKey");
  control().call(L"AddColorKey", {-500.0, 1.0, 0});
  control().call(L"AddColorKey", {1.0, 500.0, 255});
  control().put(L"UseColorKey", true);
  control().call(L"ReDraw");
  form_.pump();
  const auto painted = [this](uint32_t colour) {
    const host::Picture picture = form_.shoot();
    return std::count(picture.pixels.begin(), picture.pixels.end(), colour);
  };
  const auto before = painted(0xFF0000);
  EXPECT_GT(before, 1000);
  EXPECT_EQ(painted(0x112233), 0);
  editKey([](User& user, HWND editor) {
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "-500");
    EXPECT_EQ(textOf(part(editor, 1, ROW_FLDHIGHRANGE)), "500");
    user.type(part(editor, 0, ROW_FLDLOWRANGE), L"-2.5");
    user.type(part(editor, 1, ROW_FLDHIGHRANGE), L"1e2");
    user.click(editor, partOf(1, ROW_LBLCOLOR));
    user.chooseColor(RGB(0x11, 0x22, 0x33));
    user.until("the swatch", [&] {
      return textOf(part(editor, 1, ROW_LBLCOLOR)) == "Color of division 2: #112233";
    });
    user.click(editor, IDOK);
  });
  EXPECT_TRUE(fileHas("<low>-2.5</low><high>1</high><color>0</color>")) << kewFile();
  EXPECT_TRUE(fileHas("<low>1</low><high>100</high><color>3351057</color>")) << kewFile();
  EXPECT_EQ(painted(0x112233), before) << "the options dialog ended with OK";
  EXPECT_EQ(painted(0xFF0000), 0);
}

TEST_F(KeyEditor, LeavesKeyAndFileAloneWhenCancelled) {
  makeKey(2);
  for (const bool byBox : {false, true}) {
    editKey([byBox](User& user, HWND editor) {
      EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "0");
      user.type(part(editor, 0, ROW_FLDLOWRANGE), L"7");
      user.click(editor, IDC_CMDADD);
      if (byBox)
        PostMessageW(editor, WM_CLOSE, 0, 0);
      else
        user.click(editor, IDCANCEL);
    });
    EXPECT_EQ(kewFile(), "");
  }
}

TEST_F(KeyEditor, KeepsAColorWhoseChoiceIsCancelled) {
  makeKey(1);
  editKey([](User& user, HWND editor) {
    user.click(editor, partOf(0, ROW_LBLCOLOR));
    user.mixColor(user.dialog(kChooser), RGB(12, 34, 56));
    user.chooseColor({});
    user.onMainThread([] {});  // whatever the editor does after it is done
    EXPECT_EQ(textOf(part(editor, 0, ROW_LBLCOLOR)), "Color of division 1: #000000");
    user.click(editor, IDCANCEL);
  });
}

TEST_F(KeyEditor, PresetsTheColorChooser) {
  control().call(L"NewColorKey");
  control().call(L"AddColorKey", {0.0, 1.0, 0x332211});
  editKey([](User& user, HWND editor) {
    user.click(editor, partOf(0, ROW_LBLCOLOR));
    const HWND chooser = user.dialog(kChooser);
    EXPECT_EQ(GetWindow(chooser, GW_OWNER), editor);
    EXPECT_FALSE(IsWindowEnabled(editor));
    EXPECT_EQ(textOf(chooser, 706) + " " + textOf(chooser, 707) + " " + textOf(chooser, 708),
              "17 34 51");
    user.chooseColor({});
    user.click(editor, IDCANCEL);
  });
}

TEST_F(KeyEditor, AddsAndDeletesRows) {
  makeKey(2);
  editKey([](User& user, HWND editor) {
    const auto shown = [&](int line) {
      return IsWindowVisible(part(editor, line, ROW_FLDLOWRANGE)) != 0;
    };
    const HWND add = GetDlgItem(editor, IDC_CMDADD);
    const auto topOf = [](HWND control) {
      RECT place = {};
      GetWindowRect(control, &place);
      return place.top;
    };
    const int firstAdd = topOf(add), pitch = topOf(part(editor, 1, ROW_FLDLOWRANGE)) -
                                             topOf(part(editor, 0, ROW_FLDLOWRANGE));
    user.click(editor, IDC_CMDADD);
    user.until("the third row", [&] { return shown(2) && topOf(add) > firstAdd; });
    EXPECT_EQ(textOf(part(editor, 2, ROW_FLDLOWRANGE)), "1");
    EXPECT_EQ(textOf(part(editor, 2, ROW_FLDHIGHRANGE)), "2");
    EXPECT_EQ(textOf(part(editor, 2, ROW_NUMBER)), "3");
    EXPECT_EQ(topOf(add), firstAdd + pitch);
    user.type(part(editor, 2, ROW_FLDLOWRANGE), L"5");
    user.click(editor, partOf(0, ROW_CMDDELETE));
    user.until("one row less", [&] { return !shown(2) && topOf(add) == firstAdd; });
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "1");
    EXPECT_EQ(textOf(part(editor, 1, ROW_FLDLOWRANGE)), "5");
    user.click(editor, partOf(0, ROW_CMDDELETE));
    user.until("one row left, which stays",
               [&] { return !shown(1) && !IsWindowEnabled(part(editor, 0, ROW_CMDDELETE)); });
    user.until("the focus", [&] { return user.focus() == part(editor, 0, ROW_FLDLOWRANGE); });
    user.click(editor, IDOK);
  });
  EXPECT_TRUE(
      fileHas("<variable name=\"temp\"><division><low>5</low><high>2</high>"
              "<color>1</color></division></variable>"))
      << kewFile();
}

TEST_F(KeyEditor, MakesARowForAnEmptyKey) {
  control().call(L"NewColorKey");
  editKey([](User& user, HWND editor) {
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDHIGHRANGE)), "1");
    EXPECT_EQ(textOf(part(editor, 0, ROW_LBLCOLOR)), "Color of division 1: #FFFFFF");
    user.click(editor, IDOK);
  });
  EXPECT_TRUE(fileHas("<low>0</low><high>1</high><color>16777215</color>")) << kewFile();
}

TEST_F(KeyEditor, DividesARange) {
  makeKey(3);
  editKey([](User& user, HWND editor) {
    user.click(editor, IDC_CMDAUTODIV);
    const HWND division = user.dialog(kAutoDiv);
    EXPECT_EQ(textOf(division, IDC_FLDMINVAL), "0");
    EXPECT_EQ(textOf(division, IDC_FLDMAXVAL), "3");
    EXPECT_EQ(textOf(division, IDC_FLDDIVISIONS), "3");
    user.type(GetDlgItem(division, IDC_FLDMINVAL), L"10");
    user.type(GetDlgItem(division, IDC_FLDMAXVAL), L"0");
    user.type(GetDlgItem(division, IDC_FLDDIVISIONS), L"2");
    user.click(division, IDOK);
    user.untilGone(division);
    user.until("two rows", [&] { return !IsWindowVisible(part(editor, 2, ROW_FLDLOWRANGE)); });
    user.click(editor, IDOK);
  });
  EXPECT_TRUE(fileHas("<low>10</low><high>15</high>")) << kewFile();
  EXPECT_TRUE(fileHas("<low>15</low><high>20</high>")) << kewFile();
}

TEST_F(KeyEditor, TellsOfARangeThatCannotBeDivided) {
  makeKey(3);
  editKey([this](User& user, HWND editor) {
    for (int time = 0; time < 2; ++time) {
      user.click(editor, IDC_CMDAUTODIV);
      const HWND division = user.dialog(kAutoDiv);
      user.type(GetDlgItem(division, IDC_FLDDIVISIONS), L"0");
      user.click(division, IDOK);
      user.untilGone(division);
      user.until("the reason", [&] {
        return textOf(editor, IDC_PROBLEM) == "Nothing was changed: Division by zero.";
      });
      EXPECT_EQ(textOf(part(editor, 2, ROW_FLDHIGHRANGE)), "3");
      user.type(part(editor, 0, ROW_FLDLOWRANGE), time == 0 ? L"4" : L"8");
      user.until("no reason", [&] { return textOf(editor, IDC_PROBLEM).empty(); });
    }
    user.click(editor, IDCANCEL);
  });
  EXPECT_EQ(host::narrow(control().get(L"ErrorMessage").text()),
            "frmColorKey cmdAutoDiv: 11, KelvaneCtl, Division by zero");
}

TEST_F(KeyEditor, HoldsAsManyRowsAsAKeyFileDoes) {
  makeKey(1);
  editKey([](User& user, HWND editor) {
    const auto divide = [&](const wchar_t* divisions) {
      user.click(editor, IDC_CMDAUTODIV);
      const HWND division = user.dialog(kAutoDiv);
      user.type(GetDlgItem(division, IDC_FLDDIVISIONS), divisions);
      user.click(division, IDOK);
      user.untilGone(division);
    };
    divide(L"32768");
    user.until("the reason",
               [&] { return textOf(editor, IDC_PROBLEM) == "Nothing was changed: Overflow."; });
    EXPECT_FALSE(IsWindowVisible(part(editor, 1, ROW_FLDLOWRANGE)));
    divide(L"32767");
    user.until("the rows", [&] { return IsWindowVisible(part(editor, 11, ROW_FLDLOWRANGE)); });
    EXPECT_EQ(textOf(editor, IDC_PROBLEM), "");
    const HWND bar = GetDlgItem(editor, IDC_VSCROLL1);
    PostMessageW(editor, WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(bar));
    user.until("the last row", [&] { return textOf(part(editor, 11, ROW_NUMBER)) == "32767"; });
    EXPECT_EQ(GetScrollPos(bar, SB_CTL), 32755);
    user.click(editor, IDC_CMDADD);
    user.until("the reason",
               [&] { return textOf(editor, IDC_PROBLEM) == "Nothing was changed: Overflow."; });
    EXPECT_EQ(textOf(part(editor, 11, ROW_NUMBER)), "32767");
    user.click(editor, IDCANCEL);
  });
}

TEST_F(KeyEditor, LeavesItsRowsAloneWhenNothingIsChosen) {
  makeKey(2);
  editKey([](User& user, HWND editor) { user.click(editor, IDOK); });
  makeKey(3);
  // A file that is no key file has no names to choose from.
  for (const char* name : {"tiny.KEW", "tiny.nc"}) {
    editKey([&](User& user, HWND editor) {
      user.click(editor, IDC_CMDIMPORT);
      user.chooseFile(folder_.file(name));
      const HWND names = user.dialog(kVarName);
      EXPECT_EQ(SendMessageW(GetDlgItem(names, IDC_LSTVARNAMES), LB_GETCOUNT, 0, 0),
                name == std::string("tiny.KEW") ? 1 : 0);
      user.click(names, IDOK);
      user.untilGone(names);
      user.until("the editor is back", [&] { return IsWindowEnabled(editor) != 0; });
      EXPECT_EQ(textOf(part(editor, 2, ROW_FLDHIGHRANGE)), "3");
      user.click(editor, IDCANCEL);
    });
  }
}

TEST_F(KeyEditor, PaintsARamp) {
  makeKey(10);
  editKey([](User& user, HWND editor) {
    user.click(editor, IDC_CMDCOLORRAMP);
    const HWND ramp = user.dialog(kColorRamp);
    EXPECT_EQ(textOf(ramp, IDC_LBLFIRSTCOLOR), "First color: #FF0000");
    EXPECT_EQ(textOf(ramp, IDC_LBLLASTCOLOR), "Last color: #0000FF");
    user.click(ramp, IDC_LBLFIRSTCOLOR);
    user.chooseColor(RGB(0, 0, 0));
    user.until("the swatch",
               [&] { return textOf(ramp, IDC_LBLFIRSTCOLOR) == "First color: #000000"; });
    user.click(ramp, IDC_LBLLASTCOLOR);
    user.chooseColor(RGB(255, 0, 0));
    user.click(ramp, IDOK);
    user.untilGone(ramp);
    user.until("the colours", [&] {
      return textOf(part(editor, 9, ROW_LBLCOLOR)) == "Color of division 10: #EA0000";
    });
    EXPECT_EQ(textOf(part(editor, 0, ROW_LBLCOLOR)), "Color of division 1: #000000");
    user.click(editor, IDOK);
  });
  EXPECT_TRUE(fileHas("<low>9</low><high>10</high><color>234</color>")) << kewFile();
}

TEST_F(KeyEditor, ImportsAVariablesKey) {
  makeKey(2);
  editKey([](User& user, HWND editor) { user.click(editor, IDOK); });  // temp into the file
  ASSERT_TRUE(fileHas("<variable name=\"temp\">"));
  control().call(L"SetVarByName", {L"salt"});
  makeKey(5);
  editKey([this](User& user, HWND editor) {
    wchar_t folder[MAX_PATH] = {}, now[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    user.click(editor, IDC_CMDIMPORT);
    user.chooseFile(folder_.file("tiny.KEW"));
    HWND names = user.dialog(kVarName);
    EXPECT_EQ(GetWindow(names, GW_OWNER), editor);
    user.click(names, IDCANCEL);
    user.untilGone(names);
    EXPECT_TRUE(IsWindowVisible(part(editor, 4, ROW_FLDLOWRANGE)));
    user.click(editor, IDC_CMDIMPORT);
    user.chooseFile(folder_.file("tiny.KEW"));
    names = user.dialog(kVarName);
    const HWND list = GetDlgItem(names, IDC_LSTVARNAMES);
    ASSERT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), LB_ERR);
    // A double click on the name.
    const LPARAM first = MAKELPARAM(4, 4);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, first);
    PostMessageW(list, WM_LBUTTONUP, 0, first);
    PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, first);
    PostMessageW(list, WM_LBUTTONUP, 0, first);
    user.untilGone(names);
    user.until("two rows", [&] { return !IsWindowVisible(part(editor, 2, ROW_FLDLOWRANGE)); });
    GetCurrentDirectoryW(MAX_PATH, now);
    EXPECT_EQ(host::narrow(now), host::narrow(folder));
    user.click(editor, IDOK);
  });
  EXPECT_TRUE(fileHas("<variable name=\"temp\">") && fileHas("<variable name=\"salt\">"));
  EXPECT_FALSE(fileHas("<low>4</low>")) << kewFile();
}

}  // namespace
}  // namespace winetest
