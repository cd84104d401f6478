#include <windows.h>

#include <map>

#include "SampleTest.h"

namespace winetest {
namespace {

// How many pixels have each colour when a metafile is played at a size.
std::map<COLORREF, int> coloursOf(HENHMETAFILE metafile, int width, int height) {
  const HDC dc = CreateCompatibleDC(nullptr);
  BITMAPINFO form = {};
  form.bmiHeader.biSize = sizeof form.bmiHeader;
  form.bmiHeader.biWidth = width;
  form.bmiHeader.biHeight = height;
  form.bmiHeader.biPlanes = 1;
  form.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(dc, bitmap);
  const RECT all = {0, 0, width, height};
  PlayEnhMetaFile(dc, metafile, &all);
  std::map<COLORREF, int> colours;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) ++colours[GetPixel(dc, x, y)];
  }
  SelectObject(dc, before);
  DeleteObject(bitmap);
  DeleteDC(dc);
  return colours;
}

// The console sample for Delphi, with floating-point exceptions on, as its compiler leaves them.
class DelphiSample : public SampleTest {
 protected:
  static Outcome steps(const std::vector<std::wstring>& arguments) {
    return run(L"\"" + sample(L"SectionSteps.exe") + L"\"", arguments);
  }
};

TEST_F(DelphiSample, TellsTheStory) {
  const Outcome outcome = steps({makeGulfSet()});
  EXPECT_EQ(outcome.output, kGulfStory);
  EXPECT_EQ(outcome.status, 0U);
  EXPECT_TRUE(outcome.boxes.empty());
}

TEST_F(DelphiSample, SavesThePicture) {
  const Outcome outcome = steps({makeGulfSet(), file("picture.emf")});
  EXPECT_EQ(outcome.output, kGulfStory);
  EXPECT_EQ(outcome.status, 0U);
  const HENHMETAFILE picture = GetEnhMetaFileW(file("picture.emf").c_str());
  ASSERT_NE(picture, nullptr);
  ENHMETAHEADER header = {};
  GetEnhMetaFileHeader(picture, sizeof header, &header);
  EXPECT_EQ(header.rclBounds.right - header.rclBounds.left, 639);
  EXPECT_EQ(header.rclBounds.bottom - header.rclBounds.top, 479);
  // The first time step again, which has nothing on the path below 12 degrees.
  auto colours = coloursOf(picture, 640, 480);
  DeleteEnhMetaFile(picture);
  EXPECT_GT(colours[RGB(178, 34, 34)], 10'000);  // the warmest
  EXPECT_GT(colours[RGB(255, 165, 0)], 10'000);
  EXPECT_GT(colours[RGB(255, 255, 255)], 10'000);
  EXPECT_LT(colours[RGB(70, 130, 180)], 2000);  // colder: in the legend only
}

TEST_F(DelphiSample, TellsHowToUseIt) {
  const Outcome outcome = steps({});
  EXPECT_EQ(outcome.output, "usage: SectionSteps FILE [PICTURE.emf]\n");
  EXPECT_EQ(outcome.status, 2U);
}

TEST_F(DelphiSample, TellsWhyNot) {
  Outcome outcome = steps({makeElsewhereSet()});
  EXPECT_EQ(outcome.output, std::string("1 temp\n2 salt\n") + kTooShort + "\n");
  EXPECT_EQ(outcome.status, 1U);
  outcome = steps({makeGulfSet(), file("no-such-folder\\picture.emf")});
  EXPECT_EQ(outcome.output.substr(0, std::string(kGulfStory).size()), kGulfStory);
  EXPECT_NE(outcome.output, kGulfStory);
  EXPECT_EQ(outcome.status, 1U);
}

}  // namespace
}  // namespace winetest
