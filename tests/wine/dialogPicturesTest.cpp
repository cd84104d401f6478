#include <filesystem>
#include <vector>

#include "DialogTest.h"

// What every dialog looks like, at the resolution and in the font that the system has: the
// pictures are left beside the program, for people to look at.
namespace winetest {
namespace {

// In true pixels, not in ones that the system makes larger afterwards.
const BOOL aware = SetProcessDPIAware();

std::wstring classOf(HWND window) {
  wchar_t kind[32] = {};
  GetClassNameW(window, kind, 32);
  return kind;
}

// Where a caption's first letter and its last must find room, in pixels of the control.
SIZE needOf(HWND control, const std::string& caption) {
  const HDC dc = GetDC(control);
  const HGDIOBJ before =
      SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  RECT area = {};
  DrawTextW(dc, host::wide(caption).c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(dc, before);
  ReleaseDC(control, dc);
  return {area.right, area.bottom};
}

// Captions that do not fit into their control.
std::vector<std::string> clippedIn(HWND dialog) {
  std::vector<std::string> clipped;
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    const std::wstring kind = classOf(child);
    const auto style = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE));
    const bool button = kind == L"Button";
    RECT area = {};
    GetClientRect(child, &area);
    if (!IsWindowVisible(child) || area.right == 0 || (!button && kind != L"Static")) continue;
    std::string caption = textOf(child);
    if (button && (style & BS_TYPEMASK) == BS_OWNERDRAW) {
      if (caption.starts_with("Delete"))
        caption = "Delete";
      else
        continue;
    }
    SIZE need = needOf(child, caption);
    const bool option = button && (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    const bool frame = button && (style & BS_TYPEMASK) == BS_GROUPBOX;
    if (option) need.cx += GetSystemMetrics(SM_CXMENUCHECK) + 4;
    if (button && !option && !frame) need.cx += 8, need.cy += 4;
    if (need.cx > area.right || need.cy > area.bottom) clipped.push_back(caption);
  }
  return clipped;
}

// Captions of what does not lie within its dialog altogether.
std::vector<std::string> outsideOf(HWND dialog) {
  std::vector<std::string> outside;
  RECT area = {};
  GetClientRect(dialog, &area);
  MapWindowPoints(dialog, nullptr, reinterpret_cast<POINT*>(&area), 2);
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    RECT place = {}, within = {};
    GetWindowRect(child, &place);
    if (!IsWindowVisible(child) || IsRectEmpty(&place)) continue;
    IntersectRect(&within, &place, &area);
    if (!EqualRect(&within, &place)) outside.push_back(textOf(child));
  }
  return outside;
}

// The user's settings of windows for as long as this lives.
class Settings {
 public:
  Settings() {
    before_.cbSize = sizeof before_;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof before_, &before_, 0);
  }
  ~Settings() { put(before_); }
  void put(int percentOfLetters, int caption) {
    NONCLIENTMETRICSW metrics = before_;
    metrics.lfMessageFont.lfHeight = metrics.lfMessageFont.lfHeight * percentOfLetters / 100;
    if (caption != 0) metrics.iCaptionHeight = caption;
    put(metrics);
  }

 private:
  static void put(NONCLIENTMETRICSW metrics) {
    EXPECT_TRUE(SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
  }
  NONCLIENTMETRICSW before_ = {};
};

class DialogPictures : public DialogTest {
 protected:
  void look(User& user, HWND dialog, const std::wstring& name) {
    const host::Picture picture = user.shoot(dialog);
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    const std::filesystem::path folder =
        std::filesystem::path(programFolder()) / ("dialogs-" + std::to_string(dpi) + kind_);
    std::filesystem::create_directories(folder);
    host::savePicture(picture, (folder / (name + L".png")).wstring());
    EXPECT_EQ(clippedIn(dialog), std::vector<std::string>()) << host::narrow(name);
    EXPECT_EQ(outsideOf(dialog), std::vector<std::string>()) << host::narrow(name);
    // In the middle of the screen.
    RECT place = {};
    GetWindowRect(dialog, &place);
    EXPECT_EQ(place.left, (GetSystemMetrics(SM_CXSCREEN) - picture.width) / 2);
    EXPECT_EQ(place.top, (GetSystemMetrics(SM_CYSCREEN) - picture.height) / 2);
  }

  void lookAtAll() {
    control().call(L"NewColorKey");
    for (int k = 0; k < 20; ++k) {
      const int colour = 255 - 13 * k + 256 * (k < 10 ? 25 * k : 25 * (19 - k)) + 65536 * 13 * k;
      control().call(L"AddColorKey", {12 + 0.25 * k, 12.25 + 0.25 * k, colour});
    }
    showOptions([&](User& user, HWND options) {
      look(user, options, L"frmOptions");
      user.click(options, IDC_CMDEDITLEGEND);
      const HWND editor = user.dialog(kEditor);
      look(user, editor, L"frmColorKey");
      user.click(editor, IDC_CMDAUTODIV);
      const HWND division = user.dialog(kAutoDiv);
      look(user, division, L"frmAutoDiv");
      user.type(GetDlgItem(division, IDC_FLDMAXVAL), L"15m");
      user.until("a mark", [&] { return !textOf(division, IDC_PROBLEM).empty(); });
      look(user, division, L"frmAutoDiv-wrong");
      user.click(division, IDCANCEL);
      user.untilGone(division);
      user.click(editor, IDC_CMDCOLORRAMP);
      const HWND ramp = user.dialog(kColorRamp);
      look(user, ramp, L"frmColorRamp");
      user.click(ramp, IDCANCEL);
      user.untilGone(ramp);
      user.click(editor, IDOK);
      user.untilGone(editor);
      user.click(options, IDOK);
    });
    // With OK, the keys of two variables go to the file.
    control().call(L"SetVarByName", {L"salt"});
    editKey([&](User& user, HWND editor) { user.click(editor, IDOK); });
    showOptions([&](User& user, HWND options) {
      user.click(options, IDC_CMDEDITLEGEND);
      const HWND editor = user.dialog(kEditor);
      user.click(editor, IDC_CMDIMPORT);
      user.chooseFile(folder_.file("tiny.KEW"));
      const HWND names = user.dialog(kVarName);
      look(user, names, L"frmVarName");
      user.click(names, IDCANCEL);
      user.untilGone(names);
      user.click(editor, IDCANCEL);
      user.untilGone(editor);
      user.click(options, IDOK);
    });
  }

  std::string kind_;
};

TEST_F(DialogPictures, OfEveryDialog) { lookAtAll(); }

// A user who wants larger letters gets larger dialogs.
TEST_F(DialogPictures, OfEveryDialogInLargerLetters) {
  Settings settings;
  settings.put(150, 0);
  kind_ = "-large";
  lookAtAll();
}

// Letters, or a frame, for which the screen is too small: nothing is cut off all the same.
TEST_F(DialogPictures, OfTheEditorOnASmallScreen) {
  makeKey(40);
  RECT screen = {};
  ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0));
  const struct {
    const char* name;
    int percentOfLetters, caption;
  } rows[] = {{"letters", 400, 0}, {"frame", 100, 400}, {"both", 400, 200}};
  for (const auto& row : rows) {
    Settings settings;
    settings.put(row.percentOfLetters, row.caption);
    editKey([&](User& user, HWND editor) {
      RECT place = {};
      GetWindowRect(editor, &place);
      EXPECT_LE(place.right - place.left, screen.right - screen.left) << row.name;
      EXPECT_LE(place.bottom - place.top, screen.bottom - screen.top) << row.name;
      EXPECT_EQ(outsideOf(editor), std::vector<std::string>()) << row.name;
      EXPECT_EQ(clippedIn(editor), std::vector<std::string>()) << row.name;
      PostMessageW(editor, WM_VSCROLL, SB_BOTTOM,
                   reinterpret_cast<LPARAM>(GetDlgItem(editor, IDC_VSCROLL1)));
      user.until("the last row", [&] {
        int last = 0;
        while (IsWindowVisible(part(editor, last + 1, ROW_NUMBER))) ++last;
        return textOf(part(editor, last, ROW_NUMBER)) == "40";
      });
      user.click(editor, IDCANCEL);
    });
  }
}

}  // namespace
}  // namespace winetest
