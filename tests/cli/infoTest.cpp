#include <filesystem>
#include <nlohmann/json.hpp>
#include <tuple>

#include "CliTest.h"
#include "support/NcMaker.h"

namespace cli_test {
namespace {

using nlohmann::json;

class Info : public CliTest {
 protected:
  // The smallest data set that opens, with time units of the caller's choice.
  void makeWithTimeUnits(const std::string& name, const std::string& units) const {
    support::NcMaker nc(file(name));
    const int time = nc.dim("time", 2), z = nc.dim("z", 2), y = nc.dim("lat", 2),
              x = nc.dim("lon", 2);
    const int times = nc.var("time", NC_INT, {time}), zs = nc.var("z", NC_FLOAT, {z}),
              ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
    nc.text(times, "units", units);
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", "degrees_east");
    const int q = nc.var("q", NC_FLOAT, {time, z, y, x});
    nc.put(times, {1, 4});
    nc.put(zs, {0, 10});
    nc.put(ys, {0, 1});
    nc.put(xs, {0, 1});
    nc.put(q, std::vector<double>(16, 1.0));
  }
};

TEST_F(Info, ListsEverythingAsText) {
  const Result result = kelvane({"info", "small.nc"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  const std::string listing = result.out.substr(0, result.out.find("\nChecks, "));
  EXPECT_EQ(listing,
            "Data set:    small.nc\n"
            "Title:       little run\n"
            "Dimensions:  time 2 (unlimited), depth 3, lat 4, lon 6\n"
            "Longitude:   lon [degrees_east], 6 values, 350 to 360, spacing 2\n"
            "Latitude:    lat [degrees_north], 4 values, -1 to 0.5, spacing 0.5\n"
            "Vertical:    depth [m], 3 levels, 0 to 200\n"
            "Time:        time [hours since 1990-01-01 00:00:00], 2 steps\n"
            "\n"
            "Time steps (counted from 1990-01-01 00:00:00):\n"
            "     1  1990-01-02 12:00:00\n"
            "     2  1990-01-03 12:00:00\n"
            "\n"
            "Levels:\n"
            "     1  0\n"
            "     2  50\n"
            "     3  200\n"
            "\n"
            "Items that the control offers:\n"
            "     1  temp  [degC]  potential temperature (time, depth, lat, lon)\n"
            "     2  salt  [1]     salinity (time, depth, lat, lon)\n");
}

TEST_F(Info, ListsEverythingAsJson) {
  const Result result = kelvane({"info", "--json", "small.nc"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  json listed = json::parse(result.out);
  for (const char* key : {"checks", "variables", "warnings"}) {
    EXPECT_FALSE(listed[key].empty()) << key;
    listed.erase(key);
  }
  EXPECT_EQ(listed, json::parse(R"({
    "data_set": "small.nc", "opened": true, "error": null, "recognised": true,
    "title": "little run",
    "dimensions": [{"name": "time", "length": 2, "unlimited": true},
                   {"name": "depth", "length": 3, "unlimited": false},
                   {"name": "lat", "length": 4, "unlimited": false},
                   {"name": "lon", "length": 6, "unlimited": false}],
    "coordinates": {
      "longitude": {"variable": "lon", "units": "degrees_east", "count": 6,
                    "first": 350.0, "last": 360.0, "spacing": 2.0},
      "latitude": {"variable": "lat", "units": "degrees_north", "count": 4,
                   "first": -1.0, "last": 0.5, "spacing": 0.5},
      "vertical": {"variable": "depth", "units": "m"},
      "time": {"variable": "time", "units": "hours since 1990-01-01 00:00:00",
               "origin": "1990-01-01 00:00:00"}},
    "time_steps": [{"step": 1, "value": 36.0, "date": "1990-01-02 12:00:00"},
                   {"step": 2, "value": 60.0, "date": "1990-01-03 12:00:00"}],
    "levels": [{"level": 1, "depth": 0.0}, {"level": 2, "depth": 50.0},
               {"level": 3, "depth": 200.0}],
    "items": [{"item": 1, "name": "temp", "long_name": "potential temperature", "units": "degC",
               "dimensions": ["time", "depth", "lat", "lon"]},
              {"item": 2, "name": "salt", "long_name": "salinity", "units": "1",
               "dimensions": ["time", "depth", "lat", "lon"]}],
    "notes": [],
    "verdict": "drawable", "summary": "Sections of 2 variables can be drawn",
    "format": "classic",
    "command": "kelvane draw small.nc --var temp --path \"351.2,-0.8 360,0.5\" -o section.png",
    "advice": "It can be drawn as it is:"
  })"));
}

TEST_F(Info, DatesAreGivenOnlyWhereTheUnitsCountThem) {
  const std::tuple<const char*, json, json> cases[] = {
      {"days since 2000-02-27",
       "2000-02-27 00:00:00",
       {"2000-02-28 00:00:00", "2000-03-02 00:00:00"}},
      {"days", "1899-12-30 00:00:00", {"1899-12-31 00:00:00", "1900-01-03 00:00:00"}},
      {"seasons", nullptr, {"Season 1", "Season 4"}},
      {"months since 2000-01-01", nullptr, {"Month 1", "Month 4"}},
      {"years since 2000-01-01", nullptr, {nullptr, nullptr}},
  };
  for (const auto& [units, origin, dates] : cases) {
    makeWithTimeUnits("time.nc", units);
    const Result result = kelvane({"info", "--json", "time.nc"});
    EXPECT_EQ(result.status, 0) << result.err;
    const json listed = json::parse(result.out);
    EXPECT_EQ(listed["coordinates"]["time"]["origin"], origin) << units;
    EXPECT_EQ(listed["time_steps"][0]["date"], dates[0]) << units;
    EXPECT_EQ(listed["time_steps"][1]["date"], dates[1]) << units;
    const bool unknown = std::string(units).starts_with("years");
    EXPECT_EQ(listed["notes"].size(), unknown ? 1U : 0U) << units;
    EXPECT_EQ(contains(result.out, "Time has no unit:"), unknown) << units;
  }
}

TEST_F(Info, TextsOfADataSetCannotSteerTheTerminal) {
  {
    support::NcMaker nc(file("odd.nc"));
    nc.text(NC_GLOBAL, "title",
            "\x1B[31mred\nline\x07\xC2\x9B"
            "2J");
    nc.dim("x", 2);
  }
  const Result result = kelvane({"info", "odd.nc"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.out, "Title:        [31mred line  2J\n")) << result.out;
}

TEST_F(Info, FileNamesOfEveryKindAreTaken) {
  for (const char* name : {"two words.nc", " blank first.nc", "\xC3\xA9t\xC3\xA9.nc", "draw",
                           "[a,b].nc", "a#b.nc", "--json"}) {
    std::filesystem::copy_file(file("small.nc"), file(name));
    const Result result = kelvane({"info", "--json", "--", name});
    EXPECT_EQ(result.status, 0) << name << result.err;
    ASSERT_EQ(result.status, 0);
    EXPECT_EQ(json::parse(result.out)["data_set"], name);
  }
}

}  // namespace
}  // namespace cli_test
