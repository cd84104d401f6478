#include <cstdlib>

#include "DrawnControl.h"
#include "Sited.h"

namespace winetest {
namespace {

// The measures between hosts, which think in pixels, and the control, at the screen's resolution.
class Extents : public Sited {
 protected:
  Extents() {
    const HDC screen = GetDC(nullptr);
    dpi_ = GetDeviceCaps(screen, LOGPIXELSX);
    EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), dpi_);
    ReleaseDC(nullptr, screen);
  }

  // As hosts do: halves up, or cut off.
  SIZEL rounded(LONG width, LONG height) const {
    return {MulDiv(width, 2540, dpi_), MulDiv(height, 2540, dpi_)};
  }
  SIZEL cut(LONG width, LONG height) const { return {width * 2540 / dpi_, height * 2540 / dpi_}; }
  void give(SIZEL wanted) { ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &wanted), S_OK); }
  void expectExtent(const SIZEL& wanted) {
    EXPECT_EQ(extent().cx, wanted.cx);
    EXPECT_EQ(extent().cy, wanted.cy);
    SIZEL seen = {};
    EXPECT_EQ(control_.view()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &seen), S_OK);
    EXPECT_EQ(seen.cx, wanted.cx);
    EXPECT_EQ(seen.cy, wanted.cy);
  }

  int dpi_ = 0;
};

// The programs that run these tests at another resolution say which.
TEST_F(Extents, AreTestedAtTheResolutionAskedFor) {
  const char* asked = std::getenv("KELVANE_DPI");
  EXPECT_EQ(dpi_, asked != nullptr ? std::atoi(asked) : 96);
}

TEST_F(Extents, ComeBackAsTheyWereGiven) {
  for (LONG size = 0; size < 3000; size += 7) {
    give({size, 3 * size + 1});
    expectExtent({size, 3 * size + 1});
  }
  for (LONG pixels = 1; pixels <= 4000; ++pixels) {
    give(rounded(pixels, pixels + 1));
    const SIZEL got = extent();
    // What a host makes of it is what it had.
    ASSERT_EQ(MulDiv(got.cx, dpi_, 2540), pixels);
    ASSERT_EQ(MulDiv(got.cy, dpi_, 2540), pixels + 1);
  }
}

TEST_F(Extents, AreRefusedWhenTheyMakeNoSense) {
  SIZEL negative = {-1, 5}, other = {5, 5};
  give({1111, 2222});
  EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
  EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_ICON, &other), DV_E_DVASPECT);
  EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(control_.ole()->GetExtent(DVASPECT_THUMBNAIL, &other), DV_E_DVASPECT);
  EXPECT_EQ(control_.ole()->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  expectExtent({1111, 2222});
}

TEST_F(Extents, StayWhenTheWindowHasThatManyPixels) {
  for (const LONG pixels : {1L, 2L, 3L, 64L, 99L, 100L, 101L, 333L, 480L, 639L}) {
    for (const SIZEL& wanted : {rounded(pixels, pixels + 5), cut(pixels, pixels + 5)}) {
      give(wanted);
      site_.place = {3, 4, 3 + pixels, 4 + pixels + 5};
      ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
      expectExtent(wanted);
      EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
      expectExtent(wanted);
    }
  }
}

// A host that has designed a smaller control than the default must not find it larger.
TEST_F(Extents, FollowTheWindow) {
  for (const LONG width : {10L, 121L, 350L, 777L}) {
    site_.place = {0, 0, width, 77};
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    expectExtent(rounded(width, 77));
    const RECT moved = {5, 5, 5 + 2 * width, 5 + 123};
    ASSERT_EQ(inPlace_->SetObjectRects(&moved, &moved), S_OK);
    expectExtent(rounded(2 * width, 123));
    EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
    expectExtent(rounded(2 * width, 123));
  }
}

TEST_F(Extents, OfAnActiveControlLeaveItsWindowAlone) {
  site_.place = {0, 0, 123, 77};
  ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  give({9999, 8888});
  expectExtent({9999, 8888});
  RECT area = {};
  GetClientRect(window(), &area);
  EXPECT_EQ(area.right, 123);
  EXPECT_EQ(area.bottom, 77);
}

TEST_F(Extents, AreTheSizeOfThePicture) {
  ComOwner<IDataObject> data;
  ASSERT_NE(control_.as(data), nullptr);
  for (const LONG pixels : {31L, 100L, 257L}) {
    give(rounded(pixels, pixels / 2));
    FORMATETC format = {CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    STGMEDIUM medium = {};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    BITMAP measures = {};
    GetObjectW(medium.hBitmap, sizeof measures, &measures);
    ReleaseStgMedium(&medium);
    EXPECT_EQ(measures.bmWidth, pixels);
    EXPECT_EQ(measures.bmHeight, pixels / 2);
  }
}

TEST_F(Extents, ThatAreNewMakeTheControlDirty) {
  ComOwner<IPersistStreamInit> persist;
  ASSERT_EQ(control_.as(persist)->InitNew(), S_OK);
  give(extent());
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  give({4444, 3333});
  EXPECT_EQ(persist->IsDirty(), S_OK);
}

}  // namespace
}  // namespace winetest
