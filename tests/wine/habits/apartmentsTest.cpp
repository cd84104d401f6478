#include <gtest/gtest.h>
#include <windows.h>

#include <ole2.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <limits>
#include <thread>
#include <vector>

#include "../AdviseSink.h"
#include "../TestSite.h"
#include "BoxAnswerer.h"
#include "Caller.h"
#include "Form.h"
#include "control.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

// Controls on several threads. The records that they share are one thread's at a time.
namespace winetest {
namespace {

using namespace std::chrono_literals;

// A thread with an apartment of its own.
template <class Body>
std::thread apartment(DWORD kind, Body body) {
  return std::thread([kind, body] {
    CoInitializeEx(nullptr, kind);
    body();
    CoUninitialize();
  });
}

// Waits for another thread, but not for what that asks of this one's windows: to let a window come
// to the front, for one.
void waitFor(const std::atomic<bool>& flag) {
  MSG message;
  while (!flag) {
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    std::this_thread::sleep_for(1ms);
  }
}

// Does something at the end of a scope, however that ends.
class Finally {
 public:
  explicit Finally(std::function<void()> action) : action_(std::move(action)) {}
  ~Finally() { action_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  std::function<void()> action_;
};

HRESULT createControl(REFIID iid, void** control) {
  CLSID id = {};
  CLSIDFromProgID(kProgId, &id);
  return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, iid, control);
}

class Apartments : public testing::Test {
 protected:
  Apartments() { support::makeTinySet(folder_.file("tiny.nc")); }

  // The whole way to a picture, as one host goes it; the first code that is not S_OK.
  HRESULT draw(Caller& caller) {
    const struct {
      const wchar_t* member;
      std::vector<Sent> arguments;
    } calls[] = {{L"NcFile", {Sent(Value(host::wide(folder_.file("tiny.nc"))))}},
                 {L"NewSection", {}},
                 {L"AddSection", {Sent(354.5), Sent(-1.0)}},
                 {L"AddSection", {Sent(354.5), Sent(0.4)}},
                 {L"EndSection", {}},
                 {L"Draw", {}},
                 {L"AdvanceTime", {Sent(1)}},
                 {L"ReDraw", {}}};
    for (const auto& call : calls) {
      const Answer answer = caller.call(call.member, call.arguments);
      if (answer.code != S_OK) return answer.exception != S_OK ? answer.exception : answer.code;
      caller.get(L"ErrorMessage");
      caller.get(L"NumDrawAbleItems");
      caller.call(L"ItemName", {Sent(1)});
    }
    return S_OK;
  }
  static void pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  // What a control's window shows.
  static host::Picture shown(HWND window, int width, int height) {
    return host::takePicture(width, height, [&](HDC dc) {
      SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    });
  }

  support::TempFolder folder_;
  Library library_;
};

// Without windows: what systems do with the windows of many threads at once is their own affair.
TEST_F(Apartments, ControlsOfSeveralThreadsTakeTurns) {
  constexpr int kThreads = 4, kRounds = 25;
  std::atomic<int> drawn = 0;
  std::atomic<HRESULT> failed = S_OK;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.push_back(apartment(COINIT_APARTMENTTHREADED, [&] {
      for (int round = 0; round < kRounds; ++round) {
        host::ComOwner<IOleObject> object;
        if (createControl(IID_IOleObject, object.receiveAny()) != S_OK) return;
        {
          Caller caller(object.get());
          host::Object control(object.get());
          host::setExtent(control, 200, 150);
          const HRESULT code = draw(caller);
          if (code == S_OK) ++drawn;
          else failed = code;
          host::setExtent(control, 100 + round, 90);
          host::drawWithoutForm(control, 100 + round, 90);
        }
        object->Close(OLECLOSE_NOSAVE);
      }
    }));
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failed, S_OK);
  EXPECT_EQ(drawn, kThreads * kRounds);
  EXPECT_EQ(library_.canUnloadNow(), S_OK);
}

// While one thread's control shows a box, nobody knows for how long, the others are refused at
// once. What they were given of sizes holds afterwards.
TEST_F(Apartments, AnotherThreadIsRefusedWhileABoxIsUp) {
  std::atomic<bool> ready = false, boxIsUp = false, refusedEnough = false;
  HRESULT refused = S_OK, inquiry = S_OK, after = E_FAIL;
  std::string text;
  ULONGLONG waited = 0;
  host::Picture first, last, expected;

  std::thread other = apartment(COINIT_APARTMENTTHREADED, [&] {
    TestWindow form;
    TestSite site(form.handle());
    host::ComOwner<IOleObject> object;
    createControl(IID_IOleObject, object.receiveAny());
    object->SetClientSite(&site);
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site, 0, form.handle(), nullptr);
    {
      Caller caller(object.get());
      EXPECT_EQ(draw(caller), S_OK);
      ready = true;
      waitFor(boxIsUp);
      const ULONGLONG start = GetTickCount64();
      const Answer answer = caller.call(L"ReDraw");
      refused = answer.exception;
      text = answer.description;
      inquiry = caller.get(L"ErrorMessage").exception;
      host::ComOwner<IOleInPlaceObject> inPlace;
      object->QueryInterface(IID_IOleInPlaceObject, inPlace.receiveAny());
      const RECT place = {0, 0, 123, 77};
      inPlace->SetObjectRects(&place, &place);
      waited = GetTickCount64() - start;
      HWND window = nullptr;
      inPlace->GetWindow(&window);
      first = last = shown(window, 123, 77);
      refusedEnough = true;
      // The other thread's member ends, and this one's window takes its size by itself.
      for (int i = 0; i < 500 && last == first; ++i) {
        std::this_thread::sleep_for(10ms);
        pump();
        last = shown(window, 123, 77);
      }
      host::ComOwner<IViewObject2> view;
      object->QueryInterface(IID_IViewObject2, view.receiveAny());
      expected = host::takePicture(123, 77, [&](HDC dc) {
        const RECTL bounds = {0, 0, 123, 77};
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr,
                   0);
      });
      after = draw(caller);
    }
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  });

  waitFor(ready);
  {
    host::BoxAnswerer answerer;
    answerer.meanwhile([&] {
      boxIsUp = true;
      waitFor(refusedEnough);
    });
    host::ComOwner<IUnknown> control;
    ASSERT_EQ(createControl(IID_IUnknown, control.receiveAny()), S_OK);
    Caller caller(control.get());
    EXPECT_EQ(caller.call(L"NcFile", {Sent(Value(L"Z:\\missing.nc"))}).result.number(), -1);
  }
  other.join();
  EXPECT_EQ(refused, RPC_E_CALL_REJECTED);
  EXPECT_EQ(inquiry, RPC_E_CALL_REJECTED);
  EXPECT_EQ(text, "Another member of the control has not ended yet");
  EXPECT_LT(waited, 1500U);
  EXPECT_FALSE(last == first);
  EXPECT_TRUE(last == expected);
  EXPECT_EQ(after, S_OK);
}

// A member that waits for the other thread, which waits for the member: the one that came later
// is refused in the end.
TEST_F(Apartments, ThreadsThatWaitForEachOtherAreNotStuck) {
  std::atomic<bool> inside = false, answered = false;
  HRESULT refused = S_OK;
  std::thread other = apartment(COINIT_APARTMENTTHREADED, [&] {
    host::ComOwner<IUnknown> control;
    createControl(IID_IUnknown, control.receiveAny());
    Caller caller(control.get());
    waitFor(inside);
    refused = caller.call(L"ReDraw").exception;
    answered = true;
  });
  host::ComOwner<IUnknown> control;
  ASSERT_EQ(createControl(IID_IUnknown, control.receiveAny()), S_OK);
  Caller caller(control.get());
  ASSERT_EQ(draw(caller), S_OK);
  AdviseSink sink;
  sink.meanwhile = [&] {
    inside = true;
    waitFor(answered);
  };
  host::ComOwner<IViewObject2> view;
  control->QueryInterface(IID_IViewObject2, view.receiveAny());
  view->SetAdvise(DVASPECT_CONTENT, 0, &sink);
  EXPECT_EQ(caller.call(L"ReDraw").code, S_OK);
  view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
  other.join();
  EXPECT_EQ(refused, RPC_E_CALL_REJECTED);
}

// A host on threads without apartments gets a proxy, and the control a thread of COM's own.
// The last of all, since what stands behind the proxy may stay as long as that thread.
TEST_F(Apartments, HostsOfTheOtherKindUseTheControlThroughAProxy) {
  HRESULT code = E_FAIL, early = E_FAIL;
  int items = 0;
  std::string description;
  std::atomic<bool> drawn = false, late = false;
  std::thread other = apartment(COINIT_MULTITHREADED, [&] {
    const Finally end([&] { drawn = true; });
    host::ComOwner<IUnknown> control;
    code = createControl(IID_IUnknown, control.receiveAny());
    if (code != S_OK) return;
    Caller caller(control.get());
    code = draw(caller);
    items = caller.get(L"NumDrawAbleItems").result.number();
    host::ComOwner<_KelvaneCtl> members;
    early = control->QueryInterface(__uuidof(_KelvaneCtl), members.receiveAny());
    if (early == S_OK) early = members->AddSection(354.5F, 0.25F);
    drawn = true;
    waitFor(late);
    description = caller.call(L"AdvanceTime", {Sent(1)}).description;
  });
  waitFor(drawn);
  {
    // What one control is told, all know.
    const host::BoxAnswerer answerer;
    host::ComOwner<IUnknown> control;
    createControl(IID_IUnknown, control.receiveAny());
    Caller(control.get()).call(L"SetCurrentTime", {Sent(std::numeric_limits<int>::max())});
  }
  late = true;
  other.join();
  EXPECT_EQ(code, S_OK);
  EXPECT_EQ(items, 2);
  EXPECT_EQ(description, "Overflow");
  EXPECT_EQ(early, S_OK);
}

}  // namespace
}  // namespace winetest
