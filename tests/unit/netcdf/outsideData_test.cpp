#include <array>
#include <fstream>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include "NcTest.h"
#include "netcdf/ncf.h"
#include "support/Hdf5Maker.h"

namespace {

using ocxNetNc::ncf;
using support::Hdf5Maker;

// While one lives, the leak checker does not look. HDF5 forgets lists of its own when it makes a
// virtual data set, which nobody but these tests does, and then never ends as it should.
class Unwatched {
#if defined(__SANITIZE_ADDRESS__)
  __lsan::ScopedDisabler disabler_;
#endif
 public:
  Unwatched() {}
};

// HDF5 files that say that something of theirs is in another file. It is there, and is not read.
class OutsideData : public NcTest {
  Unwatched unwatched_;

 protected:
  OutsideData() {
    std::ofstream(file("raw"), std::ios::binary) << std::string(24, '\1');
    Hdf5Maker other(file("other.nc"));
    other.axis("x", {1, 2, 3}, "m");
    other.variable("elsewhere", H5T_IEEE_F64LE, {"x"});
    other.put("elsewhere", {7, 8, 9});
  }

  std::vector<std::string> namesIn(const std::string& path) {
    open(path);
    std::vector<std::string> names;
    for (const ocxNetNc::NcVar& variable : ncf.NcVars) names.push_back(variable.Name);
    return names;
  }
  using Names = std::vector<std::string>;
};

TEST_F(OutsideData, IsNotFollowedByLinks) {
  {
    Hdf5Maker set(file());
    set.axis("x", {1, 2, 3}, "m");
    set.linkToOtherFile("linked", file("other.nc"), "/elsewhere");
    set.linkToOtherFile("all", file("other.nc"), "/");
    set.softLink("through", "/all/elsewhere");
    set.softLink("nowhere", "/not/there");
    set.softLink("again", "/x");
  }
  EXPECT_EQ(namesIn(file()), (Names{"again", "x"}));
}

TEST_F(OutsideData, IsNotReadAsAVariable) {
  {
    Hdf5Maker set(file());
    set.axis("x", {1, 2, 3}, "m");
    const hid_t raw = set.storage();
    ASSERT_GE(H5Pset_external(raw, file("raw").c_str(), 0, 24), 0);
    set.variable("raw", H5T_IEEE_F64LE, {"x"}, raw);
    const hsize_t length = 3;
    const hid_t all = H5Screate_simple(1, &length, nullptr);
    const hid_t outside = set.storage(), inside = set.storage();
    ASSERT_GE(H5Pset_virtual(outside, all, file("other.nc").c_str(), "/elsewhere", all), 0);
    ASSERT_GE(H5Pset_virtual(inside, all, ".", "/x", all), 0);
    H5Sclose(all);
    set.variable("outside", H5T_IEEE_F64LE, {"x"}, outside);
    set.variable("inside", H5T_IEEE_F64LE, {"x"}, inside);
  }
  EXPECT_EQ(namesIn(file()), (Names{"inside", "x"}));
  std::array<double, 3> values = {};
  int id = -1, variable = -1;
  ASSERT_EQ(nc_open(file().c_str(), NC_NOWRITE, &id), NC_NOERR);
  EXPECT_EQ(nc_inq_varid(id, "inside", &variable), NC_NOERR);
  EXPECT_EQ(nc_get_var_double(id, variable, values.data()), NC_NOERR);
  EXPECT_EQ(values, (std::array<double, 3>{1, 2, 3}));
  nc_close(id);
}

// Numbers of sixteen bytes once passed for strings, whose values are half as long.
TEST(LongNumbers, AreNoVariables) {
  const support::TempFolder folder;
  const std::string path = folder.file("set.nc");
  {
    Hdf5Maker set(path);
    set.axis("x", {1, 2, 3}, "m");
    const hid_t sixteen = set.keep(H5Tcopy(H5T_IEEE_F64LE));
    ASSERT_GE(H5Tset_size(sixteen, 16), 0);
    ASSERT_GE(H5Tset_precision(sixteen, 128), 0);
    ASSERT_GE(H5Tset_fields(sixteen, 127, 112, 15, 0, 112), 0);
    ASSERT_GE(H5Tset_ebias(sixteen, 16'383), 0);
    set.variable("long", sixteen, {"x"});
    set.variable("short", H5T_STD_I16LE, {"x"});
  }
  int id = -1, variable = -1;
  ASSERT_EQ(nc_open(path.c_str(), NC_NOWRITE, &id), NC_NOERR);
  EXPECT_EQ(nc_inq_varid(id, "long", &variable), NC_ENOTVAR);
  EXPECT_EQ(nc_inq_varid(id, "short", &variable), NC_NOERR);
  nc_close(id);
}

}  // namespace
