#include <gtest/gtest.h>

#include <limits>

#include "MadeSet.h"
#include "controlOutcome.h"
#include "diagnosis/diagnose.h"
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
        Case{"CellList", cellList(), Verdict::NoSection, "regular-grid"}),
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

// Files that nobody made for this: what the control does with them is what the rules say.
TEST(AgreementOnRealFiles, OfTheRulesAndTheControl) {
  expectAgreement(OCEAN_ATLAS, Verdict::Drawable, "");
  expectAgreement(LEVITUS_CLIMATOLOGY, Verdict::NoValues, "time");
  support::resetState();
}

}  // namespace
}  // namespace diagnosis_test
