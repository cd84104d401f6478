#include <olectl.h>

#include <algorithm>

#include "DrawnControl.h"
#include "TestSite.h"

namespace winetest {
namespace {

using host::ComOwner;
using host::Picture;
using host::Value;

// What a designer sees instead of an empty picture, wherever it is drawn.
class Placeholder : public testing::Test {
 protected:
  static constexpr int kWidth = 200, kHeight = 100;
  static constexpr uint32_t kBack = 0x102030, kFore = 0xC0D0E0;  // 0x00RRGGBB

  Placeholder() {
    site_.hasAmbients = true;
    site_.place = {0, 0, kWidth, kHeight};
    site_.ambients = {{DISPID_AMBIENT_USERMODE, Value(false)},
                      {DISPID_AMBIENT_BACKCOLOR, Value(0x302010)},
                      {DISPID_AMBIENT_FORECOLOR, Value(0xE0D0C0)}};
    host::setExtent(object_, kWidth, kHeight);
    control_.ole()->SetClientSite(&site_);
  }
  ~Placeholder() override { control_.ole()->SetClientSite(nullptr); }

  static void expectPlaceholder(const Picture& picture) {
    EXPECT_EQ(picture.at(3, 3), kBack);
    EXPECT_EQ(picture.at(kWidth / 2, 0), kFore);
    EXPECT_EQ(picture.at(0, kHeight / 2), kFore);
    EXPECT_EQ(picture.at(kWidth - 1, kHeight / 2), kFore);
    EXPECT_EQ(picture.at(kWidth / 2, kHeight - 1), kFore);
    const auto border = 2 * (kWidth + kHeight) - 4;
    const auto inked = std::count(picture.pixels.begin(), picture.pixels.end(), kFore);
    EXPECT_GT(inked, border + 50);  // and the name
  }
  Picture ofWindow() {
    ComOwner<IOleWindow> place;
    HWND window = nullptr;
    EXPECT_EQ(control_.as(place)->GetWindow(&window), S_OK);
    return host::takePicture(kWidth, kHeight, [&](HDC dc) {
      SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    });
  }
  Picture ofView() {
    return host::takePicture(kWidth, kHeight, [&](HDC dc) { draw(dc, {0, 0, kWidth, kHeight}); });
  }
  void draw(HDC dc, const RECTL& bounds) {
    EXPECT_EQ(control_.view()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                    nullptr, nullptr, 0),
              S_OK);
  }

  TestWindow form_;
  TestSite site_{form_.handle()};
  BareControl control_;
  host::Object object_{control_.identity()};
};

TEST_F(Placeholder, StandsInTheWindowAndInTheView) {
  expectPlaceholder(ofView());
  ASSERT_EQ(
      control_.ole()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, form_.handle(), nullptr),
      S_OK);
  expectPlaceholder(ofWindow());
  expectPlaceholder(ofView());
}

TEST_F(Placeholder, StandsInMetafilesAndData) {
  ComOwner<IDataObject> data;
  ASSERT_NE(control_.as(data), nullptr);
  const Picture plain = ofView();
  const Picture bitmap = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    FORMATETC format = {CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    STGMEDIUM medium = {};
    ASSERT_EQ(data->GetData(&format, &medium), S_OK);
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(source, medium.hBitmap);
    BitBlt(dc, 0, 0, kWidth, kHeight, source, 0, 0, SRCCOPY);
    SelectObject(source, before);
    DeleteDC(source);
    ReleaseStgMedium(&medium);
  });
  EXPECT_TRUE(bitmap == plain);
  const HDC recorder = CreateMetaFileW(nullptr);
  draw(recorder, {0, 0, kWidth, kHeight});
  const HMETAFILE metafile = CloseMetaFile(recorder);
  expectPlaceholder(
      host::takePicture(kWidth, kHeight, [&](HDC dc) { EXPECT_TRUE(PlayMetaFile(dc, metafile)); }));
  DeleteMetaFile(metafile);
}

TEST_F(Placeholder, SurvivesTinySizes) {
  for (int size = 0; size < 5; ++size) {
    host::takePicture(kWidth, kHeight, [&](HDC dc) { draw(dc, {5, 5, 5 + size, 5 + 4 - size}); });
    host::setExtent(object_, size, 4 - size);
    ofView();
  }
}

// In design the members work as ever, and what they draw is shown.
TEST_F(Placeholder, GivesWayToThePicture) {
  support::TempFolder folder;
  support::makeTinySet(folder.file("tiny.nc"));
  EXPECT_EQ(object_.call(L"NcFile", {host::wide(folder.file("tiny.nc"))}).number(), 1);
  object_.call(L"NewSection");
  object_.call(L"AddSection", {354.5, -1});
  object_.call(L"AddSection", {354.5, 0.4});
  EXPECT_EQ(object_.call(L"EndSection").number(), 1);
  expectPlaceholder(ofView());
  object_.call(L"Draw");
  const Picture picture = ofView();
  EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), kBack), 0);
  EXPECT_EQ(picture.at(0, 0), 0xFFFFFFU);
  EXPECT_GT(std::count(picture.pixels.begin(), picture.pixels.end(), 0xF50000U), 0);
  // A later control of the same form shows the same section.
  ComOwner<IClassFactory> factory;
  control_.library().getClassObject(kClassId, IID_IClassFactory, factory.receiveAny());
  ComOwner<IViewObject2> second;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IViewObject2, second.receiveAny()), S_OK);
  ComOwner<IOleObject> secondOle;
  second->QueryInterface(IID_IOleObject, secondOle.receiveAny());
  secondOle->SetClientSite(&site_);
  const Picture shared = host::takePicture(640, 480, [&](HDC dc) {
    const RECTL bounds = {0, 0, 640, 480};
    second->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0);
  });
  secondOle->SetClientSite(nullptr);
  EXPECT_GT(std::count(shared.pixels.begin(), shared.pixels.end(), 0xF50000U), 0);
}

}  // namespace
}  // namespace winetest
