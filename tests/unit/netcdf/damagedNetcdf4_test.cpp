#include <filesystem>
#include <fstream>

#include "NcTest.h"
#include "platform/files.h"

namespace {

using ocxNetNc::NcClose;
using ocxNetNc::OpenCatalogue;
using support::NcMaker;

// What the library writes of one netCDF-4 file, and damages to it.
class DamagedNetcdf4Test : public NcTest {
 protected:
  // A group with more links than a header holds, so that they are in a heap with an index.
  void makeManyVariables() {
    NcMaker nc(file(), NC_NETCDF4);
    const int x = nc.dim("x", 3);
    for (char letter = 'a'; letter < 'm'; ++letter) {
      const int id = nc.var(std::string("variable_") + letter, NC_INT, {x});
      nc.text(id, "units", "m");
      nc.text(NC_GLOBAL, std::string("remark_") + letter, "one of many");
    }
    nc.close();
  }
  std::string bytes() const {
    return platform::readWholeFile(file(), std::size_t{1} << 24);
  }
  void write(const std::string& bytes) const {
    std::ofstream(file(), std::ios::binary) << bytes;
  }
  // The bytes with one of them changed, behind the given text.
  static std::string changedBehind(const std::string& text, std::string bytes) {
    const std::size_t at = bytes.find(text);
    EXPECT_NE(at, std::string::npos) << text;
    bytes[at + text.size() + 10] = static_cast<char>(bytes[at + text.size() + 10] + 1);
    return bytes;
  }
};

// The library once kept such a file open, and took the next one of its name for it.
TEST_F(DamagedNetcdf4Test, IsForgottenWhenItCannotBeOpened) {
  makeManyVariables();
  const std::string whole = bytes();
  for (const char* block : {"OHDR", "FRHP", "FHDB", "BTHD", "BTLF"}) {
    SCOPED_TRACE(block);
    write(changedBehind(block, whole));
    EXPECT_EQ(OpenCatalogue(file(), 0), -1);
    EXPECT_FALSE(ocxNetNc::isOpen());
    write(whole);
    open(file());
    NcClose();
  }
}

// A table of links was released as long as the group told, however far it was filled.
TEST_F(DamagedNetcdf4Test, MayHaveLinksThatCannotBeRead) {
  makeManyVariables();
  const std::string whole = bytes();
  const std::size_t heap = whole.find("FHDB");
  ASSERT_NE(heap, std::string::npos);
  for (std::size_t at = heap; at < heap + 400; at += 3) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(~damaged[at]);
    write(damaged);
    OpenCatalogue(file(), 1);
    EXPECT_FALSE(ocxNetNc::isOpen()) << at;
  }
  write(whole);
  open(file());
}

// The room for strings that could not be read was released as if it held them.
TEST_F(DamagedNetcdf4Test, MayHaveStringsThatCannotBeRead) {
  {
    NcMaker nc(file(), NC_NETCDF4);
    const int x = nc.dim("x", 3);
    nc.var("x", NC_INT, {x});
    const char* texts[] = {"one", "two", "three"};
    ASSERT_EQ(nc_put_att_string(nc.id(), NC_GLOBAL, "remarks", 3, texts), NC_NOERR);
    nc.close();
  }
  const std::string whole = bytes();
  const std::size_t heap = whole.find("GCOL");
  ASSERT_NE(heap, std::string::npos);
  std::string damaged = whole;
  damaged[heap] = 'g';
  write(damaged);
  for (int time = 0; time < 3; ++time) EXPECT_EQ(OpenCatalogue(file(), 0), -1);
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(DamagedNetcdf4Test, MayEndAnywhere) {
  makeManyVariables();
  const std::string whole = bytes();
  for (std::size_t length = 0; length < whole.size(); length += whole.size() / 50) {
    write(whole.substr(0, length));
    EXPECT_EQ(OpenCatalogue(file(), 0), -1) << length;
    EXPECT_NE(util::LastError, "") << length;
  }
  write(whole);
  open(file());
}

}  // namespace
