#include <cmath>
#include <map>

#include "FitTest.h"

// New grids, on the way from what is given to what the file holds. The fields are such that the
// right values are known: linear in longitude and latitude, or the number of the point.
namespace fit_test {
namespace {

using cli_test::contains;

constexpr double kNone = -999;  // what is missing in these sets

// A set of points on one or two dimensions, with one step and one level.
struct Points {
  std::vector<std::size_t> shape;  // rows and columns, or the number of cells
  std::vector<double> lons, lats, values;
  nc_type type = NC_DOUBLE;
  bool radians = false;

  void make(const std::string& path) const {
    support::NcMaker nc(path);
    const int t = nc.dim("time", 1), z = nc.dim("depth", 2);
    std::vector<int> places;
    for (const std::size_t length : shape) {
      places.push_back(nc.dim(places.empty() ? "y" : "x", length));
    }
    const int ts = nc.var("time", NC_DOUBLE, {t}), zs = nc.var("depth", NC_DOUBLE, {z});
    const int xs = nc.var("glon", NC_DOUBLE, places), ys = nc.var("glat", NC_DOUBLE, places);
    std::vector<int> dims = {t, z};
    dims.insert(dims.end(), places.begin(), places.end());
    const int temp = nc.var("temp", type, dims);
    const int depth = nc.var("bottom", NC_DOUBLE, places);
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(xs, "units", radians ? "radian" : "degrees_east");
    nc.text(ys, "units", radians ? "radian" : "degrees_north");
    nc.text(xs, "standard_name", "longitude");
    nc.text(ys, "standard_name", "latitude");
    nc.text(temp, "coordinates", "glon glat");
    if (type == NC_DOUBLE) nc.number(temp, "_FillValue", NC_DOUBLE, {kNone});
    const double unit = radians ? std::acos(-1.0) / 180 : 1;
    std::vector<double> x, y, both = values;
    for (const double lon : lons) x.push_back(lon * unit);
    for (const double lat : lats) y.push_back(lat * unit);
    for (const double value : values) both.push_back(value == kNone ? kNone : value + 1000);
    nc.put(ts, {0});
    nc.put(zs, {5, 10});
    nc.put(xs, x);
    nc.put(ys, y);
    nc.put(temp, both);
    nc.put(depth, values);
  }
};

class FitGrid : public FitTest {
 protected:
  // Value of the first level (or the second) at a node of the copy.
  std::map<std::pair<double, double>, double> nodes(std::size_t level = 0,
                                                    const std::string& name = "temp") {
    const ReadSet copy(out());
    const std::vector<double> lons = copy.values("lon"), lats = copy.values("lat");
    const std::vector<double> values = copy.values(name);
    std::map<std::pair<double, double>, double> found;
    for (std::size_t j = 0; j < lats.size(); ++j) {
      for (std::size_t i = 0; i < lons.size(); ++i) {
        found[{lons[i], lats[j]}] = values[(level * lats.size() + j) * lons.size() + i];
      }
    }
    return found;
  }
};

double linear(double lon, double lat) { return 3 * lon - 7 * lat; }

// A sheared grid around a place: x and y are rows and columns of it.
Points sheared(double lon0, double lat0, double step) {
  Points points;
  points.shape = {21, 31};
  for (int j = 0; j < 21; ++j) {
    for (int i = 0; i < 31; ++i) {
      points.lons.push_back(lon0 + step * (i + 0.5 * j));
      points.lats.push_back(lat0 + step * (j - 0.1 * i));
      points.values.push_back(linear(points.lons.back(), points.lats.back()));
    }
  }
  return points;
}

TEST_F(FitGrid, BilinearIsExactForLinearFieldsAndEmptyOutside) {
  sheared(-30, 10, 0.7).make(in());
  const auto result = fitMade({"--grid", "1,0.5", "--method", "bilinear"});
  EXPECT_TRUE(contains(result.out, "temp: put on a grid of latitudes ")) << result.out;
  std::size_t values = 0, empty = 0;
  for (const auto& [place, value] : nodes()) {
    if (value == kNone) {
      ++empty;
      continue;
    }
    ++values;
    const double i = (place.first + 30) / 0.7, j = (place.second - 10) / 0.7;
    const double row = (j + 0.1 * i) / 1.05, column = i - 0.5 * row;
    const bool inside = row >= 0 && row <= 20 && column >= 0 && column <= 30;
    if (inside) {
      EXPECT_NEAR(value, linear(place.first, place.second), 1e-4);
    }
    EXPECT_GT(row, -1);
    EXPECT_LT(row, 21);
    EXPECT_GT(column, -1);
    EXPECT_LT(column, 31);
  }
  EXPECT_GT(values, 600U);
  EXPECT_GT(empty, 200U);
  EXPECT_FALSE(ReadSet(out()).has("glon"));
  EXPECT_EQ(ReadSet(out()).dims("bottom"), "lat lon");
  EXPECT_EQ(ReadSet(out()).text("temp", "coordinates"), "");
}

TEST_F(FitGrid, NearestTakesTheValueOfAPointUnchanged) {
  const Points points = sheared(-30, 10, 0.7);
  points.make(in());
  fitMade({"--grid", "0.5"});
  for (std::size_t level = 0; level < 2; ++level) {
    std::size_t values = 0;
    for (const auto& [place, value] : nodes(level)) {
      if (value == kNone) continue;
      ++values;
      // By hand: all points, the shortest way on the sphere.
      double best = 10, nearest = 0;
      const double rad = std::acos(-1.0) / 180;
      for (std::size_t at = 0; at < points.lons.size(); ++at) {
        const double cosine = std::sin(place.second * rad) * std::sin(points.lats[at] * rad) +
                              std::cos(place.second * rad) * std::cos(points.lats[at] * rad) *
                                  std::cos((place.first - points.lons[at]) * rad);
        const double way = std::acos(std::min(1.0, cosine));
        if (way < best) {
          best = way;
          nearest = points.values[at] + 1000 * static_cast<double>(level);
        }
      }
      EXPECT_EQ(value, nearest) << place.first << " " << place.second;
    }
    EXPECT_GT(values, 1000U);
  }
}

TEST_F(FitGrid, MissingPointsStayMissing) {
  Points points = sheared(-30, 10, 1);
  for (std::size_t at = 0; at < points.values.size(); ++at) {
    if (points.lons[at] < -10) points.values[at] = kNone;  // land in the west
  }
  points.make(in());
  for (const char* method : {"nearest", "bilinear"}) {
    fitMade({"--grid", "1", "--method", method});
    std::size_t west = 0, east = 0;
    for (const auto& [place, value] : nodes()) {
      if (place.first < -11) {
        EXPECT_EQ(value, kNone) << method << " " << place.first;
        ++west;
      } else if (place.first > -9 && value != kNone) {
        EXPECT_GT(value, -900) << method;
        ++east;
      }
    }
    EXPECT_GT(west, 100U);
    EXPECT_GT(east, 100U);
  }
}

// Rows and columns around the whole globe, the first column at a longitude, without its repetition.
Points global(double first) {
  Points points;
  points.shape = {18, 36};
  for (int j = 0; j < 18; ++j) {
    for (int i = 0; i < 36; ++i) {
      points.lons.push_back(std::remainder(first + 10 * i, 360));
      // Slightly wavy, so that the grid is no regular one.
      points.lats.push_back(-85 + 10 * j + (i % 2) * 0.5);
      points.values.push_back(points.lats.back());
    }
  }
  return points;
}

TEST_F(FitGrid, SeamsAndPolesHaveNoGaps) {
  for (const double first : {0.0, 5.0, -175.0}) {
    for (const char* method : {"nearest", "bilinear"}) {
      global(first).make(in());
      fitMade({"--grid", "5", "--method", method, "--box", "-180,-90,180,90"});
      for (const auto& [place, value] : nodes()) {
        ASSERT_NE(value, kNone) << first << " " << place.first << " " << place.second;
        const double tolerance = std::string(method) == "nearest" ? 6 : 5.6;
        ASSERT_NEAR(value, place.second, tolerance) << method << place.first;
        if (std::string(method) == "bilinear" && std::fabs(place.second) <= 70) {
          ASSERT_NEAR(value, place.second, 0.3) << first << " " << place.first;
        }
      }
    }
  }
}

TEST_F(FitGrid, AGlobeIsCoveredWithoutARepeatedColumn) {
  global(0).make(in());
  fitMade({"--grid", "10"});
  const std::vector<double> lons = ReadSet(out()).values("lon");
  EXPECT_EQ(lons.size(), 36U);
  EXPECT_EQ(lons.front(), -180);
  EXPECT_EQ(lons.back(), 170);
}

TEST_F(FitGrid, CellsInRadiansArePlaced) {
  Points points;
  points.radians = true;
  points.shape = {400};
  for (int at = 0; at < 400; ++at) {
    points.lons.push_back(170 + at % 20 + (at / 20 % 2) * 0.5);  // across the date line
    points.lats.push_back(-10 + at / 20);
    points.values.push_back(at);
  }
  points.make(in());
  fitMade({"--grid", "1", "--box", "171,-9,188,8"});
  for (const auto& [place, value] : nodes()) {
    const int row = static_cast<int>(place.second) + 10;
    const int column = static_cast<int>(place.first) - 170;
    if (row % 2 == 0) {
      EXPECT_EQ(value, row * 20 + column) << place.first << " " << place.second;
    }
    EXPECT_EQ(static_cast<int>(value) / 20, row);
  }
}

TEST_F(FitGrid, PackedValuesAreUnpackedForInterpolation) {
  MadeSet set;
  set.type = NC_SHORT;
  set.more = [](support::NcMaker& nc, int temp) {
    nc.number(temp, "scale_factor", NC_DOUBLE, {0.5});
    nc.number(temp, "_FillValue", NC_SHORT, {-32768});
  };
  fit(set, {"--grid", "0.5", "--method", "bilinear"});
  const ReadSet copy(out());
  EXPECT_EQ(copy.type("temp"), NC_FLOAT);
  const std::vector<double> values = copy.values("temp");
  // Half-way between the columns 0 and 1 of the first row: (0 + 1) / 2 x 0.5.
  EXPECT_EQ(values[0], 0);
  EXPECT_EQ(values[1], 0.25);
  EXPECT_EQ(values[2], 0.5);
}

TEST_F(FitGrid, StaggeredGridsBecomeOne) {
  MadeSet set;
  int lon = -1, u = -1;
  set.more = [&](support::NcMaker& nc, int) {
    const int x = nc.dim("lon_u", 5);
    lon = nc.var("lon_u", NC_FLOAT, {x});
    nc.text(lon, "units", "degrees_east");
    u = nc.var("u", NC_DOUBLE, {0, 3, 2, x});
  };
  set.moreValues = [&](support::NcMaker& nc) {
    nc.put(lon, {10.5, 11.5, 12.5, 13.5, 14.5});
    std::vector<double> values;
    for (int at = 0; at < 120; ++at) values.push_back(10.5 + at % 5);
    nc.put(u, values);
  };
  fit(set, {"--grid", "1", "--method", "bilinear", "--box", "11,0,14,2"}, {"temp", "u"});
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("u"), "time depth lat lon");
  const std::vector<double> values = copy.values("u");
  ASSERT_EQ(values.size(), 72U);
  for (std::size_t at = 0; at < 72; ++at) {
    EXPECT_NEAR(values[at], 11 + static_cast<double>(at % 4), 1e-5);
  }
}

// The plain set has longitudes 10 to 14 and latitudes -1 to 2.
TEST_F(FitGrid, ABoxOutsideOfTheDataIsRefused) {
  for (const std::string box : {"20,0,25,2", "-5,0,5,2", "15,0,9,2", "10,3,14,5", "10,-9,14,-2"}) {
    EXPECT_EQ(refusal({}, {"--grid", "1", "--box", box}),
              "kelvane: The box lies outside of the data, which have longitudes 10 to 14 and "
              "latitudes -1 to 2.\n")
        << box;
  }
  for (const std::string box : {"14,2,16,4", "350,-1,11,2", "-350,0,-346,2", "11.2,0.2,11.8,0.8"}) {
    fit({}, {"--grid", "0.5", "--box", box}, {});
  }
}

TEST_F(FitGrid, IsProposedWhereItIsNeeded) {
  sheared(-30, 10, 0.7).make(in());
  EXPECT_EQ(refusalOfMade(),
            "kelvane: The grid is curvilinear: glon(y, x) and glat(y, x) are no axes. Put it on a "
            "regular grid, for example with --grid 0.5,0.5.\n");
  Points cells;
  cells.shape = {5};
  cells.lons = cells.lats = cells.values = {0, 1, 2, 3, 4};
  cells.make(in());
  EXPECT_TRUE(contains(refusalOfMade(), "The grid is a list of cells: "));
  EXPECT_EQ(refusalOfMade({"--grid", "1", "--method", "bilinear"}),
            "kelvane: Cells have no rows and columns to interpolate between; take --method "
            "nearest.\n");
  EXPECT_EQ(refusalOfMade({"--grid", "0.0001", "--box", "0,0,90,90"}),
            "kelvane: The grid has too many points; take larger steps.\n");
  EXPECT_EQ(refusalOfMade({"--grid", "50"}),
            "kelvane: The grid has fewer than two rows or columns; take smaller steps.\n");
}

}  // namespace
}  // namespace fit_test
