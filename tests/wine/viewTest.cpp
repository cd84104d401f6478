#include <gtest/gtest.h>

#include <algorithm>

#include "DrawnControl.h"

namespace winetest {
namespace {

using host::Picture;

using View = DrawnControl;

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

TEST_F(View, ShowsTheSectionBeforeActivation) {
  const Picture picture = plain();
  EXPECT_TRUE(hasColour(picture, 0xF50000));  // the warmest cell
  EXPECT_TRUE(hasColour(picture, 0x4E4EF5));  // the coldest one
}

TEST_F(View, KeepsItsPlaceAndSize) {
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

TEST_F(View, StretchesToOtherSizes) {
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
TEST_F(View, StandsUprightInEveryMapMode) {
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

TEST_F(View, GoesIntoAMetafileAndBack) {
  // The frame is told in hundredths of a millimetre of the reference device.
  const HDC screen = GetDC(nullptr);
  const RECT frame = {0, 0,
                      MulDiv(kWidth, 100 * GetDeviceCaps(screen, HORZSIZE),
                             GetDeviceCaps(screen, HORZRES)),
                      MulDiv(kHeight, 100 * GetDeviceCaps(screen, VERTSIZE),
                             GetDeviceCaps(screen, VERTRES))};
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

TEST_F(View, RefusesOtherAspectsAndMissingPlaces) {
  host::takePicture(8, 8, [&](HDC dc) {
    EXPECT_EQ(draw(dc, {0, 0, 8, 8}, DVASPECT_ICON), DV_E_DVASPECT);
    EXPECT_EQ(control_.view()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, nullptr,
                                    nullptr, nullptr, 0),
              E_POINTER);
  });
  SIZEL extent = {};
  EXPECT_EQ(control_.view()->GetExtent(DVASPECT_THUMBNAIL, -1, nullptr, &extent), DV_E_DVASPECT);
  EXPECT_EQ(control_.view()->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
}

TEST_F(View, SurvivesAbsurdExtents) {
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

class CountingSink final : public IAdviseSink {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** answer) override {
    *answer = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
  void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { ++views; }
  void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
  void STDMETHODCALLTYPE OnSave() override {}
  void STDMETHODCALLTYPE OnClose() override { ++closes; }

  virtual ~CountingSink() = default;
  ULONG references = 1;
  int views = 0, closes = 0;
};

TEST_F(View, AnnouncesChanges) {
  CountingSink sink;
  ASSERT_EQ(control_.view()->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, &sink), S_OK);
  EXPECT_EQ(sink.views, 1);
  object_.call(L"ReDraw");
  EXPECT_EQ(sink.views, 2);
  DWORD aspects = 0, flags = 0;
  IAdviseSink* told = nullptr;
  ASSERT_EQ(control_.view()->GetAdvise(&aspects, &flags, &told), S_OK);
  EXPECT_EQ(told, &sink);
  told->Release();
  EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
  ASSERT_EQ(control_.view()->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, &sink), S_OK);
  object_.call(L"ReDraw");
  object_.call(L"ReDraw");
  EXPECT_EQ(sink.views, 3);
  EXPECT_EQ(sink.references, 1U);
  DWORD connection = 0;
  ASSERT_EQ(control_.ole()->Advise(&sink, &connection), S_OK);
  EXPECT_EQ(control_.ole()->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(sink.closes, 1);
  EXPECT_EQ(control_.ole()->Unadvise(connection), S_OK);
  EXPECT_EQ(sink.references, 1U);
}

}  // namespace
}  // namespace winetest
