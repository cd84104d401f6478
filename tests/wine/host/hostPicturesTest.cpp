// What the program's windows look like, at the resolution that the system has: the pictures are
// left beside the test, for people to look at. Here the program runs within the test, because only
// its own process can read its windows back.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "HostTest.h"
#include "Picture.h"
#include "childProcess.h"
#include "library.h"
#include "window/MainWindow.h"
#include "window/run.h"

namespace winetest {
namespace {

class HostPictures : public HostTest {
 protected:
  HostPictures() {
    SetProcessDPIAware();  // before the first window
    const wchar_t* const sample = _wgetenv(L"KELVANE_SAMPLE");
    if (sample != nullptr) sample_ = sample;
  }

  bool real() const { return !sample_.empty(); }
  std::wstring dataSet() const { return real() ? sample_ : file("tiny.nc"); }
  std::wstring corner(int k) const {
    const wchar_t* const corners[2][4] = {{L"354.5", L"-1", L"354.5", L"0.4"},
                                          {L"285.25", L"32", L"292.75", L"35.1"}};
    return corners[real() ? 1 : 0][k];
  }

  static int dpi() {
    const HDC screen = GetDC(nullptr);
    const int inch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return inch;
  }

  // The window with all that is on it, once it is painted.
  void look(User& user, HWND window, const wchar_t* name) {
    user.onMainThread([window] {
      RedrawWindow(window, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    });
    RECT place = {};
    GetWindowRect(window, &place);
    const int width = place.right - place.left, height = place.bottom - place.top;
    const host::Picture picture = host::takePicture(width, height, [&](HDC dc) {
      // Without the clipping that the window itself asks for.
      const HDC source = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
      BitBlt(dc, 0, 0, width, height, source, 0, 0, SRCCOPY);
      ReleaseDC(window, source);
    });
    const std::filesystem::path folder =
        std::filesystem::path(programFolder()) / ("host-" + std::to_string(dpi()));
    std::filesystem::create_directories(folder);
    host::savePicture(picture, (folder / name).wstring() + L".png");
    RECT screen = {}, within = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_TRUE(IntersectRect(&within, &place, &screen) && EqualRect(&within, &place))
        << host::narrow(name);
    EXPECT_EQ(clippedIn(window), std::vector<std::string>()) << host::narrow(name);
  }

  // Captions of labels and buttons that do not fit into their control.
  static std::vector<std::string> clippedIn(HWND window) {
    std::vector<std::string> clipped;
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      wchar_t kind[16] = {};
      GetClassNameW(child, kind, 16);
      const bool label = std::wstring(kind) == L"Static", button = std::wstring(kind) == L"Button";
      const auto style = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE));
      if (!IsWindowVisible(child) || (!label && !button) || (style & BS_ICON) != 0) continue;
      RECT area = {}, need = {};
      GetClientRect(child, &area);
      need.right = area.right;
      const HDC dc = GetDC(child);
      const HGDIOBJ before =
          SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
      DrawTextW(dc, host::wide(textOf(child)).c_str(), -1, &need,
                DT_CALCRECT | (button ? DT_SINGLELINE : DT_WORDBREAK));
      SelectObject(dc, before);
      ReleaseDC(child, dc);
      if (button) need.right += 6, need.bottom += 2;
      if (need.right > area.right || need.bottom > area.bottom) clipped.push_back(textOf(child));
    }
    return clipped;
  }

 private:
  std::wstring sample_;
};

TEST_F(HostPictures, OfEveryWindow) {
  const auto run = [&] {
    form::MainWindow window;
    window.show(SW_SHOWNORMAL);
    form::run(window, dataSet());
  };
  EXPECT_EQ(User::during(run, [&](User& user) {
    HWND path = user.dialog(L"Path");
    const HWND window = GetWindow(path, GW_OWNER);
    const auto command = [&](int id) {
      PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(id), 0);
    };
    const auto selectRow = [&](int row) {
      LVITEMW item = {};
      item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
      SendMessageW(GetDlgItem(path, IDC_POINTS), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    };
    user.type(GetDlgItem(path, IDC_LONGITUDE), corner(0));
    user.type(GetDlgItem(path, IDC_LATITUDE), corner(1));
    look(user, path, L"path-wrong");
    selectRow(1);
    user.type(GetDlgItem(path, IDC_LONGITUDE), corner(2));
    user.type(GetDlgItem(path, IDC_LATITUDE), corner(3));
    look(user, path, L"path");
    user.click(path, IDOK);
    user.untilGone(path);
    const auto step = [&] { return textOf(window, IDC_STEP); };
    user.until("a step", [&] { return step() == "1"; });
    if (real()) {
      for (int k = 2; k <= 5; ++k) {
        command(ID_NEXT);
        user.until("the next step", [&] { return step() == std::to_string(k); });
      }
    }
    look(user, window, L"window");
    SetWindowTextW(GetDlgItem(window, IDC_STEP), L"99");
    SetForegroundWindow(window);
    user.press(GetDlgItem(window, IDC_STEP));
    user.until("the caret", [&] { return user.focus() == GetDlgItem(window, IDC_STEP); });
    user.key(VK_RETURN);
    user.until("a message", [&] { return IsWindowVisible(GetDlgItem(window, IDC_MESSAGE)) != 0; });
    look(user, window, L"message");
    user.key(VK_ESCAPE);
    user.until("no message", [&] { return IsWindowVisible(GetDlgItem(window, IDC_MESSAGE)) == 0; });
    const auto dialog = [&](int id, const wchar_t* caption, const wchar_t* name) {
      command(id);
      const HWND opened = user.dialog(caption);
      look(user, opened, name);
      user.click(opened, IDCANCEL);
      user.untilGone(opened);
    };
    dialog(ID_OPEN_ADDRESS, L"Open Address", L"address");
    dialog(ID_SAVE_PICTURE, L"Save Picture", L"save");
    command(ID_ABOUT);
    const HWND about = user.dialog(L"About KelvaneHost");
    look(user, about, L"about");
    user.click(about, IDOK);
    user.untilGone(about);
    // As narrow as it can be.
    RECT screen = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    SetWindowPos(window, nullptr, 0, 0, 1, std::min<int>(600 * dpi() / 96, screen.bottom),
                 SWP_NOZORDER);
    look(user, window, L"narrow");
    PostMessageW(window, WM_CLOSE, 0, 0);
  }), "");
}

TEST_F(HostPictures, OfTheWindowWithoutAControl) {
  const auto regsvr32 = [](const std::wstring& options) {
    return runProgram(L"regsvr32.exe /s " + options + L" \"" + libraryPath() + L"\"").status;
  };
  ASSERT_EQ(regsvr32(L"/u"), 0U);
  const auto run = [] {
    form::MainWindow window;
    window.show(SW_SHOWNORMAL);
    form::run(window, L"");
  };
  EXPECT_EQ(User::during(run, [&](User& user) {
    HWND window = nullptr;
    user.until("the window", [&] {
      window = FindWindowW(form::MainWindow::kClass, nullptr);
      return window != nullptr && IsWindowVisible(window);
    });
    look(user, window, L"no-control");
    PostMessageW(window, WM_CLOSE, 0, 0);
  }), "");
  EXPECT_EQ(regsvr32(L""), 0U);
}

}  // namespace
}  // namespace winetest
