#include <algorithm>
#include <numeric>

#include "Sited.h"

namespace winetest {
namespace {

class TearDown : public Sited {
 protected:
  void change() {
    SIZEL extent = {4321, 1234};
    ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  }
  HRESULT close(DWORD how) { return control_.ole()->Close(how); }
};

TEST_F(TearDown, CloseSavesWhatHasChanged) {
  change();
  EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(site_.count("SaveObject"), 0);
  EXPECT_EQ(close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(site_.count("SaveObject"), 1);
  EXPECT_EQ(close(OLECLOSE_PROMPTSAVE), S_OK);
  EXPECT_EQ(site_.count("SaveObject"), 2);
  ComOwner<IPersistStreamInit> streamed;
  ASSERT_EQ(control_.as(streamed)->InitNew(), S_OK);  // nothing has changed
  EXPECT_EQ(close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(close(OLECLOSE_PROMPTSAVE), S_OK);
  EXPECT_EQ(site_.count("SaveObject"), 2);
}

TEST_F(TearDown, CloseTakesTheWindowAndTellsOnce) {
  AdviseSink sink;
  DWORD connection = 0;
  ASSERT_EQ(control_.ole()->Advise(&sink, &connection), S_OK);
  ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(window(), nullptr);
  EXPECT_EQ(GetWindow(form_.handle(), GW_CHILD), nullptr);
  EXPECT_EQ(site_.count("OnUIDeactivate"), 1);
  EXPECT_EQ(site_.stays(), 0);
  EXPECT_EQ(sink.closes, 1);
  EXPECT_EQ(doVerb(OLEIVERB_HIDE), S_OK);  // there is nothing to hide
  EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(sink.closes, 1);
  ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);  // it can be used again
  EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(sink.closes, 2);
  EXPECT_EQ(control_.ole()->Unadvise(connection), S_OK);
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(TearDown, EveryStepMayBeTakenTwiceAndWhileInactive) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(inPlace_->UIDeactivate(), S_OK);
    EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  }
  EXPECT_EQ(site_.references, 1U);
  EXPECT_EQ(site_.count("OnInPlaceDeactivate"), 0);
}

// Hosts end controls in every conceivable order.
TEST_F(TearDown, WorksInAnyOrder) {
  std::vector<int> order(5);
  std::iota(order.begin(), order.end(), 0);
  do {
    ASSERT_EQ(control_.ole()->SetClientSite(&site_), S_OK);
    ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    for (const int step : order) {
      switch (step) {
        case 0:
          EXPECT_EQ(inPlace_->UIDeactivate(), S_OK);
          break;
        case 1:
          EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
          break;
        case 2:
          EXPECT_EQ(close(OLECLOSE_SAVEIFDIRTY), S_OK);
          break;
        case 3:
          EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
          break;
        default:
          DestroyWindow(window());
          break;
      }
    }
    ASSERT_EQ(window(), nullptr);
    ASSERT_EQ(site_.stays(), 0);
    ASSERT_EQ(site_.count("OnUIActivate"), site_.count("OnUIDeactivate"));
    ASSERT_EQ(site_.references, 1U);
  } while (std::next_permutation(order.begin(), order.end()));
}

// A host may think better of it while it is told of the activation.
TEST_F(TearDown, InsideTheActivationEndsIt) {
  for (const std::string_view call : {"OnInPlaceActivate", "GetWindowContext", "ShowObject",
                                      "OnUIActivate", "SetActiveObject", "SetBorderSpace"}) {
    SCOPED_TRACE(call);
    ASSERT_EQ(control_.ole()->SetClientSite(&site_), S_OK);
    bool closed = false;
    site_.meanwhile = [&](std::string_view name) {
      if (name != call || closed) return;
      closed = true;
      EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
    };
    EXPECT_NE(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    site_.meanwhile = nullptr;
    EXPECT_TRUE(closed);
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(site_.stays(), 0);
    EXPECT_EQ(site_.count("OnUIActivate"), site_.count("OnUIDeactivate"));
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(site_.references, 1U);
  }
}

TEST_F(TearDown, WithoutASiteLeavesItAtOnce) {
  ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_GT(site_.references, 1U);
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(site_.references, 1U);
  EXPECT_EQ(GetWindow(form_.handle(), GW_CHILD), nullptr);
}

TEST_F(TearDown, InAnotherSiteLeavesTheFirst) {
  ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
  TestSite other(form_.handle());
  EXPECT_EQ(control_.ole()->SetClientSite(&other), S_OK);
  EXPECT_EQ(site_.stays(), 0);
  EXPECT_EQ(site_.references, 1U);
  EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(other.stays(), 1);
  EXPECT_EQ(control_.ole()->SetClientSite(&other), S_OK);  // again: it stays
  EXPECT_EQ(other.stays(), 1);
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(other.stays(), 0);
  EXPECT_EQ(other.references, 1U);
}

// The last reference goes without a word before.
TEST(TearDownAtOnce, LeavesNothingBehind) {
  TestWindow form;
  TestSite site(form.handle());
  AdviseSink sink;
  BareControl control;
  DWORD connection = 0;
  ComOwner<IConnectionPointContainer> points;
  ASSERT_EQ(control.ole()->SetClientSite(&site), S_OK);
  ASSERT_EQ(control.ole()->Advise(&sink, &connection), S_OK);
  ASSERT_EQ(control.view()->SetAdvise(DVASPECT_CONTENT, 0, &sink), S_OK);
  ASSERT_EQ(control.ole()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site, 0, form.handle(), nullptr),
            S_OK);
  EXPECT_EQ(control.release(), 0U);
  EXPECT_EQ(site.stays(), 0);
  EXPECT_EQ(site.references, 1U);
  EXPECT_EQ(sink.references, 1U);
  EXPECT_EQ(GetWindow(form.handle(), GW_CHILD), nullptr);
  EXPECT_EQ(control.library().canUnloadNow(), S_OK);
}

}  // namespace
}  // namespace winetest
