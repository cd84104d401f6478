#include <gtest/gtest.h>
#include <olectl.h>

#include "AdviseSink.h"
#include "TestSite.h"
#include "control.h"

namespace winetest {
namespace {

using host::ComOwner;

// Takes events by IDispatch, as the sinks of scripts do, or by their own interface.
class EventSink final : public IDispatch {
 public:
  explicit EventSink(REFIID own) : own_(own) {}
  virtual ~EventSink() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == own_;
    *object = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    ++events;
    return S_OK;
  }

  ULONG references = 1;
  int events = 0;

 private:
  const IID own_;
};

class ConnectionPoints : public testing::Test {
 protected:
  ConnectionPoints() {
    control_.as(container_);
    EXPECT_EQ(container_->FindConnectionPoint(__uuidof(__KelvaneCtl), point_.receive()), S_OK);
  }

  BareControl control_;
  ComOwner<IConnectionPointContainer> container_;
  ComOwner<IConnectionPoint> point_;
};

TEST_F(ConnectionPoints, AreOneForTheDefaultEvents) {
  ComOwner<IProvideClassInfo2> classInfo;
  GUID source = {}, told = {};
  ASSERT_EQ(control_.as(classInfo)->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
  ASSERT_EQ(point_->GetConnectionInterface(&told), S_OK);
  EXPECT_EQ(told, source);
  EXPECT_EQ(point_->GetConnectionInterface(nullptr), E_POINTER);
  ComOwner<IConnectionPointContainer> container;
  ASSERT_EQ(point_->GetConnectionPointContainer(container.receive()), S_OK);
  EXPECT_EQ(container.get(), container_.get());
  EXPECT_EQ(point_->GetConnectionPointContainer(nullptr), E_POINTER);
  ComOwner<IEnumConnectionPoints> list;
  ASSERT_EQ(container_->EnumConnectionPoints(list.receive()), S_OK);
  IConnectionPoint* found[2] = {};
  ULONG count = 0;
  EXPECT_EQ(list->Next(2, found, &count), S_FALSE);
  ASSERT_EQ(count, 1U);
  EXPECT_EQ(found[0], point_.get());
  found[0]->Release();
  EXPECT_EQ(container_->EnumConnectionPoints(nullptr), E_POINTER);
}

TEST_F(ConnectionPoints, AreObjectsOfTheirOwn) {
  ComOwner<IUnknown> identity, again;
  ASSERT_EQ(point_->QueryInterface(IID_IUnknown, identity.receiveAny()), S_OK);
  EXPECT_NE(identity.get(), control_.identity());
  ASSERT_EQ(identity->QueryInterface(IID_IConnectionPoint, again.receiveAny()), S_OK);
  void* none = this;
  EXPECT_EQ(point_->QueryInterface(IID_IOleObject, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(point_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ConnectionPoints, ForOtherInterfacesAreNotThere) {
  auto* none = point_.get();
  for (const IID& id : {IID_IPropertyNotifySink, IID_IDispatch, IID_IUnknown, IID_NULL}) {
    none = point_.get();
    EXPECT_EQ(container_->FindConnectionPoint(id, &none), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(none, nullptr);
  }
  EXPECT_EQ(container_->FindConnectionPoint(__uuidof(__KelvaneCtl), nullptr), E_POINTER);
}

TEST_F(ConnectionPoints, TakeSinksAndLetThemGo) {
  EventSink script(IID_IDispatch), typed(__uuidof(__KelvaneCtl));
  AdviseSink foreign;
  DWORD first = 0, second = 0, none = 5;
  ASSERT_EQ(point_->Advise(&script, &first), S_OK);
  ASSERT_EQ(point_->Advise(&typed, &second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(point_->Advise(&foreign, &none), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(none, 0U);
  EXPECT_EQ(point_->Advise(nullptr, &none), E_POINTER);
  EXPECT_EQ(point_->Advise(&script, nullptr), E_POINTER);
  ComOwner<IEnumConnections> list;
  ASSERT_EQ(point_->EnumConnections(list.receive()), S_OK);
  CONNECTDATA found[3] = {};
  ULONG count = 0;
  EXPECT_EQ(list->Next(3, found, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  EXPECT_EQ(found[0].dwCookie, first);
  EXPECT_EQ(found[1].dwCookie, second);
  for (ULONG i = 0; i < count; ++i) found[i].pUnk->Release();
  list.reset();
  EXPECT_EQ(point_->EnumConnections(nullptr), E_POINTER);
  EXPECT_EQ(point_->Unadvise(first), S_OK);
  EXPECT_EQ(point_->Unadvise(first), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point_->Unadvise(0), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(script.references, 1U);
  EXPECT_EQ(typed.references, 2U);
  EXPECT_EQ(point_->Unadvise(second), S_OK);
  EXPECT_EQ(typed.references, 1U);
  EXPECT_EQ(foreign.references, 1U);
}

TEST_F(ConnectionPoints, KeepTheControlAndGoWithIt) {
  EventSink sink(IID_IDispatch);
  DWORD connection = 0;
  ASSERT_EQ(point_->Advise(&sink, &connection), S_OK);
  container_.reset();
  EXPECT_GT(control_.release(), 0U);
  EXPECT_EQ(control_.library().canUnloadNow(), S_FALSE);
  EXPECT_EQ(point_.release(), 0U);  // with the sink still connected
  EXPECT_EQ(sink.references, 1U);
  EXPECT_EQ(sink.events, 0);
  EXPECT_EQ(control_.library().canUnloadNow(), S_OK);
}

}  // namespace
}  // namespace winetest
