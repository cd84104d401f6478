#include "Keeping.h"

namespace winetest {
namespace {

// One control, kept by one way and brought back by another.
class PersistTogether : public Keeping<IPersistStreamInit> {
 protected:
  PersistTogether() {
    control_.as(bag_);
    control_.as(storage_);
    CreateStreamOnHGlobal(nullptr, TRUE, stream_.receive());
    ComOwner<ILockBytes> bytes;
    CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.receive());
    StgCreateDocfileOnILockBytes(bytes.get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                 0, kept_.receive());
  }

  ComOwner<IPersistPropertyBag> bag_;
  ComOwner<IPersistStorage> storage_;
  ComOwner<IStream> stream_;
  ComOwner<IStorage> kept_;
  Bag properties_;
};

TEST_F(PersistTogether, GoesFromStreamToBagToStorageToStream) {
  setExtent(7000, 5000);
  ASSERT_EQ(persist_->Save(stream_.get(), TRUE), S_OK);
  setExtent(1, 2);
  stream_->Seek({}, STREAM_SEEK_SET, nullptr);
  ASSERT_EQ(persist_->Load(stream_.get()), S_OK);
  ASSERT_EQ(bag_->Save(&properties_, TRUE, TRUE), S_OK);
  setExtent(1, 2);
  ASSERT_EQ(bag_->Load(&properties_, nullptr), S_OK);
  ASSERT_EQ(storage_->InitNew(kept_.get()), S_OK);
  ASSERT_EQ(storage_->Save(kept_.get(), TRUE), S_OK);
  ASSERT_EQ(storage_->SaveCompleted(nullptr), S_OK);

  BareControl second;
  ComOwner<IPersistStorage> loader;
  ComOwner<IPersistStreamInit> streamer;
  ASSERT_EQ(second.as(loader)->Load(kept_.get()), S_OK);
  stream_->Seek({}, STREAM_SEEK_SET, nullptr);
  ASSERT_EQ(second.as(streamer)->Save(stream_.get(), TRUE), S_OK);
  setExtent(1, 2);
  stream_->Seek({}, STREAM_SEEK_SET, nullptr);
  ASSERT_EQ(persist_->Load(stream_.get()), S_OK);
  expectExtent(7000, 5000);
}

// The stream inside of a storage is the same as one by itself.
TEST_F(PersistTogether, ReadsTheStreamOfAStorage) {
  ASSERT_EQ(storage_->InitNew(kept_.get()), S_OK);
  setExtent(7000, 5000);
  ASSERT_EQ(storage_->Save(kept_.get(), TRUE), S_OK);
  ASSERT_EQ(storage_->SaveCompleted(nullptr), S_OK);
  setExtent(1, 2);
  ComOwner<IStream> inner;
  ASSERT_EQ(
      kept_->OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, inner.receive()),
      S_OK);
  ASSERT_EQ(persist_->Load(inner.get()), S_OK);
  expectExtent(7000, 5000);
}

TEST_F(PersistTogether, IsDirtyForEveryWayAtOnce) {
  ASSERT_EQ(persist_->InitNew(), S_OK);
  EXPECT_FALSE(dirty());
  setExtent(7000, 5000);
  EXPECT_TRUE(dirty());
  ASSERT_EQ(bag_->Save(&properties_, TRUE, TRUE), S_OK);
  EXPECT_FALSE(dirty());
}

}  // namespace
}  // namespace winetest
