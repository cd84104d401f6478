#include <olectl.h>

#include "Sited.h"

namespace winetest {
namespace {

class OleControl : public Sited {
 protected:
  OleControl() { control_.as(role_); }
  ~OleControl() override { role_.reset(); }

  ComOwner<IOleControl> role_;
};

TEST_F(OleControl, HasNoKeysOfItsOwn) {
  CONTROLINFO info = {};
  FillMemory(&info, sizeof info, 0xAB);
  EXPECT_EQ(role_->GetControlInfo(&info), S_OK);
  EXPECT_EQ(info.cb, sizeof info);
  EXPECT_EQ(info.hAccel, nullptr);
  EXPECT_EQ(info.cAccel, 0);
  EXPECT_EQ(info.dwFlags, 0U);
  EXPECT_EQ(role_->GetControlInfo(nullptr), E_POINTER);
  MSG key = {};
  EXPECT_EQ(role_->OnMnemonic(&key), S_OK);
  EXPECT_EQ(role_->OnMnemonic(nullptr), S_OK);
}

// Hosts freeze before the control has a site, and do not always thaw as often.
TEST_F(OleControl, FreezesEventsAsOftenAsAsked) {
  ASSERT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  for (const BOOL freeze : {TRUE, TRUE, FALSE, FALSE, FALSE}) {
    EXPECT_EQ(role_->FreezeEvents(freeze), S_OK);
  }
}

TEST_F(OleControl, TakesChangesOfTheSurroundingsAtAnyTime) {
  for (const DISPID id :
       std::vector<DISPID>{DISPID_AMBIENT_BACKCOLOR, DISPID_UNKNOWN, 12345, -77}) {
    EXPECT_EQ(role_->OnAmbientPropertyChange(id), S_OK);
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(role_->OnAmbientPropertyChange(id), S_OK);
    EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
  }
  ASSERT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(role_->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
}

// As form designers of .NET make a control: events frozen first, no quick activation.
TEST_F(OleControl, IsMadeActiveTheSlowWay) {
  ComOwner<IPersistStreamInit> persist;
  void* quick = this;
  EXPECT_EQ(control_.identity()->QueryInterface(IID_IQuickActivate, &quick), E_NOINTERFACE);
  EXPECT_EQ(quick, nullptr);
  EXPECT_EQ(role_->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(control_.as(persist)->InitNew(), S_OK);
  EXPECT_EQ(role_->FreezeEvents(FALSE), S_OK);
  site_.place = {20, 20, 120, 100};
  const RECT place = site_.place, clip = {-32000, -32000, 32000, 32000};
  EXPECT_EQ(
      control_.ole()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, -1, form_.handle(), &place),
      S_OK);
  EXPECT_EQ(site_.count("ShowObject"), 1);
  EXPECT_NE(window(), nullptr);
  EXPECT_EQ(inPlace_->SetObjectRects(&place, &clip), S_OK);
  EXPECT_EQ(GetWindowRgn(window(), nullptr), ERROR);  // all of it is shown
}

}  // namespace
}  // namespace winetest
