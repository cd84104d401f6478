#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "support/NcMaker.h"

namespace cli_test {
namespace {

using nlohmann::json;
using support::NcMaker;

class BadInput : public CliTest {
 protected:
  // info and draw are refused with the same reason, said once; nothing is drawn. Returns what
  // info has listed nevertheless.
  std::string expectRefused(const std::string& name, const std::string& reason) const {
    const Result info = kelvane({"info", name});
    EXPECT_EQ(info.status, 1) << name;
    const std::string said = "kelvane: " + (name.empty() ? "" : name + ": ") + reason;
    EXPECT_TRUE(contains(info.err, said)) << info.err;
    EXPECT_EQ(count(info.err, "kelvane: "), 1) << info.err;
    const Result draw = kelvane({"draw", name, "--path", kSmallPath, "-o", "a.png"});
    EXPECT_EQ(draw.status, 1) << name;
    EXPECT_TRUE(contains(draw.err, said)) << draw.err;
    // Of what could be read there is more to say.
    const bool read = json::parse(kelvane({"info", "--json", name}).out)["format"] != json();
    EXPECT_EQ(contains(draw.err, "\nWhat is wrong and what helps is told by: kelvane info " + name),
              read)
        << draw.err;
    EXPECT_FALSE(exists("a.png"));
    return info.out;
  }
};

// A data set of two points along each axis, with everything a section needs; each test leaves
// out or spoils one thing.
struct Recipe {
  std::string lonUnits = "degrees_east", latUnits = "degrees_north";
  std::string level = "depth", time = "time";
  bool withItem = true;
  std::vector<double> lons = {0, 1}, lats = {0, 1};
  int extraAttributes = 0;

  void make(const std::string& path) const {
    NcMaker nc(path);
    const int t = nc.dim(time, 2), z = nc.dim(level, 2);
    const int y = nc.dim("lat", lats.size()), x = nc.dim("lon", lons.size());
    const int ts = nc.var(time, NC_DOUBLE, {t}), zs = nc.var(level, NC_DOUBLE, {z});
    const int ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(ys, "units", latUnits);
    nc.text(xs, "units", lonUnits);
    for (int k = 0; k < extraAttributes; ++k) nc.text(zs, "note" + std::to_string(k), "x");
    if (withItem) nc.var("q", NC_FLOAT, {t, z, y, x});
    nc.put(ts, {0, 1});
    nc.put(zs, {0, 10});
    nc.put(ys, lats);
    nc.put(xs, lons);
  }
};

TEST_F(BadInput, FilesThatAreNoDataSets) {
  std::ofstream(file("empty.nc")).flush();
  std::ofstream(file("text.nc")) << "this is no data set\n";
  std::filesystem::create_directory(file("folder"));
  std::filesystem::copy_file(file("small.nc"), file("cut.nc"));
  std::filesystem::resize_file(file("cut.nc"), 200);
  const std::pair<const char*, const char*> cases[] = {
      {"missing.nc", "No such file or directory"}, {"", "NetCDF: Malformed URL"},
      {"empty.nc", "NetCDF: Unknown file format"}, {"text.nc", "NetCDF: Unknown file format"},
      {"folder", "NetCDF: Unknown file format"},   {"cut.nc", "NetCDF: Unknown file format"},
  };
  for (const auto& [name, reason] : cases) {
    EXPECT_EQ(expectRefused(name, reason), "") << name;
    const json listed = json::parse(kelvane({"info", "--json", name}).out);
    EXPECT_EQ(listed["opened"], false);
    EXPECT_NE(listed["error"], json());
    EXPECT_EQ(listed["items"], json::array());
  }
}

TEST_F(BadInput, AFileWithoutPermission) {
  std::filesystem::permissions(file("small.nc"), std::filesystem::perms::none);
  if (::geteuid() == 0) {
    EXPECT_EQ(kelvane({"info", "small.nc"}).status, 0);  // nothing is closed to root
  } else {
    EXPECT_EQ(expectRefused("small.nc", "Permission denied"), "");
  }
}

TEST_F(BadInput, AnAddressWhereNobodyAnswers) {
  EXPECT_EQ(expectRefused("http://127.0.0.1:1/x", "NetCDF: "), "");
}

TEST_F(BadInput, DataCutOffNeverEndsTheProgramByASignal) {
  const auto whole = std::filesystem::file_size(file("small.nc"));
  for (auto size = whole; size > 0; size -= std::min<std::uintmax_t>(size, 97)) {
    std::filesystem::resize_file(file("small.nc"), size);
    EXPECT_LE(kelvane({"info", "small.nc"}).status, 1) << size;
    EXPECT_LE(kelvane({"values", "small.nc", "--path", kSmallPath}).status, 1) << size;
  }
}

TEST_F(BadInput, DataSetsThatAreNotRecognised) {
  const std::tuple<Recipe, const char*, const char*> cases[] = {
      {{.lonUnits = "m"}, "No longitude was found", "Longitude:   not found"},
      {{.latUnits = "m"}, "No latitude was found", "Latitude:    not found"},
      {{.level = "pressure"}, "No vertical axis was found", "Vertical:    not found"},
      {{.withItem = false}, "Nothing can be drawn", "Vertical:    depth"},
      {{.lons = {5}}, "[SetGeoWindow] Error: Division by zero", "Longitude:   lon [degrees_east]"},
  };
  for (const auto& [recipe, reason, listed] : cases) {
    recipe.make(file("bad.nc"));
    const std::string out = expectRefused("bad.nc", reason);
    EXPECT_TRUE(contains(out, "Dimensions:  time 2, ")) << out;
    EXPECT_TRUE(contains(out, listed)) << out;
    const json facts = json::parse(kelvane({"info", "--json", "bad.nc"}).out);
    EXPECT_EQ(facts["opened"], false);
    EXPECT_TRUE(facts["error"].get<std::string>().starts_with(reason));
    EXPECT_EQ(facts["dimensions"].size(), 4U);
  }
}

TEST_F(BadInput, AHeaderBeyondTheLimitsIsListedAsFarAsItWasRead) {
  Recipe{.extraAttributes = 16}.make(file("bad.nc"));
  const std::string out =
      expectRefused("bad.nc", "Number of attribute exceeds the limit(=15) for\n\nVariable: depth");
  EXPECT_TRUE(contains(out, "Dimensions:  time 2, depth 2, lat 2, lon 2\n")) << out;
  EXPECT_FALSE(contains(out, "Longitude:")) << out;  // the search for it never began
}

TEST_F(BadInput, ADataSetWithoutTimeOpensButIsNotRead) {
  Recipe{.time = "run", .lons = {0, 1, 2, 3, 4, 5}, .lats = {0, 1, 2, 3}}.make(file("bad.nc"));
  const Result info = kelvane({"info", "bad.nc"});
  EXPECT_EQ(info.status, 0) << info.err;
  EXPECT_TRUE(contains(info.out, "Time:        not found\n")) << info.out;
  EXPECT_TRUE(contains(info.out, "Note:        No time axis was found")) << info.out;
  const Result draw = kelvane({"draw", "bad.nc", "--path", "0.5,0.5 4,2", "-o", "a.png"});
  EXPECT_EQ(draw.status, 1);
  EXPECT_TRUE(draw.err.starts_with("kelvane: [ReadVSData] Time dimension ID not identified"))
      << draw.err;
  EXPECT_FALSE(exists("a.png"));
}

TEST_F(BadInput, LatitudesFromNorthToSouthOpenButMakeNoSection) {
  Recipe{.lats = {1, 0}}.make(file("bad.nc"));
  const Result info = kelvane({"info", "bad.nc"});
  EXPECT_EQ(info.status, 0) << info.err;
  EXPECT_TRUE(contains(info.out, "The latitudes do not run from south to north")) << info.out;
  const Result draw = kelvane({"draw", "bad.nc", "--path", "0,0 1,1", "-o", "a.png"});
  EXPECT_EQ(draw.status, 1);
  EXPECT_TRUE(contains(draw.err, "[Set_cell_Section] ncf.dlon <= 0 Or ncf.dlat <= 0")) << draw.err;
  EXPECT_FALSE(exists("a.png"));
}

}  // namespace
}  // namespace cli_test
