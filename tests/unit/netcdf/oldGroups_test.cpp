#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>

#include "NcTest.h"
#include "platform/files.h"
#include "support/Hdf5Maker.h"

namespace {

using ocxNetNc::OpenCatalogue;

constexpr uint64_t kNoMore = 1;  // ends a list of free blocks
constexpr std::size_t kTreeLevel = 5, kTreeKeys = 24;
constexpr std::size_t kAddress = 8;  // bytes of an address, and of a group's key

// What the oldest layout of HDF5 keeps groups and chunks in, and damages to it.
class OldGroupsTest : public NcTest {
 protected:
  OldGroupsTest() {
    {
      support::Hdf5Maker h5(file(), support::Hdf5Maker::Layout::Oldest);
      h5.axis("x", {1, 2}, "m");
      const hid_t chunks = h5.storage();
      const hsize_t one = 1;
      EXPECT_GE(H5Pset_chunk(chunks, 1, &one), 0);
      h5.variable("y", H5T_STD_I32LE, {"x"}, chunks);
      h5.put("y", {3, 4});
    }
    bytes = platform::readWholeFile(file(), std::size_t{1} << 20);
    // The names of the first group: signature and version, then size, first free block and place.
    const std::size_t heap = placeOf("HEAP");
    freePlace = heap + 16;
    size = static_cast<std::size_t>(numberAt(heap + 8));
    names = static_cast<std::size_t>(numberAt(heap + 24));
  }

  std::size_t placeOf(std::string_view text) const {
    const std::size_t place = bytes.find(text);
    EXPECT_NE(place, std::string::npos) << text;
    return place;
  }
  uint64_t numberAt(std::size_t place) const {
    uint64_t number = 0;
    std::memcpy(&number, bytes.data() + place, sizeof number);
    return number;
  }
  std::size_t firstFree() const { return names + static_cast<std::size_t>(numberAt(freePlace)); }
  void put(std::size_t place, uint64_t number) {
    std::memcpy(bytes.data() + place, &number, sizeof number);
  }
  // Makes a node of a tree its own first child; its keys have so many bytes.
  void putInItself(std::size_t node, std::size_t key) {
    bytes[node + kTreeLevel] = 1;
    put(node + kTreeKeys + key, node);
  }
  void write() const { std::ofstream(file(), std::ios::binary) << bytes; }
  void expectRefused() const {
    write();
    EXPECT_EQ(OpenCatalogue(file(), 0), -1);
    expectLibraryFailure("NetCDF: HDF error");
  }
  // The status of reading the chunks.
  int read() const {
    int id = -1, variable = -1;
    std::array<int, 2> values{};
    EXPECT_EQ(nc_open(file().c_str(), NC_NOWRITE, &id), NC_NOERR);
    EXPECT_EQ(nc_inq_varid(id, "y", &variable), NC_NOERR);
    const int status = nc_get_var_int(id, variable, values.data());
    EXPECT_EQ(nc_close(id), NC_NOERR);
    return status;
  }

  std::string bytes;
  std::size_t freePlace = 0;
  std::size_t size = 0, names = 0;
};

TEST_F(OldGroupsTest, AreReadWhenTheyAreWhole) {
  EXPECT_NE(numberAt(freePlace), kNoMore);
  open(file());
  EXPECT_EQ(read(), NC_NOERR);
}

TEST_F(OldGroupsTest, AreRefusedWhenFreeBlocksLeadBack) {
  put(firstFree(), numberAt(freePlace));
  expectRefused();
}

TEST_F(OldGroupsTest, AreRefusedWhenAFreeBlockBeginsAtTheEnd) {
  put(freePlace, size - 1);
  expectRefused();
}

TEST_F(OldGroupsTest, AreRefusedWhenAFreeBlockIsLongerThanAnyFile) {
  put(firstFree() + 8, ~uint64_t{0});
  expectRefused();
}

// The first of them ends where the heap does.
TEST_F(OldGroupsTest, MayHaveNamesWithoutAnEnd) {
  put(freePlace, kNoMore);
  for (std::size_t place = names + 8; place < names + size; ++place) {
    if (bytes[place] == '\0') bytes[place] = 'x';
  }
  write();
  EXPECT_EQ(OpenCatalogue(file(), 0), -1);
  EXPECT_EQ(util::LastError,
            bytes.substr(names + 8, size - 8) + " nc& > 45 in reading dimension name");
}

TEST_F(OldGroupsTest, AreRefusedWhenTheirTreeIsItsOwnBranch) {
  putInItself(placeOf("TREE"), kAddress);
  expectRefused();
}

TEST_F(OldGroupsTest, HaveNoValuesWhenATreeOfChunksIsItsOwnBranch) {
  // Size and filters, then where the chunk begins: in the one dimension, and in its values.
  putInItself(placeOf(std::string_view("TREE\1", 5)), 8 + 2 * kAddress);
  write();
  EXPECT_EQ(read(), NC_EHDFERR);
}

}  // namespace
