#include <optional>
#include <string>
#include <utility>

#include "NcTest.h"
#include "support/Hdf5Maker.h"

namespace {

using ocxNetNc::OpenCatalogue;

// Groups and links between them, as no program of netCDF's own writes them.
class LinkedGroupsTest : public NcTest {
 protected:
  LinkedGroupsTest() : h5(std::in_place, file()) { h5->axis("x", {1, 2}, "m"); }

  void expectRefused() {
    h5.reset();
    EXPECT_EQ(OpenCatalogue(file(), 0), -1);
    expectLibraryFailure("NetCDF: HDF error");
  }

  std::optional<support::Hdf5Maker> h5;  // the file until it is closed
};

TEST_F(LinkedGroupsTest, MayLieInEachOther) {
  std::string path;
  for (int depth = 0; depth < 100; ++depth) h5->group(path += "/g");
  h5->group("/other");
  h5->hardLink("/other/same", "/g/g");
  h5->softLink("/other/again", "/g/g/g");
  h5.reset();
  open(file());
}

TEST_F(LinkedGroupsTest, AreRefusedWhenTheyLieInThemselves) {
  h5->hardLink("/root", "/");
  expectRefused();
}

TEST_F(LinkedGroupsTest, AreRefusedWhenTwoLieInEachOther) {
  h5->group("/a");
  h5->group("/a/b");
  h5->hardLink("/a/b/c", "/a");
  expectRefused();
}

TEST_F(LinkedGroupsTest, AreRefusedWhenANameLeadsBack) {
  h5->group("/a");
  h5->softLink("/a/up", "/");
  expectRefused();
}

TEST_F(LinkedGroupsTest, AreRefusedWhenTheyLieTooDeep) {
  std::string path;
  for (int depth = 0; depth < 101; ++depth) h5->group(path += "/g");
  expectRefused();
}

// Twenty groups, and a million ways to the last of them.
TEST_F(LinkedGroupsTest, AreRefusedWhenTheWaysToThemHaveNoEnd) {
  std::string path;
  for (int depth = 0; depth < 20; ++depth) {
    const std::string above = path;
    h5->group(path += "/g");
    h5->hardLink(above + "/h", path);
  }
  expectRefused();
}

// One group by so many names that their number does not fit into the library's.
TEST_F(LinkedGroupsTest, AreRefusedWhenThereAreTooMany) {
  h5->group("/a");
  for (int i = 0; i < 33'000; ++i) h5->hardLink("/a" + std::to_string(i), "/a");
  expectRefused();
}

// A few thousand links in one group, and many ways to it.
TEST_F(LinkedGroupsTest, AreRefusedWhenAllInThemIsTooMuch) {
  h5->group("/a");
  for (int i = 0; i < 1'000; ++i) h5->hardLink("/a/v" + std::to_string(i), "/x");
  for (int i = 0; i < 200; ++i) h5->hardLink("/a" + std::to_string(i), "/a");
  expectRefused();
}

}  // namespace
