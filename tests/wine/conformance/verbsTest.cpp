#include <olectl.h>

#include "Sited.h"
#include "User.h"

namespace winetest {
namespace {

using Verbs = Sited;

TEST_F(Verbs, ShowAndActivateInPlaceMakeAWindow) {
  for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE}) {
    site_.calls.clear();
    ASSERT_EQ(doVerb(verb), S_OK) << verb;
    EXPECT_EQ(GetParent(window()), form_.handle()) << verb;
    EXPECT_TRUE(IsWindowVisible(window())) << verb;
    const std::vector<std::string> expected = {"OnInPlaceActivate", "GetWindowContext",
                                               "ShowObject"};
    EXPECT_EQ(site_.calls, expected) << verb;
    const HWND before = window();
    ASSERT_EQ(doVerb(verb), S_OK) << verb;
    EXPECT_EQ(window(), before) << verb;
    EXPECT_EQ(site_.stays(), 1) << verb;
    EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK) << verb;
  }
}

TEST_F(Verbs, PrimaryOpenAndActivateUiTakeTheUsersAttention) {
  for (const LONG verb : {OLEIVERB_PRIMARY, OLEIVERB_OPEN, OLEIVERB_UIACTIVATE}) {
    site_.calls.clear();
    ASSERT_EQ(doVerb(verb), S_OK) << verb;
    EXPECT_NE(window(), nullptr) << verb;
    EXPECT_EQ(site_.count("OnUIActivate"), 1) << verb;
    EXPECT_EQ(site_.count("SetActiveObject"), 1) << verb;
    EXPECT_EQ(site_.count("SetBorderSpace"), 1) << verb;
    EXPECT_EQ(GetFocus(), window()) << verb;
    ASSERT_EQ(doVerb(verb), S_OK) << verb;
    EXPECT_EQ(site_.count("OnUIActivate"), 1) << verb;
    EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK) << verb;
    EXPECT_EQ(site_.count("OnUIDeactivate"), 1) << verb;
    EXPECT_EQ(site_.count("SetActiveObject none"), 1) << verb;
  }
}

// Hosts that have subclassed the window go on using it.
TEST_F(Verbs, HideKeepsTheControlActive) {
  EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);  // nothing to hide
  EXPECT_EQ(window(), nullptr);
  ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
  const HWND before = window();
  EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(window(), before);
  EXPECT_FALSE(IsWindowVisible(before));
  EXPECT_EQ(site_.count("OnUIDeactivate"), 1);
  EXPECT_EQ(site_.stays(), 1);
  EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(window(), before);
  EXPECT_TRUE(IsWindowVisible(before));
}

TEST_F(Verbs, UnknownOnesAreRefusedOrStandForThePrimaryOne) {
  EXPECT_EQ(doVerb(OLEIVERB_DISCARDUNDOSTATE), S_OK);
  EXPECT_EQ(doVerb(-77), E_NOTIMPL);
  EXPECT_EQ(window(), nullptr);
  EXPECT_EQ(doVerb(5), OLEOBJ_S_INVALIDVERB);
  EXPECT_NE(window(), nullptr);
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
}

TEST_F(Verbs, PropertiesShowsTheOptions) {
  HRESULT done = E_FAIL;
  EXPECT_EQ(
      User::during([&] { done = doVerb(OLEIVERB_PROPERTIES); },
                   [](User& user) { user.click(user.dialog(L"Section View Options"), IDCANCEL); }),
      "");
  EXPECT_EQ(done, S_OK);
}

TEST_F(Verbs, WithoutASiteLeaveTheControlInactive) {
  ASSERT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  for (const LONG verb :
       {OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE, 5L}) {
    EXPECT_TRUE(FAILED(doVerb(verb))) << verb;
  }
  EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(Verbs, LeaveTheControlInactiveWhereTheSiteSaysNo) {
  site_.mayActivate = false;
  EXPECT_EQ(doVerb(OLEIVERB_SHOW), E_FAIL);
  EXPECT_EQ(window(), nullptr);
  EXPECT_EQ(site_.count("OnInPlaceActivate"), 0);
  TestSite windowless;
  ASSERT_EQ(control_.ole()->SetClientSite(&windowless), S_OK);
  EXPECT_EQ(doVerb(OLEIVERB_SHOW), E_FAIL);
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(windowless.references, 1U);
}

TEST_F(Verbs, EndQuietlyWhenTheHostTakesTheControlDownMeanwhile) {
  site_.meanwhile = [&](std::string_view call) {
    if (call == "GetWindowContext") inPlace_->InPlaceDeactivate();
  };
  for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_UIACTIVATE}) {
    EXPECT_EQ(doVerb(verb), E_FAIL);
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(GetWindow(form_.handle(), GW_CHILD), nullptr);
    EXPECT_EQ(site_.stays(), 0);
  }
  site_.meanwhile = {};
  EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(GetWindow(form_.handle(), GW_CHILD), window());
  EXPECT_EQ(site_.stays(), 1);
}

}  // namespace
}  // namespace winetest
