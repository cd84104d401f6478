#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "OpendapTest.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"

// Variables of every type, with missing values and packed numbers, and texts and odd names among
// them: what DAP 2 carries arrives as it is, and what it cannot carry differs in a known way.
namespace opendap_test {
namespace {

using namespace KelvaneMain;
using ocxNetNc::ncf;

class Types : public OpendapTest {
 protected:
  // A grid of one time step, 2 levels, 2 latitudes and 3 longitudes, with one variable of each
  // numeric type; values are those of put().
  void makeSet(const std::string& name, const std::vector<std::string>& extraNames = {}) {
    support::NcMaker nc(data(name));
    const int time = nc.dim("time", 1), depth = nc.dim("depth", 2);
    const int lat = nc.dim("lat", 2), lon = nc.dim("lon", 3);
    const int width = nc.dim("width", 12), stations = nc.dim("stations", 2);
    const int times = nc.var("time", NC_DOUBLE, {time});
    nc.text(times, "units", "days since 2000-01-01");
    const int depths = nc.var("depth", NC_FLOAT, {depth});
    nc.text(depths, "units", "m");
    const int lats = nc.var("lat", NC_FLOAT, {lat});
    nc.text(lats, "units", "degrees_north");
    const int lons = nc.var("lon", NC_FLOAT, {lon});
    nc.text(lons, "units", "degrees_east");
    const int names = nc.var("station_name", NC_CHAR, {stations, width});
    const int remark = nc.var("remark", NC_CHAR, {width});
    const std::vector<int> grid = {time, depth, lat, lon};
    const int bytes = nc.var("bytes", NC_BYTE, grid);
    const int shorts = nc.var("shorts", NC_SHORT, grid);
    nc.number(shorts, "scale_factor", NC_DOUBLE, {0.1});
    nc.number(shorts, "add_offset", NC_FLOAT, {-3.5});
    nc.number(shorts, "missing_value", NC_SHORT, {-32000});
    const int ints = nc.var("ints", NC_INT, grid);
    const int floats = nc.var("floats", NC_FLOAT, grid);
    nc.number(floats, "_FillValue", NC_FLOAT, {static_cast<double>(1e20F)});
    const int doubles = nc.var("doubles", NC_DOUBLE, grid);
    nc.number(doubles, "missing_value", NC_DOUBLE, {-1e30});
    std::vector<int> extras;
    for (const std::string& extra : extraNames) extras.push_back(nc.var(extra, NC_FLOAT, grid));
    nc.put(times, {0});
    nc.put(depths, {0, 10});
    nc.put(lats, {10, 11});
    nc.put(lons, {20, 21, 22});
    const std::vector<char> text(24, 'k');
    nc_put_var_text(nc.id(), names, text.data());
    nc_put_var_text(nc.id(), remark, text.data());
    nc.put(bytes, {0, 1, 2, 100, 127, -1, -128, 5, 6, 7, 8, 9});
    nc.put(shorts, {-32000, 1, -1, 32767, -31000, 6, 7, 8, 9, 10, 11, -12});
    nc.put(ints, {-2147483647, 2147483647, 3, 4, 5, 6, 7, 8, 9, 16777217, 11, 12});
    nc.put(floats, {1e20, 1.1, -2.25, 1e-40, 3e38, 6, 7, -1e37, 9, 10, 11, 12});
    nc.put(doubles, {-1e30, 0.1, 1.0 / 3, 1e-300, 5, 6, -7, 8, 9, 10, 11, 1e30});
    for (const int extra : extras) nc.put(extra, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  }

  // The values of a section along the first row, as bits.
  std::vector<uint32_t> valuesOf(const std::string& dataSet, const std::string& item) {
    EXPECT_EQ(draw(dataSet, item, {{20.0F, 10.0F}, {22.4F, 10.0F}}), "") << item;
    std::vector<uint32_t> bits;
    for (int32_t c = 1; c <= section_values.ncols(); ++c) {
      for (int32_t k = 1; k <= section_values.nlevels(); ++k) {
        bits.push_back(std::bit_cast<uint32_t>(section_values.value(c, k)));
      }
    }
    return bits;
  }
  std::vector<std::string> items() const {
    std::vector<std::string> names;
    for (int32_t n = 1; n <= ctl.NumDrawAbleItems(); ++n) names.push_back(ctl.ItemName(n));
    return names;
  }
};

TEST_F(Types, OfNumbersArriveBitForBit) {
  makeSet("types.nc");
  for (const char* item : {"shorts", "ints", "floats", "doubles"}) {
    const std::vector<uint32_t> local = valuesOf(data("types.nc"), item);
    ASSERT_GE(local.size(), 4U);
    EXPECT_EQ(valuesOf(server.url("types.nc"), item), local) << item;
  }
}

// DAP 2 has no signed bytes: those below zero arrive 256 too large, all others as they are.
TEST_F(Types, BytesArriveWithoutTheirSign) {
  makeSet("types.nc");
  const std::vector<uint32_t> local = valuesOf(data("types.nc"), "bytes");
  const std::vector<uint32_t> remote = valuesOf(server.url("types.nc"), "bytes");
  ASSERT_EQ(remote.size(), local.size());
  int negative = 0;
  for (std::size_t i = 0; i < local.size(); ++i) {
    const float there = std::bit_cast<float>(local[i]);
    if (there < 0) ++negative;
    EXPECT_EQ(std::bit_cast<float>(remote[i]), there < 0 ? there + 256 : there);
  }
  EXPECT_EQ(negative, 1);
}

TEST_F(Types, OfTextsAreListedAndCannotBeDrawn) {
  makeSet("types.nc");
  ASSERT_EQ(ctl.NcFile(server.url("types.nc")), 1) << ctl.ErrorMessage();
  for (const char* text : {"station_name", "remark"}) {
    const auto found = std::ranges::find(ncf.NcVars, text, &ocxNetNc::NcVar::Name);
    ASSERT_NE(found, ncf.NcVars.end()) << text;
    EXPECT_EQ(found->Type, NC_CHAR) << text;
  }
  EXPECT_EQ(items(), (std::vector<std::string>{"bytes", "shorts", "ints", "floats", "doubles"}));
  EXPECT_EQ(ctl.SetVarByName("remark"), -1);
}

// What a server sends as a Grid comes behind everything else. The items are all Grids where every
// dimension has a coordinate variable, so their order is that of the file.
TEST_F(Types, OfGridsComeLastAndKeepTheirOrder) {
  makeSet("types.nc");
  ASSERT_EQ(ctl.NcFile(data("types.nc")), 1);
  const std::vector<std::string> local = items();
  ASSERT_EQ(ctl.NcFile(server.url("types.nc")), 1) << ctl.ErrorMessage();
  EXPECT_EQ(items(), local);
}

TEST_F(Types, OfVariablesWithoutCoordinatesComeBeforeTheGrids) {
  {
    support::NcMaker nc(data("mixed.nc"));
    const int time = nc.dim("time", 1), depth = nc.dim("depth", 1), bare = nc.dim("bare", 2);
    const int lat = nc.dim("lat", 2), lon = nc.dim("lon", 2);
    const int times = nc.var("time", NC_DOUBLE, {time});
    nc.text(times, "units", "days since 2000-01-01");
    const int depths = nc.var("depth", NC_FLOAT, {depth});
    nc.text(depths, "units", "m");
    const int lats = nc.var("lat", NC_FLOAT, {lat});
    nc.text(lats, "units", "degrees_north");
    const int lons = nc.var("lon", NC_FLOAT, {lon});
    nc.text(lons, "units", "degrees_east");
    nc.var("a_grid", NC_FLOAT, {time, depth, lat, lon});
    nc.var("an_array", NC_FLOAT, {bare, depth, lat, lon});
    nc.put(times, {0});
    nc.put(depths, {0});
    nc.put(lats, {10, 11});
    nc.put(lons, {20, 21});
  }
  ASSERT_EQ(ctl.NcFile(data("mixed.nc")), 1) << ctl.ErrorMessage();
  EXPECT_EQ(items(), (std::vector<std::string>{"a_grid", "an_array"}));
  ASSERT_EQ(ctl.NcFile(server.url("mixed.nc")), 1) << ctl.ErrorMessage();
  EXPECT_EQ(items(), (std::vector<std::string>{"an_array", "a_grid"}));
}

// Names with signs that mean something in an address, in a constraint or in the texts of the
// protocol.
TEST_F(Types, UnderNamesWithSigns) {
  const std::vector<std::string> odd = {"sal+t", "a-b", "T_2", "u10"};
  makeSet("odd.nc", odd);
  for (const std::string& name : odd) {
    const std::vector<uint32_t> local = valuesOf(data("odd.nc"), name);
    EXPECT_EQ(valuesOf(server.url("odd.nc"), name), local) << name;
  }
}

// Names that the protocol must escape are those of the file again.
TEST_F(Types, UnderNamesThatAreEscaped) {
  const std::vector<std::string> odd = {"two words",
                                        "c(1)",
                                        "temp@2m",
                                        "\u00e9t\u00e9",  // begins beyond ASCII
                                        "\u6e29\u5ea6",   // is beyond it altogether
                                        "temp\u00e9rature (\u00b0)"};
  makeSet("escaped.nc", odd);
  ASSERT_EQ(ctl.NcFile(data("escaped.nc")), 1) << ctl.ErrorMessage();
  const std::vector<std::string> local = items();
  ASSERT_EQ(ctl.NcFile(server.url("escaped.nc")), 1) << ctl.ErrorMessage();
  EXPECT_EQ(items(), local);
  for (const std::string& name : odd) {
    EXPECT_EQ(valuesOf(server.url("escaped.nc"), name), valuesOf(data("escaped.nc"), name)) << name;
  }
}

// Dimensions and attributes are named as variables are.
TEST_F(Types, WithDimensionsAndAttributesUnderNamesThatAreEscaped) {
  {
    support::NcMaker nc(data("names.nc"));
    const int dim = nc.dim("\u00e9t\u00e9", 3);
    const int id = nc.var("numbers", NC_INT, {dim});
    nc.number(id, "\u00fcber all", NC_INT, {7});
    nc.put(id, {1, 2, 3});
  }
  int id = -1;
  ASSERT_EQ(nc_open(server.url("names.nc").c_str(), NC_NOWRITE, &id), NC_NOERR);
  int dim = -1;
  std::size_t length = 0;
  EXPECT_EQ(nc_inq_dimid(id, "\u00e9t\u00e9", &dim), NC_NOERR);
  EXPECT_EQ(nc_inq_dimlen(id, dim, &length), NC_NOERR);
  EXPECT_EQ(length, 3U);
  std::array<char, NC_MAX_NAME + 1> attribute = {};
  EXPECT_EQ(nc_inq_attname(id, 0, 0, attribute.data()), NC_NOERR);
  EXPECT_STREQ(attribute.data(), "\u00fcber all");
  int number = 0;
  EXPECT_EQ(nc_get_att_int(id, 0, "\u00fcber all", &number), NC_NOERR);
  EXPECT_EQ(number, 7);
  std::array<int, 3> numbers = {};
  EXPECT_EQ(nc_get_var_int(id, 0, numbers.data()), NC_NOERR);
  EXPECT_EQ(numbers, (std::array<int, 3>{1, 2, 3}));
  EXPECT_EQ(nc_close(id), NC_NOERR);
}

TEST_F(Types, InFilesOfOddNames) {
  makeSet("my run, 3% (new).nc");
  const std::string address = server.url("my%20run%2c%203%25%20(new).nc");
  EXPECT_EQ(valuesOf(address, "floats"), valuesOf(data("my run, 3% (new).nc"), "floats"));
}

}  // namespace
}  // namespace opendap_test
