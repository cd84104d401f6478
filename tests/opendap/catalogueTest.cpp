#include <algorithm>

#include "OpendapTest.h"
#include "netcdf/ncf.h"
#include "netcdf/title.h"
#include "section/drawItems.h"
#include "support/NcMaker.h"

// What the catalogue of an address says, held against that of the file that is served there.
namespace opendap_test {
namespace {

using ocxNetNc::Ncf;
using ocxNetNc::ncf;
using ocxNetNc::NcVar;

class Catalogue : public OpendapTest {
 protected:
  // The catalogue of the local file of that name, and of the same over the network.
  void openBoth(const std::string& name) {
    ASSERT_EQ(ctl.NcFile(data(name)), 1) << ctl.ErrorMessage();
    local = ncf;
    localTitles = ocxNetNc::TitleLines;
    ASSERT_EQ(ctl.NcFile(server.url(name)), 1) << ctl.ErrorMessage();
  }

  static std::vector<std::string> names(const Ncf& catalogue) {
    std::vector<std::string> all;
    for (const NcVar& variable : catalogue.NcVars) all.push_back(variable.Name);
    return all;
  }
  static const NcVar& named(const Ncf& catalogue, const std::string& name) {
    const auto found = std::ranges::find(catalogue.NcVars, name, &NcVar::Name);
    if (found == catalogue.NcVars.end()) throw std::runtime_error("no variable " + name);
    return *found;
  }
  static std::vector<std::string> attributes(const NcVar& variable) {
    std::vector<std::string> all;
    for (std::size_t a = 0; a < static_cast<std::size_t>(variable.NAtts); ++a) {
      all.push_back(variable.AttName[a] + " " + std::to_string(variable.AttType[a]) + " " +
                    variable.AttValue[a]);
    }
    return all;
  }
  static std::vector<std::string> globals(const Ncf& catalogue) {
    std::vector<std::string> all;
    for (int32_t a = 1; a <= catalogue.NcNGAtts; ++a) {
      all.push_back(catalogue.NcGAttName(a) + " = " + catalogue.NcGAttValue(a));
    }
    return all;
  }
  static std::string globalValue(const std::string& name) {
    for (int32_t a = 1; a <= ncf.NcNGAtts; ++a) {
      if (ncf.NcGAttName(a) == name) return ncf.NcGAttValue(a);
    }
    return "(none)";
  }
  static void expectSameVariable(const NcVar& remote, const NcVar& file) {
    EXPECT_EQ(remote.Type, file.Type) << file.Name;
    EXPECT_EQ(remote.NDims, file.NDims) << file.Name;
    EXPECT_EQ(remote.DimName, file.DimName) << file.Name;
    EXPECT_EQ(attributes(remote), attributes(file)) << file.Name;
    EXPECT_EQ(std::tie(remote.LongName, remote.Unit, remote.TotalBytes, remote.ElemSize,
                       remote.ValidMin, remote.ValidMax, remote.Missing, remote.Scale,
                       remote.Offset),
              std::tie(file.LongName, file.Unit, file.TotalBytes, file.ElemSize, file.ValidMin,
                       file.ValidMax, file.Missing, file.Scale, file.Offset))
        << file.Name;
  }

  Ncf local;
  util::OneBased<std::string> localTitles;
};

TEST_F(Catalogue, HasTheVariablesOfTheFileInItsOrder) {
  openBoth("tiny.nc");
  EXPECT_EQ(names(ncf), names(local));
  for (const NcVar& variable : local.NcVars) expectSameVariable(named(ncf, variable.Name), variable);
}

TEST_F(Catalogue, HasTheDimensionsOfTheFile) {
  openBoth("tiny.nc");
  ASSERT_EQ(ncf.NcNDims, local.NcNDims);
  for (int32_t d = 1; d <= local.NcNDims; ++d) {
    EXPECT_EQ(ncf.NcDims(d).Name, local.NcDims(d).Name);
    EXPECT_EQ(ncf.NcDims(d).Length, local.NcDims(d).Length);
    EXPECT_EQ(ncf.NcDims(d).Unlimited, local.NcDims(d).Unlimited);
  }
  EXPECT_EQ(ncf.NcDims(1).Unlimited, 1);
}

TEST_F(Catalogue, HasTheCoordinatesAndTheTimesOfTheFile) {
  openBoth("tiny.nc");
  const auto axes = [](const Ncf& c) {
    return std::tuple(c.lon_vId, c.lat_vId, c.time_vId, c.level_vId, c.nlon, c.nlat, c.dlon, c.dlat,
                      c.ntime, c.nlevels, c.level_values, c.time_unit, c.first_time_label,
                      c.last_time_label);
  };
  EXPECT_EQ(axes(ncf), axes(local));
  EXPECT_TRUE(std::ranges::equal(ncf.lon_values, local.lon_values));
  EXPECT_TRUE(std::ranges::equal(ncf.lat_values, local.lat_values));
  EXPECT_TRUE(std::ranges::equal(ncf.time_values, local.time_values));
}

TEST_F(Catalogue, NamesTheDataSetInTheTitlesAsTheFileIsNamed) {
  openBoth("tiny.nc");
  EXPECT_TRUE(std::ranges::equal(ocxNetNc::TitleLines, localTitles));
  EXPECT_EQ(ocxNetNc::TitleLines(1), "tiny.nc");
}

// A server tells of the unlimited dimension in a container, which arrives as one more attribute.
TEST_F(Catalogue, HasOneMoreGlobalAttributeForTheUnlimitedDimension) {
  openBoth("tiny.nc");
  std::vector<std::string> expected = globals(local);
  expected.push_back("DODS_EXTRA.Unlimited_Dimension = time");
  EXPECT_EQ(globals(ncf), expected);
}

// Attributes in containers become global ones with the containers' names in front.
TEST_F(Catalogue, FlattensContainersOfAttributes) {
  {
    support::NcMaker nc(data("contained.nc"));
    const int time = nc.dim("time", 1), depth = nc.dim("depth", 1);
    const int lat = nc.dim("lat", 2), lon = nc.dim("lon", 2);
    const int times = nc.var("time", NC_DOUBLE, {time});
    nc.text(times, "units", "days since 2000-01-01");
    const int depths = nc.var("depth", NC_FLOAT, {depth});
    nc.text(depths, "units", "m");
    const int lats = nc.var("lat", NC_FLOAT, {lat});
    nc.text(lats, "units", "degrees_north");
    const int lons = nc.var("lon", NC_FLOAT, {lon});
    nc.text(lons, "units", "degrees_east");
    const int temp = nc.var("temp", NC_FLOAT, {time, depth, lat, lon});
    nc.text(temp, "units", "degC");
    nc.text(temp, "source.instrument", "CTD");
    nc.text(NC_GLOBAL, "title", "contained");
    nc.text(NC_GLOBAL, "model.name", "ocean");
    nc.number(NC_GLOBAL, "model.levels", NC_INT, {31});
    nc.put(times, {0});
    nc.put(depths, {0});
    nc.put(lats, {0, 1});
    nc.put(lons, {0, 1});
    nc.put(temp, {1, 2, 3, 4});
  }
  openBoth("contained.nc");
  EXPECT_EQ(globalValue("title"), "contained");
  EXPECT_EQ(globalValue("NC_GLOBAL.model.name"), "ocean");
  EXPECT_EQ(globalValue("NC_GLOBAL.model.levels"), "31");
  EXPECT_EQ(globalValue("temp.source.instrument"), "CTD");
  EXPECT_EQ(attributes(named(ncf, "temp")), std::vector<std::string>{"units 2 degC"});
}

}  // namespace
}  // namespace opendap_test
