#include <hdf5.h>

#include <stdexcept>
#include <string>

#include "NcTest.h"

namespace {

using ocxNetNc::OpenCatalogue;

// Groups of an HDF5 file and links to them, as no program of netCDF's own writes them.
class Hdf5File {
 public:
  // Goes on with the set at path.
  explicit Hdf5File(const std::string& path)
      : id_(checked(H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT))) {}
  ~Hdf5File() { H5Fclose(id_); }
  Hdf5File(const Hdf5File&) = delete;
  Hdf5File& operator=(const Hdf5File&) = delete;

  void group(const std::string& path) {
    const hid_t made =
        checked(H5Gcreate2(id_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
    H5Gclose(made);
  }
  void link(const std::string& from, const std::string& to) {
    checked(H5Lcreate_hard(id_, to.c_str(), id_, from.c_str(), H5P_DEFAULT, H5P_DEFAULT));
  }
  void softLink(const std::string& from, const std::string& to) {
    checked(H5Lcreate_soft(to.c_str(), id_, from.c_str(), H5P_DEFAULT, H5P_DEFAULT));
  }

 private:
  static hid_t checked(hid_t result) {
    if (result < 0) throw std::runtime_error("HDF5 refuses");
    return result;
  }
  hid_t id_;
};

class LinkedGroupsTest : public NcTest {
 protected:
  LinkedGroupsTest() {
    NcMaker nc(file(), NC_NETCDF4);
    const int x = nc.dim("x", 2);
    nc.put(nc.var("x", NC_FLOAT, {x}), {1, 2});
  }
  using NcMaker = support::NcMaker;

  void expectRefused() {
    EXPECT_EQ(OpenCatalogue(file(), 0), -1);
    expectLibraryFailure("NetCDF: HDF error");
  }
};

TEST_F(LinkedGroupsTest, MayLieInEachOther) {
  {
    Hdf5File h5(file());
    std::string path;
    for (int depth = 0; depth < 100; ++depth) h5.group(path += "/g");
    h5.group("/other");
    h5.link("/other/same", "/g/g");
    h5.softLink("/other/again", "/g/g/g");
  }
  open(file());
}

TEST_F(LinkedGroupsTest, AreRefusedWhenTheyLieInThemselves) {
  Hdf5File(file()).link("/root", "/");
  expectRefused();
}

TEST_F(LinkedGroupsTest, AreRefusedWhenTwoLieInEachOther) {
  {
    Hdf5File h5(file());
    h5.group("/a");
    h5.group("/a/b");
    h5.link("/a/b/c", "/a");
  }
  expectRefused();
}

TEST_F(LinkedGroupsTest, AreRefusedWhenANameLeadsBack) {
  {
    Hdf5File h5(file());
    h5.group("/a");
    h5.softLink("/a/up", "/");
  }
  expectRefused();
}

TEST_F(LinkedGroupsTest, AreRefusedWhenTheyLieTooDeep) {
  {
    Hdf5File h5(file());
    std::string path;
    for (int depth = 0; depth < 101; ++depth) h5.group(path += "/g");
  }
  expectRefused();
}

// Twenty groups, and a million ways to the last of them.
TEST_F(LinkedGroupsTest, AreRefusedWhenTheWaysToThemHaveNoEnd) {
  {
    Hdf5File h5(file());
    std::string path;
    for (int depth = 0; depth < 20; ++depth) {
      const std::string above = path;
      h5.group(path += "/g");
      h5.link(above + "/h", path);
    }
  }
  expectRefused();
}

// One group by so many names that their number does not fit into the library's.
TEST_F(LinkedGroupsTest, AreRefusedWhenThereAreTooMany) {
  {
    Hdf5File h5(file());
    h5.group("/a");
    for (int i = 0; i < 33'000; ++i) h5.link("/a" + std::to_string(i), "/a");
  }
  expectRefused();
}

// A few thousand links in one group, and many ways to it.
TEST_F(LinkedGroupsTest, AreRefusedWhenAllInThemIsTooMuch) {
  {
    Hdf5File h5(file());
    h5.group("/a");
    for (int i = 0; i < 1'000; ++i) h5.link("/a/v" + std::to_string(i), "/x");
    for (int i = 0; i < 200; ++i) h5.link("/a" + std::to_string(i), "/a");
  }
  expectRefused();
}

}  // namespace
