#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

#include "MadeSet.h"
#include "controlOutcome.h"
#include "diagnosis/diagnose.h"
#include "schema.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

// The rules are told from the header alone, and what the control does is found by calling it: both
// must come to the same for every kind of data set.
namespace diagnosis_test {
namespace {

using namespace cli::diagnosis;
using support::NcMaker;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Case {
  const char* name;
  MadeSet set;
  Verdict verdict;
  const char* rule;  // that fails first; empty: none
};

std::string nameOf(const testing::TestParamInfo<Case>& made) { return made.param.name; }
void PrintTo(const Case& made, std::ostream* stream) { *stream << made.name; }

void expectAgreement(const std::string& path, Verdict verdict, const std::string& rule) {
  const Outcome outcome = controlOutcome(path);
  EXPECT_EQ(verdictName(outcome.verdict), verdictName(verdict)) << "what the control does";
  support::resetState();
  const Diagnosis diagnosis = examine(path).diagnosis;
  EXPECT_EQ(verdictName(diagnosis.verdict), verdictName(verdict)) << diagnosis.summary;
  EXPECT_EQ(verdictName(verdictOf(diagnosis.checks)), verdictName(verdict)) << "by the rules alone";
  static const std::set<std::string> rules = namesInSchema("checks", "rule");
  for (const Check& check : diagnosis.checks) EXPECT_TRUE(rules.contains(check.rule)) << check.rule;
  const Check* failure = diagnosis.firstFailure();
  ASSERT_EQ(failure == nullptr, rule.empty()) << (failure == nullptr ? "" : failure->rule);
  if (failure != nullptr) {
    EXPECT_EQ(failure->rule, rule) << failure->evidence.finding;
  }
  if (verdict < Verdict::NoSection) return;
  for (const VariableFinding& variable : diagnosis.variables) {
    EXPECT_EQ(variable.listed, outcome.items.contains(variable.name)) << variable.name;
    if (verdict == Verdict::NoSection) continue;
    EXPECT_EQ(variable.suited, outcome.read.contains(variable.name))
        << variable.name << ": " << variable.reason;
    EXPECT_EQ(variable.drawable, variable.suited && verdict == Verdict::Drawable);
    EXPECT_EQ(variable.reason.empty(), variable.drawable) << variable.name;
  }
}

class Agreement : public testing::TestWithParam<Case> {
 protected:
  ~Agreement() override { support::resetState(); }
  support::TempFolder folder;
};

TEST_P(Agreement, OfTheRulesAndTheControl) {
  const std::string path = folder.file("set.nc");
  GetParam().set.make(path);
  expectAgreement(path, GetParam().verdict, GetParam().rule);
}

const auto kManyAttributes = [](NcMaker& nc, int item) {
  for (int k = 0; k < 16; ++k) nc.number(item, "note" + std::to_string(k), NC_INT, {1});
};
const auto kFifteenAttributes = [](NcMaker& nc, int item) {
  for (int k = 0; k < 15; ++k) nc.number(item, "note" + std::to_string(k), NC_INT, {1});
};
const auto kStringAttribute = [](NcMaker& nc, int item) {
  const char* text = "degC";
  nc_put_att_string(nc.id(), item, "units", 1, &text);
};
const auto kLongAttribute = [](NcMaker& nc, int item) { nc.number(item, "flags", NC_INT64, {1}); };
const std::string kLongName(46, 'n');

// Longitudes and latitudes of cells, on dimensions of the names given.
MadeSet cells(const char* j, const char* i) {
  MadeSet set;
  set.lonName = "longitude_of_nothing";
  set.lonUnits = set.latUnits = "";
  set.latName = "latitude_of_nothing";
  set.more = [=](NcMaker& nc, int) {
    const int y = nc.dim(j, 3), x = nc.dim(i, 3);
    nc.text(nc.var("nav_lon", NC_FLOAT, {y, x}), "units", "degrees_east");
    nc.text(nc.var("nav_lat", NC_FLOAT, {y, x}), "units", "degrees_north");
  };
  return set;
}

MadeSet cellList() {
  MadeSet set = cells("other", "ncells");
  set.more = [](NcMaker& nc, int) {
    const int n = nc.dim("ncells", 5);
    nc.text(nc.var("clon", NC_DOUBLE, {n}), "units", "degrees_east");
    nc.text(nc.var("clat", NC_DOUBLE, {n}), "units", "degrees_north");
  };
  return set;
}

// A vertical axis on another axis' dimension, by its number in a made set.
MadeSet levelsOn(int dimension, std::size_t count) {
  MadeSet set;
  set.levelName = "pressure";
  set.more = [=](NcMaker& nc, int) {
    const int z = nc.var("z", NC_FLOAT, {dimension});
    std::vector<double> values;
    for (std::size_t at = 1; at <= count; ++at) values.push_back(10.0 * static_cast<double>(at));
    nc.put(z, values);
  };
  return set;
}

// A longitude that is named like the first of its two dimensions.
MadeSet longitudeOfTwo() {
  MadeSet set;
  set.lonName = "x";
  set.lonUnits = "";
  set.more = [](NcMaker& nc, int) {
    nc.text(nc.var("lon", NC_DOUBLE, {nc.dim("lon", 3), nc.dim("two", 2)}), "units", "degrees");
  };
  return set;
}

// The library counts dimensions of groups along with the others.
const auto kBehindAGroup = [](NcMaker& nc, int) {
  int group = -1, dim = -1;
  nc_def_grp(nc.id(), "run", &group);
  nc_def_dim(group, "member", 7, &dim);
  nc_def_var(group, "weight", NC_FLOAT, 1, &dim, &dim);
  nc.var("bins", NC_FLOAT, {nc.dim("bin", 2)});
};

constexpr Verdict kRefused = Verdict::DoesNotOpen;
constexpr int k4 = NC_NETCDF4;

INSTANTIATE_TEST_SUITE_P(
    Headers, Agreement,
    testing::Values(
        Case{"Good", {}, Verdict::Drawable, ""},
        Case{"GoodAsNetcdf4", {.mode = k4}, Verdict::Drawable, ""},
        Case{"Names46",
             {.more = [](NcMaker& nc, int) { nc.var(kLongName, NC_INT, {}); }},
             kRefused,
             "variable-names"},
        Case{"Names45",
             {.more = [](NcMaker& nc, int) { nc.var(kLongName.substr(1), NC_INT, {}); }},
             Verdict::Drawable,
             ""},
        Case{"DimensionName46",
             {.more = [](NcMaker& nc, int) { nc.dim(kLongName, 1); }},
             kRefused,
             "dimension-names"},
        Case{"AttributeName46",
             {.more = [](NcMaker& nc, int item) { nc.text(item, kLongName, "x"); }},
             kRefused,
             "attribute-names"},
        Case{"GlobalName46",
             {.more = [](NcMaker& nc, int) { nc.text(NC_GLOBAL, kLongName, "x"); }},
             kRefused,
             "attribute-names"},
        Case{"SixDimensions", {.order = "wwtzyx"}, kRefused, "variable-dimensions"},
        Case{"FiveDimensions", {.order = "wtzyx"}, Verdict::Drawable, ""},
        Case{"SixteenAttributes", {.more = kManyAttributes}, kRefused, "attribute-counts"},
        Case{"FifteenAttributes", {.more = kFifteenAttributes}, Verdict::Drawable, ""},
        Case{
            "StringAttribute", {.mode = k4, .more = kStringAttribute}, kRefused, "attribute-types"},
        Case{"Int64Attribute", {.mode = k4, .more = kLongAttribute}, kRefused, "attribute-types"},
        Case{"UbyteGlobal",
             {.mode = k4,
              .more = [](NcMaker& nc, int) { nc.number(NC_GLOBAL, "v", NC_UBYTE, {1}); }},
             kRefused,
             "attribute-types"},
        Case{"DimensionBehindAGroup",
             {.mode = k4, .more = kBehindAGroup},
             kRefused,
             "group-dimensions"},
        Case{"DeepestLast", {.levels = {0, 1}}, Verdict::Drawable, ""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Axes, Agreement,
    testing::Values(
        Case{"NoLongitude", {.lonUnits = "m"}, kRefused, "longitude"},
        Case{"LongitudeWithoutUnits", {.lonUnits = ""}, kRefused, "longitude"},
        Case{"LongitudeOfAnyDegrees", {.lonUnits = "degrees"}, Verdict::Drawable, ""},
        Case{"NoLatitude", {.latUnits = "m"}, kRefused, "latitude"},
        Case{"NothingAtAll", {.lonUnits = "", .latUnits = "", .order = ""}, kRefused, "longitude"},
        Case{"OtherNames", {.lonName = "x", .latName = "y"}, Verdict::Drawable, ""},
        Case{"NoVertical", {.levelName = "pressure"}, kRefused, "vertical"},
        Case{"Lev", {.levelName = "lev"}, kRefused, "vertical"},
        Case{"Deptht", {.levelName = "deptht"}, Verdict::Drawable, ""},
        Case{"NoItem", {.order = ""}, kRefused, "items"},
        Case{"FlatItem", {.order = "tyx"}, kRefused, "items"},
        Case{"ItemOfTwo", {.order = "tz"}, kRefused, "items"},
        Case{"TimeOfInt64", {.mode = k4, .timeType = NC_INT64}, kRefused, "time-type"},
        Case{"TimeOfBytes", {.timeType = NC_BYTE}, kRefused, "time-type"},
        Case{"TimeOfShorts", {.timeType = NC_SHORT}, Verdict::Drawable, ""},
        Case{"TimeOfCharacters", {.timeType = NC_CHAR}, kRefused, "time-type"},
        Case{"TimeBeyondTheCalendar", {.times = {0, 1e8}}, kRefused, "time-dates"},
        Case{"TimeIsNan", {.times = {kNan, 1}}, kRefused, "time-dates"},
        Case{"SecondsBeyond", {.timeUnits = "s", .times = {0, 1e30}}, Verdict::Drawable, ""},
        Case{"LevelsOfInt64", {.mode = k4, .levelType = NC_INT64}, kRefused, "vertical-type"},
        Case{"LevelsOfBytes",
             {.levelType = NC_BYTE, .levels = {0, 50, 100}},
             kRefused,
             "vertical-type"},
        Case{"LongitudesOfInts", {.lonType = NC_INT}, kRefused, "longitude-type"},
        Case{"LongitudesOfFloats", {.lonType = NC_FLOAT}, Verdict::Drawable, ""},
        Case{"OneLongitude", {.lons = {5}}, kRefused, "two-points"},
        Case{"OneLatitude", {.lats = {5}}, kRefused, "two-points"},
        Case{"TwoByTwo", {.lons = {5, 6}, .lats = {5, 6}}, Verdict::Drawable, ""},
        Case{"CellsXY", cells("y", "x"), Verdict::NoSection, "regular-grid"},
        Case{"CellsEtaXi", cells("eta_rho", "xi_rho"), kRefused, "cell-axes"},
        Case{"CellsNoName", cells("j", "i"), kRefused, "cell-axes"},
        Case{"CellList", cellList(), Verdict::NoSection, "regular-grid"},
        Case{"LongitudeOfTwo", longitudeOfTwo(), kRefused, "coordinate-counts"},
        Case{"LevelsOnTime", levelsOn(0, 2), Verdict::Drawable, ""},
        Case{"LevelsOnLatitude", levelsOn(2, 4), Verdict::NoValues, "readable-item"},
        Case{"LevelsOnLongitude", levelsOn(3, 6), Verdict::NoValues, "readable-item"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Sections, Agreement,
    testing::Values(
        Case{"NorthToSouth", {.lats = {43, 42, 41, 40}}, Verdict::NoSection, "latitude-direction"},
        Case{"EastToWest", {.lons = {15, 14, 13, 12, 11, 10}}, Verdict::Drawable, ""},
        Case{"AcrossTheDateLine", {.lons = {350, 355, 0, 5}}, Verdict::Drawable, ""},
        Case{"SameLongitudes", {.lons = {5, 5, 5}}, Verdict::NoSection, "longitude-direction"},
        Case{"NanLongitudes", {.lons = {5, 6, kNan}}, Verdict::NoSection, "longitude-direction"},
        Case{"NoTime", {.timeName = "run"}, Verdict::NoValues, "time"},
        Case{"NoStepYet", {.times = {}, .unlimitedTime = true}, Verdict::NoValues, "time"},
        Case{"ItemWithoutTime", {.order = "zyx"}, Verdict::NoValues, "readable-item"},
        Case{"LevelsLast", {.order = "tyxz"}, Verdict::NoValues, "readable-item"},
        Case{"LonLatOrder", {.order = "tzxy"}, Verdict::Drawable, ""},
        Case{"LevelsFirst", {.order = "ztyx"}, Verdict::Drawable, ""},
        Case{"ItemOfInt64", {.mode = k4, .itemType = NC_INT64}, Verdict::NoValues, "readable-item"},
        Case{"ItemOfBytes", {.itemType = NC_BYTE}, Verdict::Drawable, ""},
        Case{"ItemOfDoubles", {.itemType = NC_DOUBLE}, Verdict::Drawable, ""},
        Case{"TwoItems",
             {.order = "zyx",
              .more =
                  [](NcMaker& nc, int) {
                    nc.var("r", NC_SHORT, {0, 1, 2, 3});
                  }},
             Verdict::Drawable,
             ""},
        Case{"EndsAtTheSurface", {.levels = {200, 50, 0}}, Verdict::NotDrawn, "deepest-level"},
        Case{"OneLevelAtZero", {.levels = {0}}, Verdict::NotDrawn, "deepest-level"},
        Case{"NegativeLevels", {.levels = {0, -50, -200}}, Verdict::Drawable, ""},
        Case{"NanLevels", {.levels = {0, 50, kNan}}, Verdict::Drawable, ""}),
    nameOf);

// Any mixture of what can be wrong: the rules and the control come to the same.
TEST(AgreementOnMixtures, OfTheRulesAndTheControl) {
  support::TempFolder folder;
  std::minstd_rand random(1);  // NOLINT: the same mixtures every time
  const auto oneOf = [&](const auto& first, const auto&... others) {
    const std::array all = {first, others...};
    // What is right comes up most often, so that few things are wrong at a time.
    const std::size_t pick = random() % (all.size() + 8);
    return pick < all.size() ? all[pick] : first;
  };
  using Numbers = std::vector<double>;
  using Text = std::string;
  constexpr int mixtures = 300;
  int drawable = 0;
  for (int mixture = 0; mixture < mixtures; ++mixture) {
    MadeSet set;
    set.mode = oneOf(0, NC_NETCDF4);
    set.lonName = oneOf(Text("lon"), Text("x"), Text("longitude"));
    set.latName = oneOf(Text("lat"), Text("y"));
    set.timeName = oneOf(Text("time"), Text("TIME_COUNTER"), Text("t"));
    set.levelName = oneOf(Text("depth"), Text("lev"), Text("LEVEL"), Text("s_rho"), Text("zt"));
    set.lonUnits = oneOf(Text("degrees_east"), Text("degree east"), Text("degrees"), Text("m"));
    set.latUnits = oneOf(Text("degrees_north"), Text("Degrees_N"), Text(""));
    set.timeUnits = oneOf(Text("days since 2000-01-01"), Text("hours"), Text("months"), Text(""));
    set.lonType = oneOf(NC_DOUBLE, NC_FLOAT, NC_INT);
    set.levelType = oneOf(NC_FLOAT, NC_SHORT, NC_INT);
    set.itemType = oneOf(NC_FLOAT, NC_SHORT, NC_CHAR, NC_INT, NC_DOUBLE);
    set.lons = oneOf(Numbers{10, 11, 12, 13}, Numbers{358, 359, 0, 1}, Numbers{5, 4, 3},
                     Numbers{1, 1}, Numbers{7}, Numbers{0, 1, 5, 6});
    set.lats = oneOf(Numbers{40, 41, 42}, Numbers{42, 41, 40}, Numbers{-1, 1}, Numbers{0});
    set.levels = oneOf(Numbers{0, 50, 200}, Numbers{200, 50, 0}, Numbers{0}, Numbers{-5, -9});
    set.times = oneOf(Numbers{0, 1}, Numbers{1e9, 2e9}, Numbers{0});
    set.order = oneOf(Text("tzyx"), Text("zyx"), Text("tyx"), Text("tzxy"), Text("ztyx"),
                      Text("tyxz"), Text("wtzyx"), Text("zy"));
    set.make(folder.file("set.nc"));
    const Outcome outcome = controlOutcome(folder.file("set.nc"));
    support::resetState();
    const Diagnosis diagnosis = examine(folder.file("set.nc")).diagnosis;
    ASSERT_EQ(verdictName(verdictOf(diagnosis.checks)), verdictName(outcome.verdict))
        << mixture << ": " << diagnosis.summary;
    ASSERT_EQ(verdictName(diagnosis.verdict), verdictName(outcome.verdict)) << mixture;
    drawable += outcome.verdict == Verdict::Drawable ? 1 : 0;
  }
  EXPECT_GT(drawable, mixtures / 20);
  EXPECT_LT(drawable, mixtures / 2);
  support::resetState();
}

// Files that nobody made for this: what the control does with them is what the rules say.
TEST(AgreementOnRealFiles, OfTheRulesAndTheControl) {
  expectAgreement(OCEAN_ATLAS, Verdict::Drawable, "");
  expectAgreement(LEVITUS_CLIMATOLOGY, Verdict::NoValues, "time");
  support::resetState();
}

}  // namespace
}  // namespace diagnosis_test
