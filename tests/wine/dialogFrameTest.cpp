#include <ole2.h>

#include <memory>
#include <vector>

#include "ComOwner.h"
#include "DialogTest.h"
#include "TestSite.h"

namespace winetest {
namespace {

class DialogFrame : public testing::Test {
 protected:
  DialogFrame() {
    CLSID id = {};
    CLSIDFromProgID(L"Kelvane.KelvaneCtl", &id);
    CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject, object_.receiveAny());
    object_->SetClientSite(&site_);
    object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, window_.handle(), nullptr);
  }
  ~DialogFrame() override {
    if (object_) object_->SetClientSite(nullptr);
  }

  TestWindow window_;
  TestSite site_{window_.handle()};
  host::ComOwner<IOleObject> object_;
};

TEST_F(DialogFrame, StandsStillWhileDialogsAreUp) {
  host::Object members(object_.get());
  std::vector<int> seen;
  EXPECT_EQ(User::during([&] { members.call(L"ShowOptions"); },
                         [&](User& user) {
                           const HWND options = user.dialog(kOptions);
                           seen.push_back(site_.modelessPauses);
                           user.click(options, IDC_CMDEDITLEGEND);
                           const HWND editor = user.dialog(kEditor);
                           seen.push_back(site_.modelessPauses);
                           user.click(editor, IDC_FIRSTROW + ROW_LBLCOLOR);
                           user.dialog(kChooser);
                           seen.push_back(site_.modelessPauses);
                           user.chooseColor({});
                           user.click(editor, IDC_CMDIMPORT);
                           PostMessageW(user.dialog(kOpen), WM_COMMAND, IDCANCEL, 0);
                           user.until("back from the file",
                                      [&] { return site_.modelessPauses == 2; });
                           user.until("the editor", [&] { return IsWindowEnabled(editor) != 0; });
                           user.click(editor, IDCANCEL);
                           user.untilGone(editor);
                           user.click(options, IDCANCEL);
                         }),
            "");
  EXPECT_EQ(seen, (std::vector{1, 2, 3}));
  EXPECT_EQ(site_.modelessPauses, 0);
  EXPECT_EQ(site_.mostModelessPauses, 3);
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
  EXPECT_EQ(site_.modelessPauses, 0);
}

}  // namespace
}  // namespace winetest
