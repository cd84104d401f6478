#include <cmath>

#include "FitTest.h"

// Variables: dimensions, types, missing values, attributes, names.
namespace fit_test {
namespace {

using cli_test::contains;

constexpr auto kNewFill = static_cast<double>(NC_FILL_FLOAT);
const double kNan = std::nan("");

class FitVariable : public FitTest {};

TEST_F(FitVariable, DimensionsAreReordered) {
  for (const std::string order : {"txyz", "yxzt", "zyxt", "xytz"}) {
    MadeSet set;
    set.order = order;
    const auto result = fit(set);
    const std::string dims = ReadSet(out()).dims("temp");
    EXPECT_TRUE(dims == "time depth lat lon" || dims == "depth time lat lon") << order << dims;
    EXPECT_TRUE(contains(result.out, "temp: dimensions reordered to ")) << result.out;
    if (dims == "time depth lat lon") {
      expectTemp(2, 3, 4, 5, plainValue);
    } else {
      expectTemp(3, 2, 4, 5, [](auto k, auto t, auto j, auto i) { return plainValue(t, k, j, i); });
    }
  }
}

TEST_F(FitVariable, LongitudeBeforeLatitudeStays) {
  MadeSet set;
  set.order = "tzxy";
  EXPECT_TRUE(fit(set).out.starts_with("Nothing had to be changed."));
  EXPECT_EQ(ReadSet(out()).dims("temp"), "time depth lon lat");
}

TEST_F(FitVariable, BothOrdersInOneSetBecomeOne) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int) { nc.var("salt", NC_FLOAT, {0, 3, 1, 2}); };
  fit(set, {}, {"temp", "salt"});
  EXPECT_EQ(ReadSet(out()).dims("salt"), "time depth lat lon");
}

// A set with two more dimensions, run of length 2 and height2 of length 1.
class ManyDimensions : public FitVariable {
 protected:
  void make() {
    MadeSet set;
    int many = -1;
    set.more = [&](support::NcMaker& nc, int) {
      const int run = nc.dim("run", 2), level = nc.dim("one", 1);
      many = nc.var("many", NC_INT, {0, level, run, 3, 2, 1});
    };
    set.moreValues = [&](support::NcMaker& nc) {
      std::vector<double> values(240);
      for (std::size_t at = 0; at < 240; ++at) values[at] = static_cast<double>(at);
      nc.put(many, values);
    };
    set.make(in());
  }
};

TEST_F(ManyDimensions, OfLengthOneAreDropped) {
  make();
  const auto result = fitMade({}, {"temp", "many"});
  EXPECT_EQ(ReadSet(out()).dims("many"), "time run depth lat lon");
  EXPECT_TRUE(contains(result.err, "many is drawn for the first run of 2; --select run=N"))
      << result.err;
}

TEST_F(ManyDimensions, AreReducedByWhatIsSelected) {
  make();
  fitMade({"--select", "run=2"}, {"temp", "many"});
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("many"), "time one depth lat lon");
  const std::vector<double> values = copy.values("many");
  ASSERT_EQ(values.size(), 120U);
  for (std::size_t at = 0; at < 120; ++at) {
    EXPECT_EQ(values[at], static_cast<double>(at / 60 * 120 + 60 + at % 60));
  }
}

TEST_F(ManyDimensions, ThatCannotBeDroppedAreAskedFor) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int) {
    nc.var("many", NC_INT, {0, nc.dim("member", 2), nc.dim("run", 3), 3, 2, 1});
  };
  EXPECT_EQ(refusal(set),
            "kelvane: many(time, member, run, depth, lat, lon) has more than 5 dimensions. Pick an "
            "index of:\n  --select member=1   (1 to 2)\n  --select run=1   (1 to 3)\n");
  EXPECT_EQ(refusalOfMade({"--select", "run=4"}),
            "kelvane: There is no index 4 of run, which has 3.\n");
  EXPECT_EQ(refusalOfMade({"--select", "depth=1"}),
            "kelvane: depth is an axis of the section; --times and --box cut time and the grid.\n");
  EXPECT_TRUE(contains(refusalOfMade({"--select", "x=1"}), "There is no dimension x to select"));
  fitMade({"--vars", "temp"});
  EXPECT_FALSE(ReadSet(out()).has("many"));
}

struct Missing {
  const char* about;
  nc_type type;
  std::vector<std::pair<const char*, double>> attributes;
  std::vector<double> raw, expected;  // the first values of temp
  double fill;                        // of the copy; NaN: none
};

class MissingValues : public FitTest, public testing::WithParamInterface<Missing> {};

TEST_P(MissingValues, AreWhatTheControlTakesForThem) {
  const Missing& each = GetParam();
  MadeSet set;
  set.type = each.type;
  set.value = [&](std::size_t t, std::size_t k, std::size_t j, std::size_t i) {
    return t + k + j == 0 && i < each.raw.size() ? each.raw[i] : 1.0;
  };
  set.more = [&](support::NcMaker& nc, int temp) {
    for (const auto& [name, value] : each.attributes) {
      // Only the library's own attribute must be of the variable's type.
      nc.number(temp, name, std::string(name).starts_with("_") ? each.type : NC_DOUBLE, {value});
    }
  };
  fit(set);
  const ReadSet copy(out());
  const std::vector<double> values = copy.values("temp");
  for (std::size_t at = 0; at < each.expected.size(); ++at) {
    EXPECT_EQ(values[at], each.expected[at]) << at;
  }
  const double fill = copy.number("temp", "_FillValue");
  EXPECT_TRUE(fill == each.fill || (std::isnan(fill) && std::isnan(each.fill))) << fill;
}

const std::vector<Missing> kMissing = {
    {"plain", NC_FLOAT, {{"_FillValue", 1e20F}}, {1e20F, 7}, {1e20F, 7}, 1e20F},
    {"nan", NC_FLOAT, {{"_FillValue", kNan}}, {kNan, 7}, {kNewFill, 7}, kNewFill},
    {"nanUntold", NC_DOUBLE, {}, {kNan, 7}, {kNewFill, 7}, kNewFill},
    {"noneUntold", NC_DOUBLE, {}, {5, 7}, {5, 7}, kNan},
    {"neverWritten", NC_FLOAT, {}, {kNewFill, 7}, {kNewFill, 7}, kNewFill},
    {"zero", NC_FLOAT, {{"_FillValue", 0}}, {0, 7}, {kNewFill, 7}, kNewFill},
    {"two",
     NC_FLOAT,
     {{"_FillValue", 1e20F}, {"missing_value", -99}},
     {1e20F, -99, 7},
     {1e20F, 1e20F, 7},
     1e20F},
    {"twoWithNan",
     NC_FLOAT,
     {{"_FillValue", kNan}, {"missing_value", -99}},
     {kNan, -99, 7},
     {kNewFill, kNewFill, 7},
     kNewFill},
    {"otherPrecision",
     NC_FLOAT,
     {{"missing_value", 1e20}, {"_FillValue", 1e20F}},
     {1e20F, 7},
     {1e20F, 7},
     1e20F},
    {"nearby", NC_FLOAT, {{"missing_value", -99}}, {-99, -98.5, 7}, {kNewFill, -98.5, 7}, kNewFill},
    {"beyond", NC_FLOAT, {{"missing_value", 50}}, {50, 60, 7}, {kNewFill, 60, 7}, kNewFill},
    {"packed",
     NC_SHORT,
     {{"_FillValue", -32767}, {"scale_factor", 0.5}, {"add_offset", 10}},
     {-32767, -32766, 4},
     {kNewFill, -16373, 12},
     kNewFill},
    {"packedAway",
     NC_SHORT,
     {{"_FillValue", -32767}, {"scale_factor", 0.5}, {"add_offset", 10}},
     {-32767, -30000, 4},
     {-32767, -30000, 4},
     -32767},
    {"whole", NC_INT, {{"_FillValue", 0}}, {0, 16777217}, {kNewFill, 16777217}, kNewFill},
};

INSTANTIATE_TEST_SUITE_P(Fit, MissingValues, testing::ValuesIn(kMissing),
                         [](const auto& each) { return std::string(each.param.about); });

TEST_F(FitVariable, TypesOfNewFormatsAreMadeClassic) {
  const std::vector<std::pair<nc_type, nc_type>> types = {{NC_UBYTE, NC_SHORT}, {NC_USHORT, NC_INT},
                                                          {NC_UINT, NC_INT},    {NC_INT64, NC_INT},
                                                          {NC_UINT64, NC_INT},  {NC_BYTE, NC_BYTE}};
  for (const auto& [type, expected] : types) {
    MadeSet set;
    set.mode = NC_NETCDF4;
    set.type = type;
    set.value = [](std::size_t, std::size_t k, std::size_t j, std::size_t i) {
      return static_cast<double>(k + 10 * j + i);
    };
    fit(set);
    EXPECT_EQ(ReadSet(out()).type("temp"), expected) << type;
    expectTemp(2, 3, 4, 5,
               [](auto, auto k, auto j, auto i) { return static_cast<double>(k + 10 * j + i); });
  }
}

TEST_F(FitVariable, NumbersWithoutSignInTypesWithOneAreWidened) {
  const std::vector<std::pair<nc_type, double>> types = {
      {NC_BYTE, 256}, {NC_SHORT, 65536}, {NC_INT, 4294967296}};
  for (const auto& [type, wrap] : types) {
    MadeSet set;
    set.type = type;
    set.value = [](std::size_t, std::size_t k, std::size_t j, std::size_t i) {
      return k + j + i == 0 ? -1.0 : -2.0 - static_cast<double>(50 * (i % 2));
    };
    const nc_type raw = type;
    set.more = [raw](support::NcMaker& nc, int temp) {
      nc.text(temp, "_Unsigned", "true");
      nc.number(temp, "_FillValue", raw, {-1});
    };
    fit(set, {"--vars", "temp"});
    const ReadSet copy(out());
    const double fill = copy.number("temp", "_FillValue");
    // Values within one percent of the fill value would be lost: it is another one then.
    EXPECT_EQ(fill, kNewFill);
    EXPECT_NE(copy.type("temp"), type);
    const std::vector<double> values = copy.values("temp");
    EXPECT_EQ(values[0], fill);
    EXPECT_NEAR(values[1], wrap - 52, wrap / 1e6);
    EXPECT_NEAR(values[2], wrap - 2, wrap / 1e6);
    EXPECT_EQ(copy.text("temp", "_Unsigned"), "");
  }
  MadeSet plain;
  plain.type = NC_BYTE;
  plain.value = [](std::size_t, std::size_t, std::size_t, std::size_t i) {
    return static_cast<double>(i) - 2;
  };
  plain.more = [](support::NcMaker& nc, int temp) { nc.text(temp, "_Unsigned", "true"); };
  fit(plain);
  const ReadSet copy(out());
  EXPECT_EQ(copy.type("temp"), NC_SHORT);
  const std::vector<double> values = copy.values("temp");
  EXPECT_EQ((std::vector<double>{values.begin(), values.begin() + 5}),
            (std::vector<double>{254, 255, 0, 1, 2}));
}

TEST_F(FitVariable, StringsAreMadeCharacters) {
  MadeSet set;
  set.mode = NC_NETCDF4;
  int names = -1;
  set.more = [&](support::NcMaker& nc, int temp) {
    const char* text[] = {
        "Sea \xC2\xB0"
        "C",
        "second"};
    nc_put_att_string(nc.id(), temp, "long_name", 1, text);
    nc_put_att_string(nc.id(), NC_GLOBAL, "title", 2, text);
    nc.number(temp, "count", NC_INT64, {5e9});
    nc.number(temp, "small", NC_UINT, {5});
    names = nc.var("names", NC_STRING, {0});
  };
  set.moreValues = [&](support::NcMaker& nc) {
    const char* text[] = {"one", "three"};
    ASSERT_EQ(nc_put_var_string(nc.id(), names, text), NC_NOERR);
  };
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.text("temp", "long_name"),
            "Sea \xC2\xB0"
            "C");
  EXPECT_EQ(copy.text("", "title"),
            "Sea \xC2\xB0"
            "C, second");
  EXPECT_EQ(copy.number("temp", "count"), 5e9);
  EXPECT_EQ(copy.dims("names"), "time width_of_names");
  EXPECT_EQ(copy.type("names"), NC_CHAR);
  EXPECT_TRUE(contains(result.out, "temp: attributes made classic: long_name, count, small ("))
      << result.out;
}

TEST_F(FitVariable, AttributesBeyondFifteenBecomeGlobal) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int temp) {
    for (int at = 0; at < 16; ++at) nc.text(temp, "note" + std::to_string(at), "text");
    nc.text(temp, "units", "degC");
  };
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.attributes("temp").size(), 15U);
  EXPECT_EQ(copy.text("temp", "units"), "degC");
  EXPECT_EQ(copy.text("temp", "note13"), "text");
  EXPECT_EQ(copy.text("", "temp_note14"), "text");
  EXPECT_TRUE(contains(result.out, "temp: attributes moved to the global ones: note14, note15 ("))
      << result.out;
}

TEST_F(FitVariable, AttributesThatWouldBeTakenForOthersAreRenamed) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int temp) {
    nc.text(temp, "units", "degC");
    nc.text(temp, "units_metadata", "temperature: on_scale");
    nc.text(temp, "valid_for", "ever");
    nc.number(temp, "scale_min", NC_DOUBLE, {2});
    nc.number(temp, "Add_Offset", NC_DOUBLE, {1});
  };
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.attributes("temp"),
            (std::vector<std::string>{"units", "the_units_metadata", "valid_for", "the_scale_min",
                                      "Add_Offset"}));
}

TEST_F(FitVariable, NamesBeyond45BytesAreShortened) {
  const std::string longName(46, 'n'), other = longName + "2";
  MadeSet set;
  set.more = [&](support::NcMaker& nc, int temp) {
    nc.var(longName, NC_FLOAT, {nc.dim(other, 2)});
    nc.var(other, NC_FLOAT, {0});
    nc.text(temp, std::string(44, 'a') + "\xC3\xA9", "text");
  };
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_TRUE(copy.has(std::string(45, 'n')));
  EXPECT_TRUE(copy.has(std::string(43, 'n') + "_2"));
  EXPECT_EQ(copy.attributes("temp"), std::vector<std::string>{std::string(44, 'a')});
  EXPECT_TRUE(contains(result.out, longName + ": shortened to " + std::string(45, 'n') + " ("))
      << result.out;
}

TEST_F(FitVariable, OnlyTheChosenOnesAreCopiedWithWhatBelongsToThem) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int temp) {
    nc.var("salt", NC_FLOAT, {0, 3, 2, 1});
    nc.var("crs", NC_INT, {});
    nc.text(temp, "grid_mapping", "crs");
    nc.var("zeta", NC_FLOAT, {0, 2, 1});
  };
  fit(set, {"--vars", "temp"});
  EXPECT_EQ(ReadSet(out()).variables(),
            (std::vector<std::string>{"time", "depth", "lat", "lon", "temp", "crs"}));
  const auto unknown = kelvane({"fit", in(), out(), "--vars", "temp,wind"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_EQ(unknown.err, "kelvane: There is no variable wind.\nVariables: temp, salt, zeta\n");
}

TEST_F(FitVariable, ThoseOnOtherGridsAreToldOf) {
  MadeSet set;
  set.more = [](support::NcMaker& nc, int) {
    const int x = nc.dim("lon_u", 5);
    const int lon = nc.var("lon_u", NC_FLOAT, {x});
    nc.text(lon, "units", "degrees_east");
    nc.var("u", NC_FLOAT, {0, 3, 2, x});
  };
  const auto result = fit(set);
  EXPECT_TRUE(contains(result.err,
                       "u(time, depth, lat, lon_u) cannot be drawn: its grid is "
                       "another; fit it by itself with --vars, or all of them with "
                       "--grid."))
      << result.err;
}

}  // namespace
}  // namespace fit_test
