#include "Sited.h"

namespace winetest {
namespace {

class InPlace : public Sited {
 protected:
  RECT placeOfWindow() {
    RECT place = {};
    GetWindowRect(window(), &place);
    MapWindowPoints(nullptr, form_.handle(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  void expectPlace(LONG left, LONG top, LONG right, LONG bottom) {
    const RECT place = placeOfWindow();
    EXPECT_EQ(place.left, left);
    EXPECT_EQ(place.top, top);
    EXPECT_EQ(place.right, right);
    EXPECT_EQ(place.bottom, bottom);
  }
};

TEST_F(InPlace, ObjectIsWhereItsHostPutsIt) {
  site_.place = {10, 20, 110, 90};
  ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  expectPlace(10, 20, 110, 90);
  const RECT moved = {-5, 30, 200, 170};
  EXPECT_EQ(inPlace_->SetObjectRects(&moved, nullptr), S_OK);
  expectPlace(-5, 30, 200, 170);
  EXPECT_EQ(inPlace_->SetObjectRects(nullptr, &moved), E_POINTER);
  const RECT empty = {7, 7, 7, 7};
  EXPECT_EQ(inPlace_->SetObjectRects(&empty, &empty), S_OK);
  expectPlace(7, 7, 7, 7);
}

TEST_F(InPlace, ObjectShowsOnlyWhatIsClipped) {
  ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  const RECT place = {10, 10, 110, 110}, clip = {50, 0, 80, 60};
  ASSERT_EQ(inPlace_->SetObjectRects(&place, &clip), S_OK);
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  ASSERT_EQ(GetWindowRgn(window(), region), SIMPLEREGION);
  RECT shown = {};
  GetRgnBox(region, &shown);
  DeleteObject(region);
  EXPECT_EQ(shown.left, 40);
  EXPECT_EQ(shown.top, 0);
  EXPECT_EQ(shown.right, 70);
  EXPECT_EQ(shown.bottom, 50);
}

TEST_F(InPlace, ObjectWithoutAWindowSaysSo) {
  HWND window = form_.handle();
  EXPECT_EQ(inPlace_->GetWindow(&window), E_FAIL);
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(inPlace_->GetWindow(nullptr), E_POINTER);
  const RECT place = {0, 0, 10, 10};
  EXPECT_EQ(inPlace_->SetObjectRects(&place, &place), E_UNEXPECTED);
  EXPECT_EQ(inPlace_->UIDeactivate(), S_OK);
  EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(inPlace_->ReactivateAndUndo(), INPLACE_E_NOTUNDOABLE);
  EXPECT_EQ(inPlace_->ContextSensitiveHelp(TRUE), E_NOTIMPL);
}

TEST_F(InPlace, ObjectWithoutAttentionStaysVisible) {
  ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_EQ(inPlace_->UIDeactivate(), S_OK);
  EXPECT_TRUE(IsWindowVisible(window()));
  EXPECT_EQ(site_.count("OnUIDeactivate"), 1);
  EXPECT_EQ(site_.stays(), 1);
}

TEST_F(InPlace, ActiveObjectLeavesKeysAndBordersToItsHost) {
  ComOwner<IOleInPlaceActiveObject> active;
  ASSERT_NE(control_.as(active), nullptr);
  ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
  HWND told = nullptr;
  EXPECT_EQ(active->GetWindow(&told), S_OK);
  EXPECT_EQ(told, window());
  EXPECT_EQ(active->GetWindow(nullptr), E_POINTER);
  MSG key = {};
  key.message = WM_KEYDOWN;
  key.wParam = VK_TAB;
  EXPECT_EQ(active->TranslateAccelerator(&key), S_FALSE);
  EXPECT_EQ(active->TranslateAccelerator(nullptr), S_FALSE);
  EXPECT_EQ(active->OnFrameWindowActivate(TRUE), S_OK);
  EXPECT_EQ(active->OnDocWindowActivate(FALSE), S_OK);
  EXPECT_EQ(active->ResizeBorder(nullptr, nullptr, TRUE), S_OK);
  EXPECT_EQ(active->EnableModeless(FALSE), S_OK);
  EXPECT_EQ(active->EnableModeless(TRUE), S_OK);
  EXPECT_EQ(active->ContextSensitiveHelp(FALSE), E_NOTIMPL);
}

TEST_F(InPlace, ActivationByTheMouseTellsTheHost) {
  ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  SendMessageW(window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
  EXPECT_GE(site_.count("OnFocus"), 1);
  SendMessageW(window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
}

}  // namespace
}  // namespace winetest
