#include <gtest/gtest.h>

#include <algorithm>

#include "AdviseSink.h"
#include "DrawnControl.h"

namespace winetest {
namespace {

using host::Picture;

using ViewObject = DrawnControl;

bool hasColour(const Picture& picture, uint32_t colour) {
  return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
}

// Where measures are converted and back, the far corner may be a pixel off, and with it the edges
// of cells and letters.
int differentPixels(const Picture& one, const Picture& other) {
  int different = 0;
  for (int y = 0; y < one.height; ++y) {
    for (int x = 0; x < one.width; ++x) different += one.at(x, y) != other.at(x, y);
  }
  return different;
}

TEST_F(ViewObject, ShowsTheSectionBeforeActivation) {
  const Picture picture = plain();
  EXPECT_TRUE(hasColour(picture, 0xF50000));  // the warmest cell
  EXPECT_TRUE(hasColour(picture, 0x4E4EF5));  // the coldest one
}

TEST_F(ViewObject, KeepsItsPlaceAndSize) {
  const Picture picture = plain();
  const Picture moved = host::takePicture(kWidth + 20, kHeight + 30, [&](HDC dc) {
    draw(dc, {20, 30, kWidth + 20, kHeight + 30});
  });
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      ASSERT_EQ(moved.at(x + 20, y + 30), picture.at(x, y)) << x << ", " << y;
    }
  }
  EXPECT_EQ(moved.at(10, 10), 0xFFFFFFU);
}

TEST_F(ViewObject, StretchesToOtherSizes) {
  const Picture picture = plain();
  const Picture twice = host::takePicture(2 * kWidth, 2 * kHeight, [&](HDC dc) {
    draw(dc, {0, 0, 2 * kWidth, 2 * kHeight});
  });
  for (int y = 0; y < kHeight; y += 7) {
    for (int x = 0; x < kWidth; x += 7) {
      ASSERT_EQ(twice.at(2 * x, 2 * y), picture.at(x, y)) << x << ", " << y;
    }
  }
}

// Hosts that measure upwards in hundredths of a millimetre get the picture upright all the same.
TEST_F(ViewObject, StandsUprightInEveryMapMode) {
  const Picture upward = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    SetMapMode(dc, MM_HIMETRIC);
    POINT corner = {kWidth, kHeight};
    DPtoLP(dc, &corner, 1);
    EXPECT_LT(corner.y, 0);
    EXPECT_EQ(draw(dc, {0, 0, corner.x, corner.y}), S_OK);
    EXPECT_EQ(GetMapMode(dc), MM_HIMETRIC);
  });
  EXPECT_LT(differentPixels(upward, plain()), kWidth * kHeight / 50);
}

TEST_F(ViewObject, GoesIntoAMetafileAndBack) {
  // The frame is told in hundredths of a millimetre of the reference device.
  const HDC screen = GetDC(nullptr);
  const RECT frame = {
      0, 0, MulDiv(kWidth, 100 * GetDeviceCaps(screen, HORZSIZE), GetDeviceCaps(screen, HORZRES)),
      MulDiv(kHeight, 100 * GetDeviceCaps(screen, VERTSIZE), GetDeviceCaps(screen, VERTRES))};
  const HDC recorder = CreateEnhMetaFileW(screen, nullptr, &frame, nullptr);
  ReleaseDC(nullptr, screen);
  ASSERT_EQ(draw(recorder, {0, 0, kWidth, kHeight}), S_OK);
  const HENHMETAFILE metafile = CloseEnhMetaFile(recorder);
  const Picture played = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    const RECT whole = {0, 0, kWidth, kHeight};
    EXPECT_TRUE(PlayEnhMetaFile(dc, metafile, &whole));
  });
  DeleteEnhMetaFile(metafile);
  EXPECT_LT(differentPixels(played, plain()), kWidth * kHeight / 50);
}

TEST_F(ViewObject, GoesIntoAnOldMetafileAndBack) {
  const HDC recorder = CreateMetaFileW(nullptr);
  ASSERT_EQ(draw(recorder, {0, 0, kWidth, kHeight}), S_OK);
  const HMETAFILE metafile = CloseMetaFile(recorder);
  const Picture played =
      host::takePicture(kWidth, kHeight, [&](HDC dc) { EXPECT_TRUE(PlayMetaFile(dc, metafile)); });
  DeleteMetaFile(metafile);
  EXPECT_TRUE(played == plain());
}

TEST_F(ViewObject, SurvivesAbsurdExtents) {
  for (const SIZEL& wanted : {SIZEL{0, 0}, SIZEL{1, 1}, SIZEL{2147483647, 2147483647},
                              SIZEL{2147483647, 1}, SIZEL{500000000, 500000000}}) {
    SIZEL extent = wanted;
    EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    object_.call(L"ReDraw");
    plain();
    SIZEL got = {};
    EXPECT_EQ(control_.ole()->GetExtent(DVASPECT_CONTENT, &got), S_OK);
    EXPECT_EQ(got.cx, wanted.cx);
    EXPECT_EQ(got.cy, wanted.cy);
  }
  SIZEL negative = {-1, 5};
  EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
  host::setExtent(object_, kWidth, kHeight);
  EXPECT_TRUE(hasColour(plain(), 0xF50000));
}

}  // namespace
}  // namespace winetest
