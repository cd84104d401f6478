#include "TornDown.h"

namespace winetest {
namespace {

constexpr wchar_t kClass[] = L"KelvaneCtlWindow";

BOOL CALLBACK find(HWND window, LPARAM found) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  if (std::wstring(name) == kClass) ++*reinterpret_cast<int*>(found);
  return TRUE;
}

BOOL CALLBACK findBelow(HWND window, LPARAM found) {
  EnumChildWindows(window, find, found);
  return find(window, found);
}

// The windows of controls on this thread, wherever they have got to.
int controlWindows() {
  int found = 0;
  EnumThreadWindows(GetCurrentThreadId(), findBelow, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace

TornDown::TornDown() {
  support::makeTinySet(folder_.file("tiny.nc"));
  make();
}

TornDown::~TornDown() { end("the end"); }

void TornDown::make() {
  form_ = std::make_unique<TestWindow>();
  site_ = std::make_unique<TestSite>(form_->handle());
  host::ComOwner<IClassFactory> factory;
  library_.getClassObject(kClassId, IID_IClassFactory, factory.receiveAny());
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IOleObject, object_.receiveAny()), S_OK);
  object_->QueryInterface(IID_IDispatch, members_.receiveAny());
  object_->QueryInterface(IID_IOleInPlaceObject, inPlace_.receiveAny());
  object_->QueryInterface(IID_IViewObject2, view_.receiveAny());
  object_->SetClientSite(site_.get());
  host::Object control(members_.get());
  host::setExtent(control, 200, 150);
  EXPECT_EQ(control.call(L"NcFile", {host::wide(folder_.file("tiny.nc"))}).number(), 1);
  control.call(L"NewSection");
  control.call(L"AddSection", {354.5, -1.0});
  control.call(L"AddSection", {354.5, 0.4});
  EXPECT_EQ(control.call(L"EndSection").number(), 1);
  control.call(L"Draw");
}

void TornDown::activate(LONG verb) {
  EXPECT_EQ(object_->DoVerb(verb, nullptr, site_.get(), 0, form_->handle(), nullptr), S_OK);
  EXPECT_NE(window(), nullptr);
  pump();
}

HWND TornDown::window() const {
  HWND window = nullptr;
  if (inPlace_) inPlace_->GetWindow(&window);
  return window;
}

void TornDown::part(Way way) {
  switch (way) {
    case Way::CloseTwice:
      part(Way::Close);
      [[fallthrough]];
    case Way::Close:
      EXPECT_EQ(object_->Close(OLECLOSE_NOSAVE), S_OK);
      break;
    case Way::NoSite:
      EXPECT_EQ(object_->SetClientSite(nullptr), S_OK);
      break;
    case Way::Hide:
      object_->DoVerb(OLEIVERB_HIDE, nullptr, site_.get(), 0, nullptr, nullptr);
      break;
    case Way::Deactivate:
      EXPECT_EQ(inPlace_->InPlaceDeactivate(), S_OK);
      break;
    case Way::NoWindow:
      if (window() != nullptr) DestroyWindow(window());
      break;
    case Way::NoForm:
      if (form_) DestroyWindow(form_->handle());
      break;
    case Way::NoReference:
      view_.reset();
      inPlace_.reset();
      members_.reset();
      object_.reset();
      break;
    case Way::Everything:
      for (const Way step : {Way::Close, Way::NoSite, Way::NoForm, Way::NoReference}) part(step);
      break;
    case Way::Backwards:
      for (const Way step : {Way::NoForm, Way::NoWindow, Way::NoSite, Way::Close,
                             Way::NoReference}) {
        part(step);
      }
      break;
    case Way::Anew:
      part(Way::Close);
      object_->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site_.get(), 0, form_->handle(), nullptr);
      break;
  }
}

void TornDown::end(const std::string& what) {
  if (!site_) return;
  site_->meanwhile = {};
  sink_.meanwhile = {};
  if (object_) {
    EXPECT_EQ(object_->Close(OLECLOSE_NOSAVE), S_OK) << what;
    EXPECT_EQ(object_->SetClientSite(nullptr), S_OK) << what;
  }
  part(Way::NoReference);
  pump();
  EXPECT_EQ(library_.canUnloadNow(), S_OK) << what;
  EXPECT_EQ(site_->references, 1U) << what;
  EXPECT_EQ(sink_.references, 1U) << what;
  EXPECT_EQ(site_->stays(), 0) << what;
  EXPECT_EQ(site_->count("OnUIActivate"), site_->count("OnUIDeactivate")) << what;
  EXPECT_EQ(site_->modelessPauses, 0) << what;
  EXPECT_EQ(controlWindows(), 0) << what;
  site_.reset();
  form_.reset();
}

HRESULT TornDown::invoke(DISPID id, WORD flags, std::vector<VARIANT> reversed) {
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception = {};
  HRESULT code = members_->Invoke(id, IID_NULL, 0, flags, &parameters, &result, &exception,
                                  nullptr);
  if (code == DISP_E_EXCEPTION) code = exception.scode;
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  VariantClear(&result);
  return code;
}

VARIANT TornDown::number(int value) {
  VARIANT variant;
  VariantInit(&variant);
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = value;
  return variant;
}

void TornDown::pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace winetest
