#include <gtest/gtest.h>
#include <ocidl.h>

#include <vector>

#include "control.h"

namespace winetest {
namespace {

using host::ComOwner;

class Embedding : public testing::Test {
 protected:
  BareControl control_;
};

TEST_F(Embedding, TellsWhatItIs) {
  DWORD status = 0;
  EXPECT_EQ(control_.ole()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473U);
  CLSID id = {};
  EXPECT_EQ(control_.ole()->GetUserClassID(&id), S_OK);
  EXPECT_EQ(id, kClassId);
  LPOLESTR name = nullptr;
  ASSERT_EQ(control_.ole()->GetUserType(USERCLASSTYPE_FULL, &name), S_OK);
  EXPECT_EQ(std::wstring(name), L"Kelvane section control");
  CoTaskMemFree(name);
}

TEST_F(Embedding, WithoutASiteStaysInactive) {
  for (const LONG verb :
       {OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE, 5L}) {
    EXPECT_TRUE(FAILED(control_.ole()->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr)));
  }
  EXPECT_EQ(control_.ole()->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
  EXPECT_EQ(control_.ole()->DoVerb(-77, nullptr, nullptr, 0, nullptr, nullptr), E_NOTIMPL);
  ComOwner<IOleInPlaceObject> inPlace;
  ASSERT_NE(control_.as(inPlace), nullptr);
  HWND window = nullptr;
  EXPECT_EQ(inPlace->GetWindow(&window), E_FAIL);
  EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
  EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
  const RECT place = {0, 0, 10, 10};
  EXPECT_TRUE(FAILED(inPlace->SetObjectRects(&place, &place)));
}

// A host that takes the control down while the control asks where it shall be.
class HastySite final : public IOleClientSite, public IOleInPlaceSite {
 public:
  HastySite(IOleInPlaceObject& control, HWND parent) : control_(control), parent_(parent) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IOleClientSite)
      *object = static_cast<IOleClientSite*>(this);
    if (id == IID_IOleInPlaceSite) *object = static_cast<IOleInPlaceSite*>(this);
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
    *window = parent_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override {
    ++stays;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT place,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
    *frame = nullptr;
    *document = nullptr;
    *place = *clip = {0, 0, 100, 100};
    if (hasty) control_.InPlaceDeactivate();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override {
    --stays;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }

  bool hasty = true;
  int stays = 0;

 private:
  IOleInPlaceObject& control_;
  HWND parent_;
};

TEST_F(Embedding, StaysDownWhenTheHostTakesItDownMeanwhile) {
  ComOwner<IOleInPlaceObject> inPlace;
  ASSERT_NE(control_.as(inPlace), nullptr);
  const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr,
                                      nullptr, nullptr);
  ASSERT_NE(parent, nullptr);
  HastySite site(*inPlace.get(), parent);
  EXPECT_EQ(control_.ole()->SetClientSite(&site), S_OK);
  HWND window = nullptr;
  for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_UIACTIVATE}) {
    EXPECT_EQ(control_.ole()->DoVerb(verb, nullptr, &site, 0, parent, nullptr), E_FAIL);
    EXPECT_EQ(inPlace->GetWindow(&window), E_FAIL);
    EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
    EXPECT_EQ(site.stays, 0);
  }
  site.hasty = false;
  EXPECT_EQ(control_.ole()->DoVerb(OLEIVERB_SHOW, nullptr, &site, 0, parent, nullptr), S_OK);
  EXPECT_EQ(inPlace->GetWindow(&window), S_OK);
  EXPECT_EQ(GetWindow(parent, GW_CHILD), window);
  EXPECT_EQ(site.stays, 1);
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
  EXPECT_EQ(site.stays, 0);
  DestroyWindow(parent);
}

TEST_F(Embedding, EndsAsOftenAsAsked) {
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  IOleClientSite* site = nullptr;
  EXPECT_EQ(control_.ole()->GetClientSite(&site), S_OK);
  EXPECT_EQ(site, nullptr);
  EXPECT_EQ(control_.ole()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(control_.ole()->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
}

TEST_F(Embedding, AnswersAsAControl) {
  ComOwner<IOleControl> control;
  ASSERT_NE(control_.as(control), nullptr);
  CONTROLINFO info = {};
  info.cb = sizeof info;
  EXPECT_EQ(control->GetControlInfo(&info), S_OK);
  EXPECT_EQ(info.cAccel, 0);
  EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
}

TEST_F(Embedding, KeepsTheExtentThatItIsGiven) {
  for (const SIZEL& wanted : {SIZEL{16933, 12700}, SIZEL{1, 99999}, SIZEL{12345, 6789}}) {
    SIZEL extent = wanted, got = {};
    ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    ASSERT_EQ(control_.ole()->GetExtent(DVASPECT_CONTENT, &got), S_OK);
    EXPECT_EQ(got.cx, wanted.cx);
    EXPECT_EQ(got.cy, wanted.cy);
  }
  SIZEL extent = {5, 5};
  EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
  EXPECT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
}

class Persistence : public Embedding {
 protected:
  Persistence() { control_.as(persist_); }

  SIZEL extent() {
    SIZEL extent = {};
    control_.ole()->GetExtent(DVASPECT_CONTENT, &extent);
    return extent;
  }
  void setExtent(LONG cx, LONG cy) {
    SIZEL extent = {cx, cy};
    control_.ole()->SetExtent(DVASPECT_CONTENT, &extent);
  }
  static void streamOf(const std::vector<BYTE>& bytes, ComOwner<IStream>& stream) {
    CreateStreamOnHGlobal(nullptr, TRUE, stream.receive());
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    rewind(*stream.get());
  }
  static void rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }

  ComOwner<IPersistStreamInit> persist_;
};

TEST_F(Persistence, BringsTheExtentBack) {
  ComOwner<IStream> stream;
  streamOf({}, stream);
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_EQ(persist_->IsDirty(), S_FALSE);
  setExtent(7000, 5000);
  EXPECT_EQ(persist_->IsDirty(), S_OK);
  ASSERT_EQ(persist_->Save(stream.get(), TRUE), S_OK);
  EXPECT_EQ(persist_->IsDirty(), S_FALSE);
  ULARGE_INTEGER most = {}, used = {};
  EXPECT_EQ(persist_->GetSizeMax(&most), S_OK);
  stream->Seek({}, STREAM_SEEK_CUR, &used);
  EXPECT_EQ(used.QuadPart, most.QuadPart);

  setExtent(100, 100);
  rewind(*stream.get());
  ASSERT_EQ(persist_->Load(stream.get()), S_OK);
  EXPECT_EQ(extent().cx, 7000);
  EXPECT_EQ(extent().cy, 5000);
  EXPECT_EQ(persist_->IsDirty(), S_FALSE);
}

TEST_F(Persistence, IsUnmovedByForeignStreams) {
  setExtent(7000, 5000);
  std::vector<BYTE> newer = {'K', 'L', 'V', 'N', 9, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 2, 3};
  std::vector<BYTE> negative = {'K', 'L', 'V', 'N', 1, 0, 0, 0, 255, 255, 255, 255, 1, 0, 0, 0};
  for (const auto& bytes : {std::vector<BYTE>{}, std::vector<BYTE>{'K', 'L', 'V'},
                            std::vector<BYTE>(64, 0xAB), newer, negative}) {
    ComOwner<IStream> stream;
    streamOf(bytes, stream);
    EXPECT_EQ(persist_->Load(stream.get()), S_OK) << bytes.size();
    EXPECT_EQ(extent().cx, 7000) << bytes.size();
  }
  EXPECT_EQ(persist_->Load(nullptr), E_POINTER);
  EXPECT_EQ(persist_->Save(nullptr, TRUE), E_POINTER);
}

}  // namespace
}  // namespace winetest
