#include "FitTest.h"

// Longitudes and latitudes, and the box.
namespace fit_test {
namespace {

using cli_test::contains;

class FitHorizontal : public FitTest {};

TEST_F(FitHorizontal, ASetThatIsDrawnIsCopiedAsItIs) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int temp) {
    nc.text(NC_GLOBAL, "title", "Made");
    nc.text(NC_GLOBAL, "history", "made before");
    nc.text(temp, "long_name", "Temperature");
    nc.number(temp, "levels_used", NC_SHORT, {1, 2, 3});
  };
  const auto result = fit(set);
  EXPECT_EQ(result.out, "Nothing had to be changed.\n" + out() + ": can be drawn: temp\n");
  EXPECT_EQ(result.err, "");
  expectTemp(2, 3, 4, 5, plainValue);
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("temp"), "time depth lat lon");
  EXPECT_EQ(copy.type("temp"), NC_FLOAT);
  EXPECT_EQ(copy.text("", "title"), "Made");
  EXPECT_EQ(copy.text("temp", "long_name"), "Temperature");
  EXPECT_EQ(copy.number("temp", "levels_used"), 1);
  const std::string history = copy.text("", "history");
  EXPECT_TRUE(contains(history, "Z kelvane fit ")) << history;
  EXPECT_TRUE(history.ends_with("out.nc\nmade before")) << history;
  const std::vector<std::string> axes = {"time", "depth", "lat", "lon"};
  for (const std::string& axis : axes) {
    EXPECT_EQ(copy.values(axis), ReadSet(in()).values(axis)) << axis;
    EXPECT_EQ(copy.type(axis), ReadSet(in()).type(axis)) << axis;
  }
}

TEST_F(FitHorizontal, LatitudesAreTurnedSouthToNorth) {
  MadeSet set;
  set.lat.values = {2, 1, 0, -1};
  const auto result = fit(set);
  EXPECT_TRUE(contains(result.out, "lat: turned south to north (")) << result.out;
  EXPECT_EQ(ReadSet(out()).values("lat"), (std::vector<double>{-1, 0, 1, 2}));
  expectTemp(2, 3, 4, 5, [](auto t, auto k, auto j, auto i) { return plainValue(t, k, 3 - j, i); });
}

TEST_F(FitHorizontal, LongitudesAreTurnedWestToEast) {
  MadeSet set;
  set.lon.values = {14, 13, 12, 11, 10};
  fit(set);
  EXPECT_EQ(ReadSet(out()).values("lon"), (std::vector<double>{10, 11, 12, 13, 14}));
  expectTemp(2, 3, 4, 5, [](auto t, auto k, auto j, auto i) { return plainValue(t, k, j, 4 - i); });
}

TEST_F(FitHorizontal, BoundsAreTurnedWithTheirAxis) {
  MadeSet set;
  set.lat.values = {2, 1, 0, -1};
  set.lat.attributes = {{"bounds", "lat_bnds"}};
  int bounds = -1;
  set.more = [&](support::NcMaker& nc, int) {
    bounds = nc.var("lat_bnds", NC_DOUBLE, {2, nc.dim("nv", 2)});
  };
  set.moreValues = [&](support::NcMaker& nc) {
    nc.put(bounds, {2.5, 1.5, 1.5, 0.5, 0.5, -0.5, -0.5, -1.5});
  };
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("lat_bnds"), "lat nv");
  EXPECT_EQ(copy.values("lat_bnds"),
            (std::vector<double>{-0.5, -1.5, 0.5, -0.5, 1.5, 0.5, 2.5, 1.5}));
}

TEST_F(FitHorizontal, UnitsAndTypesBecomeThoseThatTheControlKnows) {
  MadeSet set;
  set.lat.units = "deg_N";
  set.lon.units = "";
  set.lat.type = NC_INT;
  set.lon.type = NC_SHORT;
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.text("lat", "units"), "degrees_north");
  EXPECT_EQ(copy.text("lon", "units"), "degrees_east");
  EXPECT_EQ(copy.type("lon"), NC_DOUBLE);
  EXPECT_EQ(copy.type("lat"), NC_DOUBLE);
  EXPECT_TRUE(contains(result.out,
                       "lat: units \"degrees_north\" (not known to the control: "
                       "\"deg_N\")"))
      << result.out;
}

TEST_F(FitHorizontal, PackedCoordinatesAreUnpacked) {
  MadeSet set;
  set.lat.type = NC_SHORT;
  set.lat.values = {0, 1, 2, 3};
  set.more = [](support::NcMaker& nc, int) {
    int lat = -1;
    nc_inq_varid(nc.id(), "lat", &lat);
    nc.number(lat, "scale_factor", NC_DOUBLE, {0.25});
    nc.number(lat, "add_offset", NC_DOUBLE, {40});
  };
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.values("lat"), (std::vector<double>{40, 40.25, 40.5, 40.75}));
  EXPECT_EQ(copy.attributes("lat"), (std::vector<std::string>{"units"}));
}

TEST_F(FitHorizontal, DimensionsAreNamedLikeTheirAxes) {
  MadeSet set;
  set.lat.dim = "y";
  set.lon.dim = "x";
  fit(set);
  EXPECT_EQ(ReadSet(out()).dims("temp"), "time depth lat lon");
}

TEST_F(FitHorizontal, ABoxIsCutOut) {
  const auto result = fit({}, {"--box", "11,0,13,2"});
  const ReadSet copy(out());
  EXPECT_EQ(copy.values("lon"), (std::vector<double>{11, 12, 13}));
  EXPECT_EQ(copy.values("lat"), (std::vector<double>{0, 1, 2}));
  expectTemp(2, 3, 3, 3,
             [](auto t, auto k, auto j, auto i) { return plainValue(t, k, j + 1, i + 1); });
  EXPECT_TRUE(contains(result.out, "lon: 3 of 5 longitudes, 11 to 13 (the box)")) << result.out;
}

TEST_F(FitHorizontal, ABoxGoesAcrossTheSeamOfAGlobalGrid) {
  MadeSet set;
  set.lon.values = {0, 60, 120, 180, 240, 300, 360};  // with the first one once more
  fit(set, {"--box", "-130,-1,70,2"});
  EXPECT_EQ(ReadSet(out()).values("lon"), (std::vector<double>{-120, -60, 0, 60}));
  const std::vector<std::size_t> columns = {4, 5, 0, 1};
  expectTemp(2, 3, 4, 4,
             [&](auto t, auto k, auto j, auto i) { return plainValue(t, k, j, columns[i]); });
}

TEST_F(FitHorizontal, ABoxOutsideIsRefused) {
  EXPECT_EQ(refusal({}, {"--box", "40,0,50,2"}),
            "kelvane: The box has fewer than two of the longitudes, which are 10 to 14.\n");
  EXPECT_EQ(refusal({}, {"--box", "10,50,14,60"}),
            "kelvane: The box has fewer than two of the latitudes, which are -1 to 2.\n");
}

TEST_F(FitHorizontal, CoordinatesInTwoDimensionsOfARegularGridBecomeAxes) {
  MadeSet set;
  set.lat.withoutVariable = set.lon.withoutVariable = true;
  set.lat.name = "y";
  set.lon.name = "x";
  int lon = -1, lat = -1;
  set.more = [&](support::NcMaker& nc, int) {
    lon = nc.var("nav_lon", NC_FLOAT, {2, 1});
    lat = nc.var("nav_lat", NC_FLOAT, {2, 1});
    nc.text(lon, "units", "degrees_east");
    nc.text(lat, "units", "degrees_north");
  };
  set.moreValues = [&](support::NcMaker& nc) {
    std::vector<double> lons, lats;
    for (int j = 0; j < 4; ++j) {
      for (int i = 0; i < 5; ++i) {
        lons.push_back(-20 + 2 * i);
        lats.push_back(50 - j);
      }
    }
    nc.put(lon, lons);
    nc.put(lat, lats);
  };
  // The maker takes the dimensions in the order t, x, y, z.
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.values("lon"), (std::vector<double>{-20, -18, -16, -14, -12}));
  EXPECT_EQ(copy.values("lat"), (std::vector<double>{47, 48, 49, 50}));
  EXPECT_EQ(copy.dims("temp"), "time depth lat lon");
  expectTemp(2, 3, 4, 5, [](auto t, auto k, auto j, auto i) { return plainValue(t, k, 3 - j, i); });
  EXPECT_TRUE(contains(result.out, "lon: axis made of nav_lon (")) << result.out;
}

TEST_F(FitHorizontal, UnevenSpacingIsToldOf) {
  MadeSet set;
  set.lat.values = {0, 1, 2, 9};
  const auto result = fit(set);
  EXPECT_TRUE(contains(result.err, "note: lat is unevenly spaced")) << result.err;
}

TEST_F(FitHorizontal, AxesThatRunNoWayAreRefused) {
  MadeSet set;
  set.lat.values = {0, 2, 1, 3};
  EXPECT_EQ(refusal(set), "kelvane: The latitudes of lat run neither north nor south.\n");
  set = {};
  set.lon.values = {11};
  EXPECT_EQ(refusal(set), "kelvane: lon has one longitude only; a section needs two at least.\n");
}

}  // namespace
}  // namespace fit_test
