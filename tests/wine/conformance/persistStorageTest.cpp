#include "AdviseSink.h"
#include "Keeping.h"

namespace winetest {
namespace {

class PersistStorage : public Keeping<IPersistStorage> {
 protected:
  PersistStorage() {
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
    const HRESULT opened = storage->OpenStream(
        L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.receive());
    if (FAILED(opened)) return {};
    std::vector<BYTE> bytes(100);
    ULONG read = 0;
    stream->Read(bytes.data(), 100, &read);
    bytes.resize(read);
    return bytes;
  }

  ComOwner<IStorage> storage_, other_;
};

TEST_F(PersistStorage, BringsTheExtentBackInAnotherControl) {
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

TEST_F(PersistStorage, HoldsTheSameBytesAsAStream) {
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

TEST_F(PersistStorage, IsUnmovedByEmptyAndForeignOnes) {
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

TEST_F(PersistStorage, IsMadeOrLoadedOnceAndFirst) {
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

TEST_F(PersistStorage, IsNotWrittenBeforeTheLastSaveIsComplete) {
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

TEST_F(PersistStorage, OfACopyLeavesTheControlDirty) {
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

TEST_F(PersistStorage, StaysDirtyWhenItCannotBeWritten) {
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

TEST_F(PersistStorage, IsHeldByNobodyAfterwards) {
  ASSERT_EQ(persist_->InitNew(storage_.get()), S_OK);
  ASSERT_EQ(persist_->Save(storage_.get(), TRUE), S_OK);
  EXPECT_EQ(storage_.release(), 0U);
}

TEST(Persist, IsOneIdentityAndOneClass) {
  BareControl control;
  for (const IID& id :
       {IID_IPersist, IID_IPersistStreamInit, IID_IPersistPropertyBag, IID_IPersistStorage}) {
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
