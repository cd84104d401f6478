#include "AdviseSink.h"
#include "DrawnControl.h"

namespace winetest {
namespace {

using host::Picture;

// The picture wherever, and however, a host wants it drawn.
class ViewRectangles : public DrawnControl {
 protected:
  Picture drawnIn(const RECTL& bounds) {
    return host::takePicture(kWidth, kHeight, [&](HDC dc) { EXPECT_EQ(draw(dc, bounds), S_OK); });
  }
  static Picture blank() {
    return host::takePicture(kWidth, kHeight, [](HDC) {});
  }
};

TEST_F(ViewRectangles, WithCornersInAnyOrderHoldTheSamePicture) {
  const Picture picture = plain();
  EXPECT_TRUE(drawnIn({kWidth, kHeight, 0, 0}) == picture);
  EXPECT_TRUE(drawnIn({kWidth, 0, 0, kHeight}) == picture);
  EXPECT_TRUE(drawnIn({0, kHeight, kWidth, 0}) == picture);
}

TEST_F(ViewRectangles, WithoutAreaHoldNothing) {
  EXPECT_TRUE(drawnIn({10, 10, 10, 90}) == blank());
  EXPECT_TRUE(drawnIn({10, 10, 90, 10}) == blank());
  EXPECT_TRUE(drawnIn({0, 0, 0, 0}) == blank());
}

TEST_F(ViewRectangles, OutsideOfTheDeviceChangeNothing) {
  EXPECT_TRUE(drawnIn({-500, 0, -10, 100}) == blank());
  EXPECT_TRUE(drawnIn({kWidth, 0, kWidth + 50, 100}) == blank());
}

TEST_F(ViewRectangles, OfEnormousSizeAreCutOffOrRefused) {
  // The middle of the picture, so much enlarged that one pixel of it fills the device.
  const LONG away = 20000000;
  const Picture middle = drawnIn({-away, -away, away, away});
  EXPECT_EQ(middle.at(0, 0), middle.at(kWidth - 1, kHeight - 1));
  host::takePicture(8, 8, [&](HDC dc) {
    EXPECT_EQ(draw(dc, {-2147483647 - 1, -2147483647 - 1, 2147483647, 2147483647}), E_INVALIDARG);
    EXPECT_EQ(draw(dc, {0, 0, 2147483647, 10}), E_INVALIDARG);
  });
}

TEST_F(ViewRectangles, OfALayoutFromTheRightKeepThePictureReadable) {
  const Picture picture = plain();
  const Picture mirrored = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    SetLayout(dc, LAYOUT_RTL);
    EXPECT_EQ(draw(dc, {0, 0, kWidth, kHeight}), S_OK);
    EXPECT_EQ(GetLayout(dc), static_cast<DWORD>(LAYOUT_RTL));
  });
  EXPECT_TRUE(mirrored == picture);
}

TEST_F(ViewRectangles, UnderAnyTransformationLeaveTheContextAsItWas) {
  const Picture half = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    SetGraphicsMode(dc, GM_ADVANCED);
    const XFORM halved = {0.5F, 0, 0, 0.5F, 10, 20};
    SetWorldTransform(dc, &halved);
    EXPECT_EQ(draw(dc, {0, 0, kWidth, kHeight}), S_OK);
    XFORM after = {};
    GetWorldTransform(dc, &after);
    EXPECT_EQ(after.eM11, 0.5F);
    EXPECT_EQ(after.eDx, 10.0F);
  });
  EXPECT_EQ(half.at(5, 5), 0xFFFFFFU);
  const Picture expected = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    EXPECT_EQ(draw(dc, {10, 20, 10 + kWidth / 2, 20 + kHeight / 2}), S_OK);
  });
  EXPECT_TRUE(half == expected);
}

// A printer's contexts: a page in its own units, of another resolution than the screen.
TEST_F(ViewRectangles, OfAPageAreFilled) {
  const Picture page = host::takePicture(3 * kWidth, 3 * kHeight, [&](HDC dc) {
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 10000, 10000, nullptr);
    SetViewportExtEx(dc, 3 * kWidth, 3 * kHeight, nullptr);
    DVTARGETDEVICE device = {};
    device.tdSize = sizeof device;
    const RECTL bounds = {0, 0, 10000, 10000};
    EXPECT_EQ(control_.view()->Draw(DVASPECT_CONTENT, -1, nullptr, &device, dc, dc, &bounds,
                                    &bounds, nullptr, 0),
              S_OK);
    EXPECT_EQ(GetMapMode(dc), MM_ANISOTROPIC);
  });
  const Picture picture = plain();
  for (int y = 0; y < kHeight; y += 7) {
    for (int x = 0; x < kWidth; x += 7) ASSERT_EQ(page.at(3 * x + 1, 3 * y + 1), picture.at(x, y));
  }
}

BOOL STDMETHODCALLTYPE goOn(ULONG_PTR value) {
  ++*reinterpret_cast<int*>(value);
  return TRUE;
}
BOOL STDMETHODCALLTYPE stop(ULONG_PTR) { return FALSE; }

TEST_F(ViewRectangles, AreLeftAloneWhenTheHostSaysStop) {
  int asked = 0;
  const RECTL bounds = {0, 0, kWidth, kHeight};
  const auto drawAsking = [&](HDC dc, BOOL(STDMETHODCALLTYPE * ask)(ULONG_PTR)) {
    return control_.view()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                 nullptr, ask, reinterpret_cast<ULONG_PTR>(&asked));
  };
  const Picture stopped =
      host::takePicture(kWidth, kHeight, [&](HDC dc) { EXPECT_EQ(drawAsking(dc, stop), E_ABORT); });
  EXPECT_TRUE(stopped == blank());
  const Picture whole =
      host::takePicture(kWidth, kHeight, [&](HDC dc) { EXPECT_EQ(drawAsking(dc, goOn), S_OK); });
  EXPECT_TRUE(whole == plain());
  EXPECT_EQ(asked, 1);
}

TEST_F(ViewRectangles, AreRefusedForOtherAspectsAndParts) {
  host::takePicture(8, 8, [&](HDC dc) {
    const RECTL bounds = {0, 0, 8, 8};
    for (const DWORD aspect : {8U, 4U, 2U, 16U, 0U}) {
      EXPECT_EQ(draw(dc, bounds, aspect), DV_E_DVASPECT) << aspect;
    }
    IViewObject2* const view = control_.view();
    for (const LONG index : {0L, 1L, -2L}) {
      EXPECT_EQ(view->Draw(DVASPECT_CONTENT, index, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                           nullptr, 0),
                DV_E_LINDEX);
    }
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, nullptr, nullptr,
                         nullptr, 0),
              E_POINTER);
    EXPECT_EQ(draw(nullptr, bounds), E_INVALIDARG);
    EXPECT_TRUE(FAILED(draw(reinterpret_cast<HDC>(ULONG_PTR{0x1234}), bounds)));
  });
  SIZEL extent = {};
  EXPECT_EQ(control_.view()->GetExtent(DVASPECT_THUMBNAIL, -1, nullptr, &extent), DV_E_DVASPECT);
  EXPECT_EQ(control_.view()->GetExtent(DVASPECT_CONTENT, 2, nullptr, &extent), DV_E_LINDEX);
  EXPECT_EQ(control_.view()->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
}

}  // namespace
}  // namespace winetest
