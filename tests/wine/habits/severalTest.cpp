#include <vector>

#include "BoxAnswerer.h"
#include "TornDown.h"

// What happens while a drawing is under way, and several controls that share the state.
namespace winetest {
namespace {

class UnderWay : public TornDown {
 protected:
  host::Picture drawn(int width, int height) {
    return host::takePicture(width, height, [&](HDC dc) {
      const RECTL bounds = {0, 0, width, height};
      EXPECT_EQ(view_->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                            nullptr, 0),
                S_OK);
    });
  }
  host::Picture shown(int width, int height) {
    return host::takePicture(width, height, [&](HDC dc) {
      SendMessageW(window(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    });
  }
  void resize(int width, int height) {
    const RECT place = {0, 0, width, height};
    EXPECT_EQ(inPlace_->SetObjectRects(&place, &place), S_OK);
  }
  // Does something while a box is up in a member of the control.
  void underWay(std::function<void()> action) {
    host::BoxAnswerer answerer;
    int times = 0;
    answerer.meanwhile([&] {
      if (times++ == 0) action();
    });
    EXPECT_EQ(invoke(kSetCurrentTime, DISPATCH_METHOD, {number(9)}), S_OK);
    EXPECT_EQ(times, 1);
  }
};

TEST_F(UnderWay, ResizesHoldAfterwardsTheLastOneOfThem) {
  activate();
  underWay([&] {
    for (int width = 100; width < 130; ++width) resize(width, 80);
    pump();
  });
  EXPECT_TRUE(shown(129, 80) == drawn(129, 80));
  RECT area = {};
  GetClientRect(window(), &area);
  EXPECT_EQ(area.right, 129);
}

TEST_F(UnderWay, RepaintsShowThePictureAsItWas) {
  activate();
  const host::Picture before = shown(200, 150);
  host::Picture meanwhile, forHost;
  underWay([&] {
    InvalidateRect(window(), nullptr, TRUE);
    UpdateWindow(window());
    meanwhile = shown(200, 150);
    forHost = drawn(200, 150);
  });
  EXPECT_TRUE(meanwhile == before);
  EXPECT_TRUE(forHost == before);
}

TEST_F(UnderWay, CallsThatWouldWorkOnTheRecordsAreRefusedAndQuestionsAnswered) {
  activate();
  const DISPID actions[] = {1, 4, 7, 8, 16, 18, 19, 21};
  std::vector<HRESULT> codes;
  HRESULT question = E_FAIL;
  underWay([&] {
    for (const DISPID action : actions) {
      codes.push_back(action == 18 ? invoke(action, DISPATCH_METHOD, {number(1)})
                                   : invoke(action, DISPATCH_METHOD));
    }
    question = invoke(12, DISPATCH_PROPERTYGET);
  });
  EXPECT_EQ(codes, std::vector<HRESULT>(std::size(actions), RPC_E_CALL_REJECTED));
  EXPECT_EQ(question, S_OK);
  EXPECT_EQ(invoke(kReDraw, DISPATCH_METHOD), S_OK);
}

TEST_F(UnderWay, TheWindowMayMoveToAnotherParent) {
  activate();
  TestWindow other;
  underWay([&] { SetParent(window(), other.handle()); });
  EXPECT_EQ(GetParent(window()), other.handle());
  EXPECT_EQ(invoke(kReDraw, DISPATCH_METHOD), S_OK);
  resize(120, 90);
  EXPECT_TRUE(shown(120, 90) == drawn(120, 90));
  part(Way::NoForm);  // the first one, which it has left
  EXPECT_NE(window(), nullptr);
}

TEST_F(UnderWay, AControlComesBackAfterItsWindowWasLost) {
  for (const Way way : {Way::NoWindow, Way::NoForm, Way::Deactivate, Way::Close}) {
    activate();
    part(way);
    pump();
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(invoke(kReDraw, DISPATCH_METHOD), S_OK);
    if (way == Way::NoForm) {
      end("without a form");
      make();
    }
    activate(OLEIVERB_UIACTIVATE);
    EXPECT_TRUE(shown(200, 150) == drawn(200, 150));
  }
}

// Many controls on one form: each has its picture, all have one state, and any may go first.
TEST_F(UnderWay, SeveralControlsOnAFormShareTheStateAndGoInAnyOrder) {
  constexpr int kControls = 6;
  host::ComOwner<IClassFactory> factory;
  library_.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny());
  std::vector<std::unique_ptr<TestSite>> sites;
  std::vector<host::ComOwner<IOleObject>> objects(kControls);
  for (auto& object : objects) {
    sites.push_back(std::make_unique<TestSite>(form_->handle()));
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IOleObject, object.receiveAny()), S_OK);
    object->SetClientSite(sites.back().get());
    EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, sites.back().get(), 0,
                             form_->handle(), nullptr),
              S_OK);
  }
  activate();
  int items = 0;
  underWay([&] {
    // All of them are busy, whichever's member it is.
    for (auto& object : objects) {
      Caller caller(object.get());
      EXPECT_EQ(caller.call(L"ReDraw").exception, RPC_E_CALL_REJECTED);
      items += caller.get(L"NumDrawAbleItems").result.number();
    }
    // Some go while another's member runs.
    objects[1]->Close(OLECLOSE_NOSAVE);
    objects[1]->SetClientSite(nullptr);
    objects[1].reset();
  });
  EXPECT_EQ(items, 2 * kControls);
  for (const int gone : {3, 0, 5}) {
    objects[static_cast<std::size_t>(gone)]->SetClientSite(nullptr);
    objects[static_cast<std::size_t>(gone)].reset();
    Caller left(objects[2].get());
    EXPECT_EQ(left.call(L"AdvanceTime", {Sent(1)}).code, S_OK);
  }
  for (const Way way : {Way::Close, Way::NoSite, Way::NoReference}) part(way);
  Caller left(objects[4].get());
  EXPECT_EQ(left.get(L"NumDrawAbleItems").result.number(), 2);
}

}  // namespace
}  // namespace winetest
