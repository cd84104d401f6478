// What the program's container tells a control about its place.
#include <gtest/gtest.h>
#include <olectl.h>

#include "Dispatch.h"
#include "container/ControlSite.h"

namespace winetest {
namespace {

using form::AmbientProperties;
using form::ControlFrame;
using form::ControlSite;

struct Hooks : form::HostHooks {
  void onControlModal(bool up) override { modal += up ? 1 : -1; }
  bool onHostKey(MSG& message) override { return message.wParam == VK_SPACE; }
  void onControlStatus(const wchar_t* text) override { status = text; }
  int modal = 0;
  std::wstring status;
};

class HostContainer : public testing::Test {
 protected:
  HostContainer() {
    window_ = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr,
                              nullptr, nullptr);
    *frame_.receive() = new ControlFrame(window_, hooks_);
    *ambient_.receive() = new AmbientProperties;
    *site_.receive() = new ControlSite(window_, *frame_.get(), *ambient_.get());
  }
  ~HostContainer() override { DestroyWindow(window_); }

  HRESULT ambient(DISPID id, host::Value& value) {
    host::ComOwner<IDispatch> properties;
    EXPECT_EQ(site_->QueryInterface(IID_IDispatch, properties.receiveAny()), S_OK);
    DISPPARAMS none = {};
    return properties->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                              &value.variant(), nullptr, nullptr);
  }

  Hooks hooks_;
  HWND window_ = nullptr;
  host::ComOwner<ControlFrame> frame_;
  host::ComOwner<AmbientProperties> ambient_;
  host::ComOwner<ControlSite> site_;
};

TEST_F(HostContainer, HasAmbientProperties) {
  host::Value value;
  EXPECT_EQ(ambient(DISPID_AMBIENT_USERMODE, value), S_OK);
  EXPECT_TRUE(value.flag());
  EXPECT_EQ(ambient(DISPID_AMBIENT_BACKCOLOR, value), S_OK);
  EXPECT_EQ(static_cast<unsigned>(value.number()), 0x80000000U | COLOR_WINDOW);
  EXPECT_EQ(ambient(DISPID_AMBIENT_LOCALEID, value), S_OK);
  EXPECT_EQ(static_cast<LCID>(value.number()), GetUserDefaultLCID());
  EXPECT_EQ(ambient(DISPID_AMBIENT_UIDEAD, value), S_OK);
  EXPECT_FALSE(value.flag());
  ambient_->setDead(true);
  EXPECT_EQ(ambient(DISPID_AMBIENT_UIDEAD, value), S_OK);
  EXPECT_TRUE(value.flag());
  EXPECT_EQ(ambient(DISPID_AMBIENT_PALETTE, value), DISP_E_MEMBERNOTFOUND);
}

TEST_F(HostContainer, HasTheMessageFontAsAmbientFont) {
  host::Value value;
  ASSERT_EQ(ambient(DISPID_AMBIENT_FONT, value), S_OK);
  ASSERT_EQ(value.type(), VT_DISPATCH);
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  host::Object font(V_DISPATCH(&value.variant()));
  EXPECT_EQ(font.get(L"Name").text(), metrics.lfMessageFont.lfFaceName);
}

TEST_F(HostContainer, GivesTheControlTheWholeWindow) {
  host::ComOwner<IOleInPlaceFrame> frame;
  host::ComOwner<IOleInPlaceUIWindow> document;
  RECT place = {}, clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof info;
  ASSERT_EQ(site_->GetWindowContext(frame.receive(), document.receive(), &place, &clip, &info),
            S_OK);
  EXPECT_TRUE(frame);
  EXPECT_FALSE(document);
  EXPECT_EQ(place.right, 300);
  EXPECT_EQ(place.bottom, 200);
  EXPECT_TRUE(EqualRect(&place, &clip));
  EXPECT_EQ(info.hwndFrame, window_);
}

TEST_F(HostContainer, PassesOnWhatTheControlTellsItsFrame) {
  frame_->EnableModeless(FALSE);
  EXPECT_EQ(hooks_.modal, 1);
  frame_->EnableModeless(TRUE);
  EXPECT_EQ(hooks_.modal, 0);
  frame_->SetStatusText(L"at work");
  EXPECT_EQ(hooks_.status, L"at work");
  frame_->SetStatusText(nullptr);
  EXPECT_EQ(hooks_.status, L"");
  MSG key = {};
  key.wParam = VK_SPACE;
  EXPECT_EQ(site_->TranslateAccelerator(&key, 0), S_OK);
  key.wParam = 'X';
  EXPECT_EQ(site_->TranslateAccelerator(&key, 0), S_FALSE);
}

TEST_F(HostContainer, MeasuresInHimetric) {
  POINTL himetric = {2540, 5080};
  POINTF pixels = {};
  ASSERT_EQ(site_->TransformCoords(&himetric, &pixels,
                                   XFORMCOORDS_SIZE | XFORMCOORDS_HIMETRICTOCONTAINER),
            S_OK);
  POINTL back = {};
  ASSERT_EQ(site_->TransformCoords(&back, &pixels,
                                   XFORMCOORDS_SIZE | XFORMCOORDS_CONTAINERTOHIMETRIC),
            S_OK);
  EXPECT_GT(pixels.x, 0);
  EXPECT_EQ(back.x, 2540);
  EXPECT_EQ(back.y, 5080);
  EXPECT_EQ(site_->TransformCoords(&back, &pixels, 0), E_INVALIDARG);
}

// A control may hold its site longer than there is a window.
TEST_F(HostContainer, OutlivesItsWindow) {
  site_->detach();
  frame_->detach();
  HWND window = nullptr;
  EXPECT_EQ(site_->GetWindow(&window), E_FAIL);
  EXPECT_EQ(frame_->GetWindow(&window), E_FAIL);
  EXPECT_EQ(site_->CanInPlaceActivate(), S_FALSE);
  EXPECT_EQ(frame_->EnableModeless(FALSE), S_OK);
  EXPECT_EQ(hooks_.modal, 0);
  MSG key = {};
  EXPECT_EQ(site_->TranslateAccelerator(&key, 0), S_FALSE);
}

TEST_F(HostContainer, AnswersOnlyWhatItIs) {
  host::ComOwner<IUnknown> any;
  for (const IID& iid : {IID_IUnknown, IID_IOleClientSite, IID_IOleWindow, IID_IOleInPlaceSite,
                         IID_IOleControlSite, IID_IDispatch}) {
    EXPECT_EQ(site_->QueryInterface(iid, any.receiveAny()), S_OK);
  }
  EXPECT_EQ(site_->QueryInterface(IID_IOleInPlaceFrame, any.receiveAny()), E_NOINTERFACE);
  EXPECT_EQ(any.get(), nullptr);
  EXPECT_EQ(site_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

}  // namespace
}  // namespace winetest
