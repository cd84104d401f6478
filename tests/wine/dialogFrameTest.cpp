#include <ole2.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "ComOwner.h"
#include "DialogTest.h"

namespace winetest {
namespace {

// A host with a frame, which keeps count of how often it was told to stand still.
class FrameSite final : public IOleClientSite, public IOleInPlaceSite, public IOleInPlaceFrame {
 public:
  explicit FrameSite(HWND window) : window_(window) {}
  virtual ~FrameSite() = default;

  int still = 0;  // pauses not ended
  int most = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IOleClientSite)
      *object = static_cast<IOleClientSite*>(this);
    if (id == IID_IOleWindow || id == IID_IOleInPlaceSite)
      *object = static_cast<IOleInPlaceSite*>(this);
    return *object != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }  // it lives as long as its test
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
    *window = window_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT place,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
    *frame = this;
    *document = nullptr;
    *place = *clip = {0, 0, 200, 150};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override {
    still += enable ? -1 : 1;
    most = std::max(most, still);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

 private:
  HWND window_;
};

class DialogFrame : public testing::Test {
 protected:
  DialogFrame() {
    CLSID id = {};
    CLSIDFromProgID(L"Kelvane.KelvaneCtl", &id);
    CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject, object_.receiveAny());
    object_->SetClientSite(&site_);
    object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, window_, nullptr);
  }
  ~DialogFrame() override {
    if (object_) object_->SetClientSite(nullptr);
    DestroyWindow(window_);
  }

  const HWND window_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 150,
                                       nullptr, nullptr, nullptr, nullptr);
  FrameSite site_{window_};
  host::ComOwner<IOleObject> object_;
};

TEST_F(DialogFrame, StandsStillWhileDialogsAreUp) {
  host::Object members(object_.get());
  std::vector<int> seen;
  EXPECT_EQ(User::during([&] { members.call(L"ShowOptions"); },
                         [&](User& user) {
                           const HWND options = user.dialog(kOptions);
                           seen.push_back(site_.still);
                           user.click(options, IDC_CMDEDITLEGEND);
                           const HWND editor = user.dialog(kEditor);
                           seen.push_back(site_.still);
                           user.click(editor, IDC_FIRSTROW + ROW_LBLCOLOR);
                           user.dialog(kChooser);
                           seen.push_back(site_.still);
                           user.chooseColor({});
                           user.click(editor, IDC_CMDIMPORT);
                           PostMessageW(user.dialog(kOpen), WM_COMMAND, IDCANCEL, 0);
                           user.until("back from the file", [&] { return site_.still == 2; });
                           user.until("the editor", [&] { return IsWindowEnabled(editor) != 0; });
                           user.click(editor, IDCANCEL);
                           user.untilGone(editor);
                           user.click(options, IDCANCEL);
                         }),
            "");
  EXPECT_EQ(seen, (std::vector{1, 2, 3}));
  EXPECT_EQ(site_.still, 0);
  EXPECT_EQ(site_.most, 3);
}

// The host parts from the control while its dialog is up, and keeps its window.
TEST_F(DialogFrame, IsLetGoAfterTheControlWasTakenDown) {
  auto members = std::make_unique<host::Object>(object_.get());
  ULONG left = 0;
  // Every reference but that of the running call.
  const auto part = [&] {
    object_->SetClientSite(nullptr);
    members.reset();
    left = object_.release();
  };
  // The call goes on through the interface; the object lives until it has come back.
  IDispatch* const dispatch = members->dispatch();
  DISPID id = DISPID_UNKNOWN;
  LPOLESTR name = const_cast<LPOLESTR>(L"ShowOptions");
  ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
  DISPPARAMS none = {};
  HRESULT result = E_FAIL;
  EXPECT_EQ(User::during(
                [&] {
                  result = dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                            &none, nullptr, nullptr, nullptr);
                },
                [&](User& user) {
                  const HWND options = user.dialog(kOptions);
                  user.onMainThread(part);
                  user.click(options, IDC_CMDEDITLEGEND);
                  const HWND editor = user.dialog(kEditor);
                  user.click(editor, IDCANCEL);
                  user.untilGone(editor);
                  user.click(options, IDOK);
                }),
            "");
  EXPECT_EQ(result, S_OK);
  EXPECT_GT(left, 0U);
  EXPECT_EQ(site_.still, 0);
}

}  // namespace
}  // namespace winetest
