#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "MadeSet.h"
#include "Subprocess.h"
#include "diagnosis/diagnose.h"
#include "schema.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "typed.h"

namespace diagnosis_test {
namespace {

using namespace cli::diagnosis;
using support::NcMaker;

struct Case {
  const char* kind;
  MadeSet set;
  const char* name;     // of the variable that it is about
  const char* said;     // a part of the text
  bool mended = false;  // by a fitted copy
};

class Warnings : public testing::Test {
 protected:
  ~Warnings() override { support::resetState(); }

  Diagnosis of(const MadeSet& set) {
    set.make(folder.file("set.nc"));
    support::resetState();
    return examine(folder.file("set.nc")).diagnosis;
  }

  // What a command is given for is gone when it has been typed; it is not given for ever.
  void expectAdviceToHelp(const Diagnosis& diagnosis) {
    const std::string command = diagnosis.command;
    const cli_test::Result done = typed(command, folder.path().string());
    ASSERT_EQ(done.status, 0) << command << "\n" << done.err;
    if (!command.starts_with("kelvane fit")) return;
    support::resetState();
    const Diagnosis copy = examine(folder.file("set-fit.nc")).diagnosis;
    EXPECT_TRUE(copy.command.starts_with("kelvane draw")) << copy.advice << copy.command;
    for (const Warning& warning : diagnosis.warnings) {
      if (!warning.mended) continue;
      for (const Warning& left : copy.warnings) EXPECT_NE(left.kind, warning.kind) << left.text;
    }
  }

  // A copy of the set made last has nothing of the kind, but can be drawn.
  void expectMended(const std::string& kind) {
    const std::string copy = folder.file("copy.nc");
    const cli_test::Result fitted =
        cli_test::run({KELVANE_PROGRAM, "fit", folder.file("set.nc"), copy}, {});
    ASSERT_EQ(fitted.status, 0) << kind << ": " << fitted.err;
    support::resetState();
    const Diagnosis diagnosis = examine(copy).diagnosis;
    EXPECT_EQ(verdictName(diagnosis.verdict), "drawable") << kind;
    for (const Warning& warning : diagnosis.warnings) {
      EXPECT_NE(warning.kind, kind) << warning.text << "\n" << fitted.out;
    }
  }

  support::TempFolder folder;
};

TEST_F(Warnings, AreNotGivenWithoutReason) {
  for (const Warning& warning : of({}).warnings)
    ADD_FAILURE() << warning.kind << ": " << warning.text;
}

std::function<void(NcMaker&, int)> number(const char* name, double value) {
  return [=](NcMaker& nc, int item) { nc.number(item, name, NC_FLOAT, {value}); };
}

// Of the item, all of one number but for one.
constexpr std::size_t kItemSize = 144;

std::function<void(NcMaker&, int)> fillAndValue(double fill, double value) {
  return [=](NcMaker& nc, int item) {
    nc.number(item, "_FillValue", NC_FLOAT, {fill});
    std::vector<double> values(kItemSize, fill);
    values[100] = value;
    nc.put(item, values);
  };
}

TEST_F(Warnings, AreGivenForEverythingThatSurprises) {
  const auto calendar = [](NcMaker& nc, int) { nc.text(0, "calendar", "noleap"); };
  const auto positive = [](NcMaker& nc, int) { nc.text(1, "positive", "up"); };
  const auto twoMarks = [](NcMaker& nc, int item) {
    nc.number(item, "_FillValue", NC_FLOAT, {1e20});
    nc.number(item, "missing_value", NC_FLOAT, {1e30});
  };
  const auto twoUnits = [](NcMaker& nc, int) { nc.text(0, "units_metadata", "leap: none"); };
  const auto unsignedBytes = [](NcMaker& nc, int item) { nc.text(item, "_Unsigned", "true"); };
  const auto range = [](NcMaker& nc, int item) {
    nc.number(item, "valid_range", NC_FLOAT, {0, 1});
  };
  const auto turned = [](NcMaker& nc, int) { nc.var("turned", NC_FLOAT, {0, 1, 3, 2}); };
  const auto packed = [](NcMaker& nc, int item) {
    nc.number(item, "_FillValue", NC_SHORT, {-1000});
    nc.number(item, "scale_factor", NC_DOUBLE, {-0.5});
    nc.number(item, "add_offset", NC_DOUBLE, {10});
    nc.put(item, std::vector<double>(kItemSize, -995));
  };
  const auto more = [](const char* name) {
    return [=](NcMaker& nc, int) { nc.var(name, NC_DOUBLE, {nc.dim("other", 2)}); };
  };
  const auto onTime = [](NcMaker& nc, int) { nc.put(nc.var("z", NC_FLOAT, {0}), {10, 20}); };
  const auto group = [](NcMaker& nc, int) {
    int id = -1;
    nc_def_grp(nc.id(), "forecast", &id);
    nc_def_var(id, "flag", NC_INT, 0, nullptr, &id);
  };
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Case cases[] = {
      {"no-origin", {.timeUnits = "days"}, "time", "count from 1899-12-30"},
      {"unread-origin",
       {.timeUnits = "days since 19900101T00"},
       "time",
       "`19900101T00` is not",
       true},
      {"two-digit-year", {.timeUnits = "days since 1-1-1"}, "time", "read as the year 2001", true},
      {"origin-clock", {.timeUnits = "hours since 2000-01-01 12:30:00"}, "time", "midnight", true},
      {"calendar", {.more = calendar}, "time", "`noleap` is not kept", true},
      {"month-axis", {.timeUnits = "months since 2000-01-01"}, "time", "it counts months", true},
      {"month-axis", {.timeUnits = "months"}, "time", "it counts months"},
      {"season-axis", {.timeUnits = "seasons"}, "time", "it counts seasons"},
      {"season-axis", {.timeUnits = "seasons since 1950-1-1"}, "time", "it counts", true},
      {"unknown-time-unit", {.timeUnits = "years since 2000-01-01"}, "time", "`years`", true},
      {"other-time", {.more = more("time_run")}, "time", "`time_run` is not"},
      {"levels-upward", {.levels = {200, 50, 10}}, "depth", "200 to 10", true},
      {"levels-unsorted", {.levels = {0, 200, 100}}, "depth", "do not rise"},
      {"levels-unknown", {.levels = {0, nan, 100}}, "depth", "no numbers"},
      {"negative-levels", {.levels = {-200, -50, -10}}, "depth", "below 0", true},
      {"negative-levels", {.levels = {-5, 0, 200}}, "depth", "-5 to 200"},
      {"levels-on-time", {.levelName = "pressure", .more = onTime}, "z", "at the first only"},
      {"one-level", {.levels = {5}}, "depth", "a single row"},
      {"sigma-levels", {.levelName = "sigma_t", .levelUnits = "1"}, "sigma_t", "fractions"},
      {"pressure-levels", {.levelName = "level", .levelUnits = "hPa"}, "level", "pressures"},
      {"level-units", {.levelUnits = "km"}, "depth", "`km`", true},
      {"level-units", {.levelUnits = "K"}, "depth", "`K`"},
      {"positive-up", {.more = positive}, "depth", "heights", true},
      {"other-vertical", {.more = more("zeta_w")}, "depth", "`zeta_w` is not"},
      {"longitudes-backward", {.lons = {15, 14, 13, 12}}, "lon", "falls 3 times", true},
      {"longitudes-beyond-180", {.lons = {280, 290, 300}}, "lon", "70 W is 290"},
      {"longitudes-beyond-180", {.lons = {350, 0, 10}}, "lon", "from 350 to 370"},
      {"uneven-spacing", {.lats = {0, 1, 2, 3, 50}}, "lat", "up to 3 cells"},
      {"two-missing-values",
       {.more = twoMarks},
       "q",
       "`missing_value` is 1E+30: only the second",
       true},
      {"nan-fill", {.more = number("_FillValue", nan)}, "q", "NaN", true},
      {"zero-fill", {.more = number("missing_value", 0)}, "q", "0 is drawn", true},
      {"near-fill", {.more = fillAndValue(-999, -995)}, "q", "-989.01 downwards", true},
      {"near-fill", {.more = fillAndValue(99, 98.5)}, "q", "good ones too, like 98.5", true},
      {"near-fill", {.itemType = NC_SHORT, .more = packed}, "q", "505 upwards", true},
      {"near-fill", {.itemType = NC_SHORT, .more = packed}, "q", "like 507.5", true},
      {"attribute-prefix", {.more = number("scale_min", 2)}, "q", "the scale factor"},
      {"attribute-prefix", {.more = twoUnits}, "time", "taken for the units", true},
      {"text-values", {.itemType = NC_CHAR}, "q", "characters"},
      {"unsigned-values", {.itemType = NC_BYTE, .more = unsignedBytes}, "q", "negative"},
      {"valid-range", {.more = range}, "q", "not applied"},
      {"mixed-order", {.more = turned}, "turned", "`lat`", true},
      {"cdf5", {.mode = NC_64BIT_DATA}, "", "64-bit programs"},
      {"groups", {.mode = NC_NETCDF4, .more = group}, "", "`/forecast` (1 variable)"},
  };
  const std::set<std::string> kinds = namesInSchema("warnings", "kind");
  for (const Case& made : cases) {
    EXPECT_TRUE(kinds.contains(made.kind)) << made.kind;
    SCOPED_TRACE(made.kind);
    const Diagnosis diagnosis = of(made.set);
    const std::vector<Warning>& warnings = diagnosis.warnings;
    const auto found = std::ranges::find(warnings, made.kind, &Warning::kind);
    ASSERT_NE(found, warnings.end()) << made.kind;
    EXPECT_NE(found->text.find(made.said), std::string::npos) << made.kind << ": " << found->text;
    const std::string name = found->names.empty() ? "" : found->names.front();
    EXPECT_EQ(name, made.name) << made.kind;
    if (made.mended) expectMended(made.kind);
    expectAdviceToHelp(diagnosis);
  }
}

TEST_F(Warnings, MidnightIsNoClockOfAnOrigin) {
  for (const char* midnight : {" 00:00:00", "T00:00:00Z", "T00:00", " 0:0"}) {
    const std::string units = "hours since 1999-12-21" + std::string(midnight);
    EXPECT_TRUE(of({.timeUnits = units}).warnings.empty()) << units;
  }
  EXPECT_EQ(of({.timeUnits = "hours since 1999-12-21T06:00:00Z"}).warnings.size(), 1U);
}

TEST_F(Warnings, FarAwayFillValuesTakeNothingElse) {
  for (const double fill : {1e20, -1e34, 9.96921e36}) {
    EXPECT_TRUE(of({.more = number("_FillValue", fill)}).warnings.empty()) << fill;
  }
}

TEST_F(Warnings, FillValuesThatTakeNothingElseAreNoneOfThem) {
  EXPECT_TRUE(of({.more = fillAndValue(-999, -980)}).warnings.empty());
  EXPECT_TRUE(of({.more = fillAndValue(-999, NC_FILL_FLOAT)}).warnings.empty());
  EXPECT_TRUE(of({.more = fillAndValue(99, -1e30)}).warnings.empty());
}

// Too large to be looked at as a whole: its beginning, middle and end are.
TEST_F(Warnings, LargeVariablesAreLookedAtInParts) {
  constexpr std::size_t steps = 700, kBetween = 220;
  constexpr std::size_t level = 24;  // of four latitudes and six longitudes
  for (const std::size_t step : {std::size_t{0}, steps / 2, steps - 1, kBetween}) {
    MadeSet set;
    set.times.resize(steps);
    for (std::size_t at = 0; at < steps; ++at) set.times[at] = static_cast<double>(at);
    set.levels.resize(60);
    for (std::size_t at = 0; at < set.levels.size(); ++at) {
      set.levels[at] = static_cast<double>(at + 1);
    }
    set.more = [&](NcMaker& nc, int item) {
      nc.number(item, "_FillValue", NC_FLOAT, {-999});
      std::vector<double> values(steps * set.levels.size() * level, 0);
      values[step * set.levels.size() * level] = -995;
      nc.put(item, values);
    };
    EXPECT_EQ(of(set).warnings.size(), step == kBetween ? 0U : 1U) << step;
  }
}

TEST_F(Warnings, OfTheSameKindAreToldOnce) {
  const auto two = [](NcMaker& nc, int item) {
    const int other = nc.var("r", NC_FLOAT, {0, 1, 2, 3});
    for (const int variable : {item, other}) {
      nc.number(variable, "missing_value", NC_FLOAT, {0});
    }
  };
  const std::vector<Warning> warnings = of({.more = two}).warnings;
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings.front().names, (std::vector<std::string>{"q", "r"}));
}

}  // namespace
}  // namespace diagnosis_test
