#include <gtest/gtest.h>

#include <ocidl.h>

#include <map>
#include <string>
#include <vector>

#include "AdviseSink.h"
#include "Dispatch.h"
#include "control.h"

namespace winetest {
namespace {

using host::ComOwner;
using host::Value;

// Properties by name, as a form's text has them. Lives as long as its test.
class Bag final : public IPropertyBag {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** answer) override {
    *answer = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
    const auto found = values.find(name);
    if (found == values.end()) return E_INVALIDARG;
    return VariantCopy(value, &found->second.variant());
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override {
    if (static_cast<int>(values.size()) >= room) return E_OUTOFMEMORY;
    return VariantCopy(&values[name].variant(), value);
  }

  virtual ~Bag() = default;
  ULONG references = 1;
  int room = 100;
  std::map<std::wstring, Value> values;
};

class ErrorLog final : public IErrorLog {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** answer) override {
    *answer = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR name, EXCEPINFO* error) override {
    names.emplace_back(name);
    EXPECT_TRUE(FAILED(error->scode));
    EXPECT_GT(SysStringLen(error->bstrDescription), 0U);
    EXPECT_GT(SysStringLen(error->bstrSource), 0U);
    return S_OK;
  }

  virtual ~ErrorLog() = default;
  ULONG references = 1;
  std::vector<std::wstring> names;
};

template <class Interface>
class Keeping : public testing::Test {
 protected:
  Keeping() { control_.as(persist_); }

  SIZEL extent() {
    SIZEL extent = {};
    control_.ole()->GetExtent(DVASPECT_CONTENT, &extent);
    return extent;
  }
  void setExtent(LONG cx, LONG cy) {
    SIZEL extent = {cx, cy};
    ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
  }
  void expectExtent(LONG cx, LONG cy) {
    EXPECT_EQ(extent().cx, cx);
    EXPECT_EQ(extent().cy, cy);
  }
  // Every way of keeping the control tells the same.
  bool dirty() {
    ComOwner<IPersistStreamInit> stream;
    ComOwner<IPersistStorage> storage;
    const bool one = control_.as(stream)->IsDirty() == S_OK;
    EXPECT_EQ(control_.as(storage)->IsDirty(), one ? S_OK : S_FALSE);
    return one;
  }

  BareControl control_;
  ComOwner<Interface> persist_;
};

using PropertyBag = Keeping<IPersistPropertyBag>;

TEST_F(PropertyBag, BringsTheExtentBack) {
  Bag bag;
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_FALSE(dirty());
  setExtent(7000, 5000);
  EXPECT_EQ(persist_->Save(&bag, FALSE, TRUE), S_OK);
  EXPECT_TRUE(dirty());
  EXPECT_EQ(persist_->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_FALSE(dirty());
  ASSERT_EQ(bag.values.size(), 2U);
  EXPECT_EQ(bag.values[L"_ExtentX"].type(), VT_I4);
  EXPECT_EQ(bag.values[L"_ExtentX"].number(), 7000);
  EXPECT_EQ(bag.values[L"_ExtentY"].type(), VT_I4);
  EXPECT_EQ(bag.values[L"_ExtentY"].number(), 5000);

  setExtent(100, 200);
  ErrorLog errors;
  EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
  expectExtent(7000, 5000);
  EXPECT_FALSE(dirty());
  EXPECT_TRUE(errors.names.empty());
  EXPECT_EQ(bag.references, 1U);
  EXPECT_EQ(errors.references, 1U);
}

TEST_F(PropertyBag, LeavesWhatIsMissingAsItIs) {
  Bag bag;
  ErrorLog errors;
  setExtent(7000, 5000);
  EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
  expectExtent(7000, 5000);
  bag.values[L"_ExtentY"] = Value(1234);
  bag.values[L"BackColor"] = Value(L"of another control");
  EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
  expectExtent(7000, 1234);
  EXPECT_TRUE(errors.names.empty());
}

TEST_F(PropertyBag, TakesNumbersOfAnyType) {
  const struct {
    Value value;
    LONG number;
  } rows[] = {{Value(0), 0}, {Value(L"8123"), 8123}, {Value(4321.0), 4321}};
  for (const auto& row : rows) {
    Bag bag;
    ErrorLog errors;
    bag.values[L"_ExtentX"] = row.value;
    setExtent(7000, 5000);
    EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
    expectExtent(row.number, 5000);
    EXPECT_TRUE(errors.names.empty());
  }
}

TEST_F(PropertyBag, TellsTheErrorLogOfWhatIsNoExtent) {
  Value object, null;
  V_VT(&object.variant()) = VT_UNKNOWN;
  V_UNKNOWN(&object.variant()) = control_.identity();
  control_.identity()->AddRef();
  V_VT(&null.variant()) = VT_NULL;
  for (const Value& wrong : {Value(-1), Value(L"wide"), Value(L""), Value(1e20), object, null}) {
    Bag bag;
    ErrorLog errors;
    bag.values[L"_ExtentX"] = wrong;
    bag.values[L"_ExtentY"] = Value(1234);
    setExtent(7000, 5000);
    EXPECT_EQ(persist_->Load(&bag, &errors), S_OK) << wrong.type();
    expectExtent(7000, 1234);
    EXPECT_EQ(errors.names, std::vector<std::wstring>{L"_ExtentX"}) << wrong.type();
    EXPECT_EQ(persist_->Load(&bag, nullptr), S_OK) << wrong.type();
    expectExtent(7000, 1234);
  }
}

TEST_F(PropertyBag, StaysDirtyWhenTheBagIsFull) {
  setExtent(7000, 5000);
  for (const int room : {0, 1}) {
    Bag bag;
    bag.room = room;
    EXPECT_EQ(persist_->Save(&bag, TRUE, TRUE), E_OUTOFMEMORY) << room;
    EXPECT_TRUE(dirty()) << room;
  }
  EXPECT_EQ(persist_->Load(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(persist_->Save(nullptr, TRUE, TRUE), E_POINTER);
}

class Storage : public Keeping<IPersistStorage> {
 protected:
  Storage() {
    makeStorage(storage_);
    makeStorage(other_);
  }

  static void makeStorage(ComOwner<IStorage>& storage) {
    ComOwner<ILockBytes> bytes;
    CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.receive());
    makeStorage(bytes.get(), storage);
  }
  static void makeStorage(ILockBytes* bytes, ComOwner<IStorage>& storage) {
    const HRESULT made = StgCreateDocfileOnILockBytes(
        bytes, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, storage.receive());
    EXPECT_EQ(made, S_OK);
  }
  static std::vector<BYTE> contentsOf(IStorage* storage) {
    ComOwner<IStream> stream;
    const HRESULT opened = storage->OpenStream(L"Contents", nullptr,
                                               STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                                               stream.receive());
    if (FAILED(opened)) return {};
    std::vector<BYTE> bytes(100);
    ULONG read = 0;
    stream->Read(bytes.data(), 100, &read);
    bytes.resize(read);
    return bytes;
  }

  ComOwner<IStorage> storage_, other_;
};

TEST_F(Storage, BringsTheExtentBackInAnotherControl) {
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  EXPECT_FALSE(dirty());
  setExtent(7000, 5000);
  EXPECT_TRUE(dirty());
  ASSERT_EQ(persist_->Save(storage_.get(), TRUE), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), S_OK);
  EXPECT_FALSE(dirty());

  BareControl second;
  ComOwner<IPersistStorage> loader;
  ASSERT_EQ(second.as(loader)->Load(storage_.get()), S_OK);
  SIZEL loaded = {};
  second.ole()->GetExtent(DVASPECT_CONTENT, &loaded);
  EXPECT_EQ(loaded.cx, 7000);
  EXPECT_EQ(loaded.cy, 5000);
  EXPECT_EQ(loader->IsDirty(), S_FALSE);
}

TEST_F(Storage, HoldsTheSameBytesAsAStream) {
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  setExtent(7000, 5000);
  ASSERT_EQ(persist_->Save(storage_.get(), TRUE), S_OK);
  ComOwner<IPersistStreamInit> other;
  ComOwner<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.receive());
  ASSERT_EQ(control_.as(other)->Save(stream.get(), FALSE), S_OK);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  std::vector<BYTE> bytes(100);
  ULONG read = 0;
  stream->Read(bytes.data(), 100, &read);
  bytes.resize(read);
  EXPECT_EQ(bytes.size(), 16U);
  EXPECT_EQ(contentsOf(storage_.get()), bytes);
}

TEST_F(Storage, IsUnmovedByEmptyAndForeignOnes) {
  setExtent(7000, 5000);
  ASSERT_EQ(persist_->Load(other_.get()), S_OK);
  expectExtent(7000, 5000);
  EXPECT_FALSE(dirty());
  EXPECT_EQ(persist_->Save(other_.get(), TRUE), S_OK);

  BareControl second;
  ComOwner<IStream> stream;
  ASSERT_EQ(storage_->CreateStream(L"Contents", STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                   stream.receive()),
            S_OK);
  ASSERT_EQ(stream->Write("garbage of some length", 22, nullptr), S_OK);
  stream.reset();
  ComOwner<IPersistStorage> loader;
  SIZEL before = {}, after = {};
  second.ole()->GetExtent(DVASPECT_CONTENT, &before);
  EXPECT_EQ(second.as(loader)->Load(storage_.get()), S_OK);
  second.ole()->GetExtent(DVASPECT_CONTENT, &after);
  EXPECT_EQ(after.cx, before.cx);
  EXPECT_EQ(after.cy, before.cy);
}

TEST_F(Storage, IsMadeOrLoadedOnceAndFirst) {
  EXPECT_EQ(persist_->Save(storage_.get(), TRUE), E_UNEXPECTED);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_UNEXPECTED);
  EXPECT_EQ(persist_->SaveCompleted(storage_.get()), E_UNEXPECTED);
  EXPECT_EQ(persist_->HandsOffStorage(), E_UNEXPECTED);
  EXPECT_EQ(persist_->InitNew(nullptr), E_POINTER);
  EXPECT_EQ(persist_->Load(nullptr), E_POINTER);
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  EXPECT_EQ(persist_->InitNew(storage_.get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(persist_->Load(storage_.get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(persist_->Save(nullptr, TRUE), E_POINTER);
}

TEST_F(Storage, IsNotWrittenBeforeTheLastSaveIsComplete) {
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_UNEXPECTED);
  ASSERT_EQ(persist_->Save(storage_.get(), TRUE), S_OK);
  EXPECT_EQ(persist_->Save(storage_.get(), TRUE), E_UNEXPECTED);
  EXPECT_EQ(persist_->HandsOffStorage(), S_OK);
  EXPECT_EQ(persist_->HandsOffStorage(), E_UNEXPECTED);
  EXPECT_EQ(persist_->Save(storage_.get(), TRUE), E_UNEXPECTED);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_INVALIDARG);
  EXPECT_EQ(persist_->SaveCompleted(other_.get()), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_UNEXPECTED);
  EXPECT_EQ(persist_->Save(other_.get(), TRUE), S_OK);
  EXPECT_EQ(contentsOf(other_.get()).size(), 16U);
}

TEST_F(Storage, OfACopyLeavesTheControlDirty) {
  AdviseSink sink;
  DWORD connection = 0;
  ASSERT_EQ(control_.ole()->Advise(&sink, &connection), S_OK);
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  setExtent(7000, 5000);
  ASSERT_EQ(persist_->Save(other_.get(), FALSE), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), S_OK);
  EXPECT_TRUE(dirty());
  EXPECT_EQ(sink.saves, 0);
  ASSERT_EQ(persist_->Save(other_.get(), FALSE), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(other_.get()), S_OK);  // the copy is the control's own now
  EXPECT_FALSE(dirty());
  EXPECT_EQ(sink.saves, 1);
  EXPECT_EQ(control_.ole()->Unadvise(connection), S_OK);
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(Storage, StaysDirtyWhenItCannotBeWritten) {
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  setExtent(7000, 5000);
  ComOwner<ILockBytes> bytes;
  ComOwner<IStorage> readOnly;
  ASSERT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.receive()), S_OK);
  makeStorage(bytes.get(), readOnly);
  readOnly.reset();
  ASSERT_EQ(StgOpenStorageOnILockBytes(bytes.get(), nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE,
                                       nullptr, 0, readOnly.receive()),
            S_OK);
  EXPECT_EQ(persist_->Save(readOnly.get(), FALSE), STG_E_ACCESSDENIED);
  EXPECT_TRUE(dirty());
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_UNEXPECTED);  // there was none
  EXPECT_EQ(persist_->Save(storage_.get(), TRUE), S_OK);
}

TEST_F(Storage, IsHeldByNobodyAfterwards) {
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  ASSERT_EQ(persist_->Save(storage_.get(), TRUE), S_OK);
  EXPECT_EQ(storage_.release(), 0U);
}

TEST(Persist, IsOneIdentityAndOneClass) {
  BareControl control;
  for (const IID& id : {IID_IPersist, IID_IPersistStreamInit, IID_IPersistPropertyBag,
                        IID_IPersistStorage}) {
    ComOwner<IPersist> role;
    ComOwner<IUnknown> identity;
    ASSERT_EQ(control.identity()->QueryInterface(id, role.receiveAny()), S_OK);
    CLSID kind = {};
    EXPECT_EQ(role->GetClassID(&kind), S_OK);
    EXPECT_EQ(kind, kClassId);
    EXPECT_EQ(role->GetClassID(nullptr), E_POINTER);
    ASSERT_EQ(role->QueryInterface(IID_IUnknown, identity.receiveAny()), S_OK);
    EXPECT_EQ(identity.get(), control.identity());
  }
  EXPECT_EQ(control.release(), 0U);
  EXPECT_EQ(control.library().canUnloadNow(), S_OK);
}

}  // namespace
}  // namespace winetest
