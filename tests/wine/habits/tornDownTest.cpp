#include <algorithm>
#include <vector>

#include "BoxAnswerer.h"
#include "TornDown.h"
#include "ValueObject.h"

// Hosts that take the control down from inside what the control asks of them.
namespace winetest {
namespace {

std::string numberOf(const char* what, int way) {
  return std::string(what) + " " + std::to_string(way);
}

TEST_F(TornDown, ByASinkOfTheView) {
  for (const Way way : kWays) {
    if (!object_) make();
    activate();
    EXPECT_EQ(view_->SetAdvise(DVASPECT_CONTENT, 0, &sink_), S_OK);
    bool parted = false;
    sink_.meanwhile = [&] {
      if (!std::exchange(parted, true)) part(way);
    };
    EXPECT_EQ(invoke(kDraw, DISPATCH_METHOD), S_OK);
    EXPECT_TRUE(parted);
    end(numberOf("view", int(way)));
  }
}

TEST_F(TornDown, ByASinkOfTheData) {
  for (const Way way : kWays) {
    if (!object_) make();
    activate();
    host::ComOwner<IDataObject> data;
    object_->QueryInterface(IID_IDataObject, data.receiveAny());
    FORMATETC format = {CF_DIB, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    DWORD connection = 0;
    EXPECT_EQ(data->DAdvise(&format, 0, &sink_, &connection), S_OK);
    data.reset();
    bool parted = false;
    sink_.meanwhile = [&] {
      if (!std::exchange(parted, true)) part(way);
    };
    EXPECT_EQ(invoke(kDraw, DISPATCH_METHOD), S_OK);
    EXPECT_TRUE(parted);
    end(numberOf("data", int(way)));
  }
}

// Everything that the site and the frame are told, from activation with the user's attention to
// the end of it.
TEST_F(TornDown, ByTheSiteAndTheFrame) {
  std::vector<std::string> calls;
  site_->meanwhile = [&](std::string_view call) {
    if (std::find(calls.begin(), calls.end(), call) == calls.end()) calls.emplace_back(call);
  };
  activate(OLEIVERB_UIACTIVATE);
  part(Way::Close);
  end("at first");
  ASSERT_GE(calls.size(), 8U);
  for (const std::string& call : calls) {
    for (const Way way : kWays) {
      make();
      bool parted = false;
      site_->meanwhile = [&](std::string_view told) {
        if (told == call && !std::exchange(parted, true)) part(way);
      };
      IOleObject* const object = object_.get();
      object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site_.get(), 0, form_->handle(), nullptr);
      pump();
      if (object_) part(Way::Close);
      EXPECT_TRUE(parted) << call;
      end(numberOf(call.c_str(), int(way)));
    }
  }
}

TEST_F(TornDown, WhileAMessageBoxIsUp) {
  for (const Way way : kWays) {
    if (!object_) make();
    activate();
    {
      host::BoxAnswerer answerer;
      bool parted = false;
      answerer.meanwhile([&] {
        if (!std::exchange(parted, true)) part(way);
      });
      // There is no such time step, and the library says so.
      EXPECT_EQ(invoke(kSetCurrentTime, DISPATCH_METHOD, {number(9)}), S_OK);
      EXPECT_TRUE(parted);
    }
    end(numberOf("box", int(way)));
  }
}

// As some languages do with the window of every control, the host puts a procedure of its own
// before the control's.
class Subclassed : public TornDown {
 protected:
  void subclass(UINT message, std::function<void()> action) {
    watched_ = message;
    action_ = std::move(action);
    original_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
  }
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
    if (message == watched_ && action_) {
      const auto action = std::exchange(action_, {});
      if (message == WM_PAINT) CallWindowProcW(original_, window, message, wide, longer);
      action();
      if (message == WM_PAINT) return 0;
    }
    return CallWindowProcW(original_, window, message, wide, longer);
  }
  static inline UINT watched_ = 0;
  static inline std::function<void()> action_;
  static inline WNDPROC original_ = nullptr;
};

TEST_F(Subclassed, DuringTheControlsMessages) {
  for (const UINT message : {UINT{WM_PAINT}, UINT{WM_SIZE}, UINT{WM_WINDOWPOSCHANGED},
                             UINT{WM_LBUTTONDOWN}, UINT{WM_SETFOCUS}, UINT{WM_DESTROY}}) {
    for (const Way way : kWays) {
      if (!object_) make();
      activate();
      bool parted = false;
      subclass(message, [&] {
        parted = true;
        part(way);
      });
      if (message == WM_PAINT) {
        EXPECT_EQ(invoke(kReDraw, DISPATCH_METHOD), S_OK);
      } else if (message == WM_LBUTTONDOWN) {
        SendMessageW(window(), message, 0, 0);
      } else if (message == WM_SETFOCUS) {
        SetFocus(window());
        // A window that is not in front gets none.
        if (!parted) SendMessageW(window(), message, 0, 0);
      } else if (message == WM_DESTROY) {
        DestroyWindow(window());
      } else {
        const RECT place = {0, 0, 111, 77};
        EXPECT_EQ(inPlace_->SetObjectRects(&place, &place), S_OK);
      }
      EXPECT_TRUE(parted) << message;
      action_ = {};
      end(numberOf("message", int(message)) + numberOf("", int(way)));
    }
  }
}

TEST_F(TornDown, WhileTheControlAsksAnArgumentForItsValue) {
  for (const Way way : kWays) {
    if (!object_) make();
    activate();
    bool parted = false;
    Value object = actingObject([&] {
      parted = true;
      part(way);
    });
    EXPECT_EQ(invoke(kItemName, DISPATCH_METHOD, {object.variant()}), S_OK);
    EXPECT_TRUE(parted);
    end(numberOf("argument", int(way)));
  }
}

// A drawing for the host that the host breaks off, with or without a reason to.
struct GoOn {
  std::function<void()> action;
  BOOL answer;
  static BOOL STDMETHODCALLTYPE asked(ULONG_PTR self) {
    auto& goOn = *reinterpret_cast<GoOn*>(self);
    if (const auto action = std::exchange(goOn.action, {})) action();
    return goOn.answer;
  }
};

TEST_F(TornDown, WhileTheHostHasItDrawn) {
  for (const Way way : kWays) {
    for (const BOOL answer : {TRUE, FALSE}) {
      if (!object_) make();
      activate();
      bool parted = false;
      GoOn goOn = {[&] {
                     parted = true;
                     part(way);
                   },
                   answer};
      IViewObject2* const view = view_.get();
      HRESULT code = E_FAIL;
      host::takePicture(200, 150, [&](HDC dc) {
        const RECTL bounds = {0, 0, 200, 150};
        code = view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                          GoOn::asked, reinterpret_cast<ULONG_PTR>(&goOn));
      });
      EXPECT_TRUE(parted);
      EXPECT_EQ(code, answer ? S_OK : E_ABORT);
      end(numberOf("continue", int(way)));
    }
  }
}

}  // namespace
}  // namespace winetest
