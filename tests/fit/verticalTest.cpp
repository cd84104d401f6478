#include "FitTest.h"

// The vertical axis.
namespace fit_test {
namespace {

using cli_test::contains;

class FitVertical : public FitTest {
 protected:
  // Of the copy, under whatever name: the axis comes second.
  std::string levelName() const { return ReadSet(out()).variables()[1]; }
  std::vector<double> levels() const { return ReadSet(out()).values(levelName()); }
};

struct Case {
  const char* about;
  MadeAxis axis;
  std::string name;
  std::vector<double> values;
  bool turned;
};

class VerticalAxes : public FitTest, public testing::WithParamInterface<Case> {};

TEST_P(VerticalAxes, BecomeOnesThatTheControlKnows) {
  MadeSet set;
  set.level = GetParam().axis;
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.variables()[1], GetParam().name);
  EXPECT_EQ(copy.values(GetParam().name), GetParam().values);
  const bool turned = GetParam().turned;
  expectTemp(2, 3, 4, 5, [turned](auto t, auto k, auto j, auto i) {
    return plainValue(t, turned ? 2 - k : k, j, i);
  });
}

using Attribute = std::pair<std::string, std::string>;

MadeAxis axis(const std::string& name, const std::string& units, std::vector<double> values,
              std::vector<Attribute> attributes = {}) {
  MadeAxis made{name, units, std::move(values)};
  made.attributes = std::move(attributes);
  return made;
}

const std::vector<Case> kCases = {
    {"known", axis("deptht", "m", {5, 15, 50}), "deptht", {5, 15, 50}, false},
    {"deepestFirst", axis("depth", "m", {50, 15, 5}), "depth", {5, 15, 50}, true},
    {"pressure", axis("lev", "hPa", {1000, 500, 100}), "level", {100, 500, 1000}, true},
    {"pressureDown",
     axis("isobaric", "Pa", {100, 5000, 10000}, {{"positive", "down"}}),
     "level",
     {100, 5000, 10000},
     false},
    {"standardName",
     axis("foo", "dbar", {1, 2, 3}, {{"standard_name", "sea_water_pressure"}}),
     "level",
     {1, 2, 3},
     false},
    {"axisAttribute", axis("foo", "m", {1, 2, 3}, {{"axis", "Z"}}), "depth", {1, 2, 3}, false},
    {"oceanHeights",
     axis("z_rho", "m", {-300, -100, -10}, {{"positive", "up"}}),
     "z_rho",
     {10, 100, 300},
     true},
    {"oceanDepthsBelowZero", axis("lev", "m", {0, -10, -300}), "depth", {0, 10, 300}, false},
    {"sigma",
     axis("s_rho", "1", {-0.75, -0.5, -0.25},
          {{"standard_name", "ocean_s_coordinate_g1"}, {"positive", "up"}}),
     "sigma",
     {0.25, 0.5, 0.75},
     true},
    {"heights",
     axis("height", "m", {10, 100, 1000}, {{"positive", "up"}}),
     "level_height",
     {0, 900, 990},
     true},
    {"kilometres", axis("depth", "km", {0.5, 1, 2}), "depth", {500, 1000, 2000}, false},
    {"centimetres", axis("z_t", "centimeters", {500, 1500, 2500}), "z_t", {5, 15, 25}, false},
    {"hybridLevels", axis("hybrid", "", {1, 2, 3}), "level", {1, 2, 3}, false},
};

INSTANTIATE_TEST_SUITE_P(Fit, VerticalAxes, testing::ValuesIn(kCases),
                         [](const auto& each) { return std::string(each.param.about); });

TEST_F(FitVertical, LevelsThatAreNoDepthsAreToldOf) {
  MadeSet set;
  set.level = axis("s_rho", "1", {-0.75, -0.5, -0.25});
  EXPECT_TRUE(contains(fit(set).err, "note: the levels of s_rho are no depths in metres"));
  set.level = axis("plev", "Pa", {10000, 50000});
  EXPECT_TRUE(contains(fit(set).err, "note: the levels of plev are pressures; the axis"));
  set.level = axis("depth", "m", {1, 2, 3});
  EXPECT_EQ(fit(set).err, "");
}

TEST_F(FitVertical, IsMadeOfADimensionWithoutAVariable) {
  MadeSet set;
  set.level.name = "lev";
  set.level.withoutVariable = true;
  const auto result = fit(set);
  EXPECT_EQ(levels(), (std::vector<double>{1, 2, 3}));
  EXPECT_TRUE(contains(result.out, "lev: made, with the numbers of the levels")) << result.out;
  EXPECT_TRUE(contains(result.out, "lev: renamed to level")) << result.out;
}

TEST_F(FitVertical, ADimensionFromBottomToTopIsTurned) {
  MadeSet set;
  set.level.name = "bottom_top";
  set.level.withoutVariable = true;
  fit(set);
  EXPECT_EQ(levels(), (std::vector<double>{1, 2, 3}));
  expectTemp(2, 3, 4, 5, [](auto t, auto k, auto j, auto i) { return plainValue(t, 2 - k, j, i); });
}

TEST_F(FitVertical, TheRightOneOfSeveralIsInFront) {
  MadeSet set;
  int other = -1;
  // Found first by the control, although no variable lies on it.
  set.level.name = "plev";
  set.level.units = "hPa";
  set.more = [&](support::NcMaker& nc, int) {
    other = nc.var("zone", NC_FLOAT, {nc.dim("zone", 2)});
  };
  set.moreValues = [&](support::NcMaker& nc) { nc.put(other, {1, 2}); };
  fit(set);
  EXPECT_EQ(levelName(), "level");
}

TEST_F(FitVertical, IntegersOf64BitsAreMadeClassic) {
  MadeSet set;
  set.mode = NC_NETCDF4;
  set.level.type = NC_INT64;
  set.level.values = {1, 20, 300};
  fit(set);
  EXPECT_EQ(ReadSet(out()).type("depth"), NC_DOUBLE);
  EXPECT_EQ(levels(), (std::vector<double>{1, 20, 300}));
}

TEST_F(FitVertical, WithoutOneThereIsNoSection) {
  MadeSet set;
  set.order = "tyx";
  EXPECT_EQ(refusal(set),
            "kelvane: There is no section to draw: no variable has a vertical dimension beside its "
            "longitude and latitude. The first one is temp(time, lat, lon).\n");
}

}  // namespace
}  // namespace fit_test
