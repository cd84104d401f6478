#include "netcdf/geoWindow.h"

#include "NcTest.h"
#include "netcdf/identify.h"

namespace {

using ocxNetNc::IdentifyCoordinates;
using ocxNetNc::ncf;
using ocxNetNc::SetGeoWindow;
using support::NcMaker;

using Singles = std::vector<float>;

Singles list(const ocxNetNc::CoordinateValues& values) {
  return {values.begin(), values.end()};
}

// A regular grid with these axes, without time and depth.
void makeGrid(const std::string& path, nc_type lonType, nc_type latType,
              const std::vector<double>& lon, const std::vector<double>& lat) {
  ocxNetNc::NcClose();
  NcMaker nc(path);
  const int latDim = nc.dim("lat", lat.size());
  const int lonDim = nc.dim("lon", lon.size());
  const int lonVar = nc.var("lon", lonType, {lonDim});
  nc.text(lonVar, "units", "degrees_east");
  const int latVar = nc.var("lat", latType, {latDim});
  nc.text(latVar, "units", "degrees_north");
  nc.put(lonVar, lon);
  nc.put(latVar, lat);
  nc.close();
}

// Cells on dimensions of these names, longitudes 1, 2, .., latitudes 101, 102, ..
void makeCells(const std::string& path,
               const std::vector<std::pair<std::string, std::size_t>>& dims) {
  ocxNetNc::NcClose();
  NcMaker nc(path);
  std::vector<int> ids;
  std::size_t cells = 1;
  for (const auto& [name, length] : dims) {
    ids.push_back(nc.dim(name, length));
    cells *= length;
  }
  const int lon = nc.var("lon", NC_DOUBLE, ids);
  nc.text(lon, "units", "degrees_east");
  const int lat = nc.var("lat", NC_FLOAT, ids);
  nc.text(lat, "units", "degrees_north");
  std::vector<double> values;
  for (std::size_t cell = 1; cell <= cells; ++cell) values.push_back(static_cast<double>(cell));
  nc.put(lon, values);
  for (double& value : values) value += 100;
  nc.put(lat, values);
  nc.close();
}

class GeoWindowTest : public NcTest {
 protected:
  void identify() {
    open(file());
    ASSERT_GT(IdentifyCoordinates(), 0);
  }
};

TEST_F(GeoWindowTest, UnwrapsLongitudesAndComputesMeanSpacings) {
  const struct {
    std::vector<double> lon;
    Singles stored;
    float dlon;
  } cases[] = {
      {{350, 355, 0, 5}, {350, 355, 360, 365}, 5},
      {{170, 180, -170, -160}, {170, 180, 190, 200}, 10},
      {{350, 0, 350, 0}, {350, 360, 710, 360}, 3.3333333F},
      {{10, 5, 0}, {10, 365, 360}, 175},
      {{-179.5, -178.5, -177.5}, {-179.5, -178.5, -177.5}, 1},
      {{0, 0}, {0, 0}, 0},
  };
  for (const auto& c : cases) {
    for (const nc_type type : {NC_FLOAT, NC_DOUBLE}) {
      makeGrid(file(), type, type, c.lon, {10, 5, 0});
      identify();
      EXPECT_EQ(SetGeoWindow(), 1) << util::LastError;
      EXPECT_EQ(list(ncf.lon_values), c.stored);
      EXPECT_EQ(ncf.dlon, c.dlon);
      EXPECT_EQ(list(ncf.lat_values), (Singles{10, 5, 0}));
      EXPECT_EQ(ncf.dlat, -5.0F);
      EXPECT_EQ(ncf.nlon, static_cast<int32_t>(c.lon.size()));
      EXPECT_EQ(ncf.nlat, 3);
      EXPECT_FALSE(ocxNetNc::isOpen());
    }
  }
}

TEST_F(GeoWindowTest, LoadsTheTinySet) {
  support::makeTinySet(file());
  identify();
  EXPECT_EQ(SetGeoWindow(), 1);
  EXPECT_EQ(list(ncf.lon_values), (Singles{350, 352, 354, 356, 358, 360}));
  EXPECT_EQ(list(ncf.lat_values), (Singles{-1, -0.5, 0, 0.5}));
  EXPECT_EQ(ncf.dlon, 2.0F);
  EXPECT_EQ(ncf.dlat, 0.5F);
  EXPECT_EQ(ncf.ntime, 2);
  EXPECT_EQ(ncf.nlevels, 3);
  EXPECT_EQ(ncf.grid_order, -1);
  EXPECT_TRUE(desktop.messages.empty());
}

// The writer of a data set may replace it after it was catalogued.
TEST_F(GeoWindowTest, RefusesAxesThatHaveGrown) {
  makeGrid(file(), NC_FLOAT, NC_FLOAT, {1, 2}, {1, 2});
  identify();
  ocxNetNc::NcClose();
  makeGrid(file(), NC_FLOAT, NC_FLOAT, std::vector<double>(100'000, 1.0), {1, 2});
  EXPECT_EQ(SetGeoWindow(), -1);
  EXPECT_EQ(util::LastError, "[SetGeoWindow] Error: Subscript out of range");
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(GeoWindowTest, RoundsDoublesToSingles) {
  makeGrid(file(), NC_DOUBLE, NC_SHORT, {0.1, 0.2}, {1, 2});
  identify();
  EXPECT_EQ(SetGeoWindow(), 1);
  EXPECT_EQ(list(ncf.lon_values), (Singles{0.1F, 0.2F}));
  // The mean is taken in double precision from the stored singles.
  EXPECT_EQ(ncf.dlon, static_cast<float>(static_cast<double>(0.2F) - static_cast<double>(0.1F)));
  EXPECT_EQ(list(ncf.lat_values), (Singles{1, 2}));
}

TEST_F(GeoWindowTest, RefusesLongitudesOfOtherTypes) {
  for (const nc_type type : {NC_BYTE, NC_SHORT, NC_INT}) {
    makeGrid(file(), type, NC_FLOAT, {1, 2}, {1, 2});
    identify();
    EXPECT_EQ(SetGeoWindow(), -1);
    expectQuietFailure(
        "Variable-Type of Geographical coodrinate(lon/lat) not expected:\n\n"
        "Variable Name = lon\n\nTyep Number = " +
        std::to_string(type));
  }
}

TEST_F(GeoWindowTest, NeedsTwoPointsOnBothAxes) {
  const std::pair<std::vector<double>, std::vector<double>> cases[] = {{{5}, {1, 2}},
                                                                       {{5, 6}, {1}}};
  for (const auto& [lon, lat] : cases) {
    makeGrid(file(), NC_FLOAT, NC_FLOAT, lon, lat);
    identify();
    EXPECT_EQ(SetGeoWindow(), -1);
    expectQuietFailure("[SetGeoWindow] Error: Division by zero");
    EXPECT_FALSE(ocxNetNc::isOpen());
  }
}

TEST_F(GeoWindowTest, RefusesAnAxisWithoutPoints) {
  NcMaker nc(file());
  const int lonDim = nc.dim("lon", NC_UNLIMITED);
  const int latDim = nc.dim("lat", 2);
  nc.text(nc.var("lon", NC_FLOAT, {lonDim}), "units", "degrees_east");
  nc.text(nc.var("lat", NC_FLOAT, {latDim}), "units", "degrees_north");
  nc.close();
  identify();
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("[SetGeoWindow] nlon& <= 0 Or nlat& <= 0");
}

TEST_F(GeoWindowTest, RefusesACoordinateOfAnotherShapeBeforeReading) {
  NcMaker nc(file());
  const int lonDim = nc.dim("lon", 2);
  const int latDim = nc.dim("lat", 3);
  nc.text(nc.var("lon", NC_FLOAT, {lonDim, latDim}), "units", "degrees_east");
  nc.text(nc.var("lat", NC_FLOAT, {latDim}), "units", "degrees_north");
  nc.close();
  identify();
  NetCDF::library.nc_get_var_float = [](int, int, float*) {
    ADD_FAILURE() << "read into too small a list";
    return NC_EINVAL;
  };
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("[SetGeoWindow] Error: Subscript out of range");
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(GeoWindowTest, RefusesDegreesBeyondTheSingleRange) {
  makeGrid(file(), NC_DOUBLE, NC_DOUBLE, {1e39, 2}, {1, 2});
  identify();
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("[SetGeoWindow] Error: Overflow");
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(GeoWindowTest, KeepsCellsInTheFilesOrder) {
  ncf.dlon = 7;
  makeCells(file(), {{"ya", 2}, {"xa", 3}});
  identify();
  EXPECT_EQ(SetGeoWindow(), 1) << util::LastError;
  EXPECT_EQ(ncf.icells, 3);
  EXPECT_EQ(ncf.jcells, 2);
  EXPECT_EQ(list(ncf.lon_values), (Singles{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(list(ncf.lat_values), (Singles{101, 102, 103, 104, 105, 106}));
  EXPECT_EQ(ncf.dlon, 7.0F);  // cells have no spacing; the older one stays
  EXPECT_FALSE(ocxNetNc::isOpen());
}

TEST_F(GeoWindowTest, LoadsAListOfCells) {
  makeCells(file(), {{"ncells", 4}});
  identify();
  EXPECT_EQ(SetGeoWindow(), 1) << util::LastError;
  EXPECT_EQ(ncf.ncells, 4);
  EXPECT_EQ(list(ncf.lon_values), (Singles{1, 2, 3, 4}));
}

TEST_F(GeoWindowTest, RefusesCellsThatAreNotThere) {
  makeCells(file(), {{"ncells", NC_UNLIMITED}});
  identify();
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("ncells <= 0 ");

  makeCells(file(), {{"x", NC_UNLIMITED}, {"y", 2}});
  identify();
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("[SetGeoWindow] icells& <= 0 Or jcells& <= 0");

  makeCells(file(), {{"eta_rho", 2}, {"xi_rho", 3}});
  identify();
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("[SetGeoWindow] IF Fall of: Section 1");
}

TEST_F(GeoWindowTest, FailsWithoutAnyAxisAndLeavesTheMessage) {
  support::makeTinySet(file());
  open(file());
  util::LastError = "earlier";
  EXPECT_EQ(SetGeoWindow(), -1);
  expectQuietFailure("earlier");
}

TEST_F(GeoWindowTest, OpensAClosedDataSetAgain) {
  support::makeTinySet(file());
  identify();
  ocxNetNc::NcClose();
  EXPECT_EQ(SetGeoWindow(), 1);
  EXPECT_EQ(ncf.ntime, 2);
  NetCDF::library.nc_open = kRefusal;
  EXPECT_EQ(SetGeoWindow(), -1);
  expectLibraryFailure("NetCDF: HDF error");
}

TEST_F(GeoWindowTest, ReportsWhateverTheLibraryRefuses) {
  const std::pair<nc_type, void (*)(NetCDF::EntryPoints&)> calls[] = {
      {NC_FLOAT, [](auto& l) { l.nc_get_var_float = kRefusal; }},
      {NC_DOUBLE, [](auto& l) { l.nc_get_var_double = kRefusal; }}};
  for (const auto& [type, breakCall] : calls) {
    NetCDF::library = NetCDF::theLibrary();
    desktop.messages.clear();
    makeGrid(file(), type, NC_FLOAT, {1, 2}, {1, 2});
    identify();
    breakCall(NetCDF::library);
    const CloseCount closes;
    EXPECT_EQ(SetGeoWindow(), -1);
    expectLibraryFailure("NetCDF: HDF error");
    EXPECT_EQ(closes.calls, 1);
  }
}

TEST_F(GeoWindowTest, RefusesALatitudeThatIsText) {
  NcMaker nc(file());
  const int lonDim = nc.dim("lon", 2);
  const int latDim = nc.dim("lat", 2);
  nc.text(nc.var("lon", NC_FLOAT, {lonDim}), "units", "degrees_east");
  nc.text(nc.var("lat", NC_CHAR, {latDim}), "units", "degrees_north");
  nc.close();
  identify();
  EXPECT_EQ(SetGeoWindow(), -1);
  expectLibraryFailure(nc_strerror(NC_ECHAR));
}

}  // namespace
