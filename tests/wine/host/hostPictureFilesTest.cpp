#include <objbase.h>

#include <filesystem>

#include "Form.h"
#include "HostTest.h"
#include "childProcess.h"
#include "control.h"
#include "library.h"
#include "pictureFile.h"
#include "userActions.h"

namespace winetest {
namespace {

// What the program hands out, beside what the control itself draws in this process.
class HostPictureFiles : public HostTest {
 protected:
  host::Picture drawn(int width, int height, bool profile = false, int step = 1) {
    host::setExtent(control_, width, height);
    control_.call(L"NcFile", {file("tiny.nc")});
    control_.call(L"NewSection");
    control_.call(L"AddSection", {354.5, -1.0});
    control_.call(L"AddSection", {354.5, 0.4});
    control_.call(L"EndSection");
    control_.put(L"DrawProfile", profile);
    // Every step in turn: the first one sets the range of the colours.
    for (int k = 1; k <= step; ++k) control_.call(L"SetCurrentTime", {k});
    return host::drawWithoutForm(control_, width, height);
  }
  // The picture's size in the program's window.
  SIZE view() const {
    RECT area = {};
    GetClientRect(program_->item(IDC_STAGE), &area);
    return {area.right, area.bottom};
  }
  void save(const std::wstring& name, const wchar_t* width = nullptr,
            const wchar_t* height = nullptr) {
    User& user = program_->user();
    program_->key('S', User::WithControl);
    const HWND size = user.dialog(L"Save Picture");
    if (width != nullptr) {
      user.type(GetDlgItem(size, IDC_WIDTH), width);
      user.type(GetDlgItem(size, IDC_HEIGHT), height);
    }
    user.click(size, IDOK);
    user.untilGone(size);
    chooseName(user, L"Save Picture", name);
  }
  void untilSaved() {
    program_->user().until("saved",
                           [&] { return program_->status(0) == "The picture is saved."; });
  }

  BareControl bare_;
  host::Object control_{bare_.identity()};
};

TEST_F(HostPictureFiles, ArePngOfTheViewsSize) {
  startDrawn();
  save(file("view.png"));
  untilSaved();
  const SIZE size = view();
  EXPECT_TRUE(loadPicture(file("view.png")) == drawn(size.cx, size.cy));
}

TEST_F(HostPictureFiles, ArePngOfAnySize) {
  startDrawn();
  save(file("large.png"), L"1400", L"900");
  untilSaved();
  const host::Picture saved = loadPicture(file("large.png"));
  EXPECT_EQ(saved.width, 1400);
  EXPECT_EQ(saved.height, 900);
  EXPECT_TRUE(saved == drawn(1400, 900));
}

TEST_F(HostPictureFiles, ShowTheProfilesWhenTheyAreInView) {
  startDrawn();
  program_->key('2', User::WithControl);
  program_->key(VK_RIGHT);
  program_->untilStep("2");
  save(file("profile.png"), L"400", L"300");
  untilSaved();
  const host::Picture saved = loadPicture(file("profile.png"));
  EXPECT_TRUE(saved == drawn(400, 300, true, 2));
  EXPECT_FALSE(saved == drawn(400, 300, false, 2));
}

TEST_F(HostPictureFiles, AreMetafilesThatPlayTheSamePicture) {
  startDrawn();
  save(file("view.emf"), L"500", L"400");
  untilSaved();
  const HENHMETAFILE metafile = GetEnhMetaFileW(file("view.emf").c_str());
  ASSERT_NE(metafile, nullptr);
  const host::Picture played = host::takePicture(500, 400, [&](HDC dc) {
    const RECT area = {0, 0, 500, 400};
    PlayEnhMetaFile(dc, metafile, &area);
  });
  DeleteEnhMetaFile(metafile);
  EXPECT_TRUE(played == drawn(500, 400));
}

TEST_F(HostPictureFiles, LeaveTheOldFileWhereTheyCannotBeWritten) {
  startDrawn();
  const std::wstring name = file("held.png");
  const HANDLE held = CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(held, "old", 3, &written, nullptr);
  User& user = program_->user();
  program_->key('S', User::WithControl);
  const HWND size = user.dialog(L"Save Picture");
  user.click(size, IDOK);
  user.untilGone(size);
  const HWND dialog = enterName(user, L"Save Picture", name);
  // The system asks whether the old file may go.
  HWND question = nullptr;
  user.until("the question", [&] {
    question = GetLastActivePopup(dialog);
    return question != dialog && IsWindowVisible(question);
  });
  user.click(question, IDYES);
  program_->untilMessage("The picture could not be saved.");
  // The system's own sentence ends once.
  EXPECT_TRUE(program_->message().ends_with("."));
  EXPECT_FALSE(program_->message().ends_with(".."));
  CloseHandle(held);
  EXPECT_EQ(readFile(name), "old");
  int files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
    ++files;
  }
  EXPECT_EQ(files, 2);  // nothing half-written is left beside the data set and the old file
}

TEST_F(HostPictureFiles, AreOfNoOtherKind) {
  startDrawn();
  save(file("view.bmp"));
  program_->untilMessage("its name must end in .png or .emf.");
  EXPECT_FALSE(std::filesystem::exists(folder_.file("view.bmp")));
}

TEST_F(HostPictureFiles, AskForASizeThatCanBe) {
  startDrawn();
  User& user = program_->user();
  program_->key('S', User::WithControl);
  const HWND size = user.dialog(L"Save Picture");
  EXPECT_EQ(textOf(size, IDC_WIDTH), std::to_string(view().cx));
  EXPECT_EQ(textOf(size, IDC_HEIGHT), std::to_string(view().cy));
  user.type(GetDlgItem(size, IDC_WIDTH), L"5");
  user.until("the problem", [&] {
    return textOf(size, IDC_PROBLEM) == "The width must be a whole number from 50 to 10000.";
  });
  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(size, IDOK)));
  user.click(size, IDCANCEL);
  user.untilGone(size);
  EXPECT_EQ(program_->message(), "");
}

TEST_F(HostPictureFiles, GoToTheClipboardAsABitmapAndAMetafile) {
  startDrawn();
  program_->key('C', User::WithControl);
  program_->user().until(
      "copied", [&] { return program_->status(0) == "The picture is on the clipboard."; });
  const SIZE size = view();
  const host::Picture wanted = drawn(size.cx, size.cy);
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
  const host::Picture bitmap = host::takePicture(size.cx, size.cy, [&](HDC dc) {
    const HGLOBAL memory = GetClipboardData(CF_DIB);
    ASSERT_NE(memory, nullptr);
    const auto* info = static_cast<const BITMAPINFO*>(GlobalLock(memory));
    const auto* bits = reinterpret_cast<const BYTE*>(info) + info->bmiHeader.biSize;
    SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), 0, 0, 0,
                      static_cast<UINT>(size.cy), bits, info, DIB_RGB_COLORS);
    GlobalUnlock(memory);
  });
  const host::Picture metafile = host::takePicture(size.cx, size.cy, [&](HDC dc) {
    const auto drawing = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    ASSERT_NE(drawing, nullptr);
    const RECT area = {0, 0, size.cx, size.cy};
    PlayEnhMetaFile(dc, drawing, &area);
  });
  CloseClipboard();
  EXPECT_TRUE(bitmap == wanted);
  EXPECT_TRUE(metafile == wanted);
}

// No printer stands where the tests run.
TEST_F(HostPictureFiles, AreNotPrintedWithoutAPrinter) {
  startDrawn();
  program_->command(ID_PRINT);
  program_->untilMessage("The picture could not be printed.\r\nno printer is installed.");
}

}  // namespace
}  // namespace winetest
