#include "Keeping.h"

namespace winetest {
namespace {

class PersistStreamInit : public Keeping<IPersistStreamInit> {
 protected:
  static void streamOf(const std::vector<BYTE>& bytes, ComOwner<IStream>& stream) {
    CreateStreamOnHGlobal(nullptr, TRUE, stream.receive());
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    rewind(*stream.get());
  }
  static void rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }
};

TEST_F(PersistStreamInit, BringsTheExtentBack) {
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

TEST_F(PersistStreamInit, IsUnmovedByForeignStreams) {
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

// Designers load into a control that was made anew before, and load again to undo.
TEST_F(PersistStreamInit, TakesTheLastStateInAnyOrder) {
  ComOwner<IStream> stream, other;
  streamOf({'K', 'L', 'V', 'N', 1, 0, 0, 0, 0x39, 0x30, 0, 0, 1, 2, 0, 0}, stream);
  streamOf({'K', 'L', 'V', 'N', 1, 0, 0, 0, 9, 0, 0, 0, 8, 0, 0, 0}, other);
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_EQ(persist_->Load(stream.get()), S_OK);
  expectExtent(12345, 513);
  EXPECT_EQ(persist_->Load(other.get()), S_OK);
  expectExtent(9, 8);
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_EQ(persist_->InitNew(), S_OK);
  expectExtent(9, 8);
  EXPECT_FALSE(dirty());
}

// What follows in the stream is another object's.
TEST_F(PersistStreamInit, ReadsNoFurtherThanItWrote) {
  ComOwner<IStream> stream;
  streamOf({'K', 'L', 'V', 'N', 1, 0, 0, 0, 9, 0, 0, 0, 8, 0, 0, 0, 'n', 'e', 'x', 't'}, stream);
  EXPECT_EQ(persist_->Load(stream.get()), S_OK);
  ULARGE_INTEGER place = {};
  EXPECT_EQ(stream->Seek({}, STREAM_SEEK_CUR, &place), S_OK);
  EXPECT_EQ(place.QuadPart, 16U);
}

TEST_F(PersistStreamInit, TellsItsSizeAndRefusesNothingElse) {
  ULARGE_INTEGER most = {};
  EXPECT_EQ(persist_->GetSizeMax(&most), S_OK);
  EXPECT_EQ(most.QuadPart, 16U);
  EXPECT_EQ(persist_->GetSizeMax(nullptr), E_POINTER);
}

}  // namespace
}  // namespace winetest
