#include <gtest/gtest.h>

#include <limits>
#include <map>

#include "failures.h"
#include "fit/makePlan.h"

// Plans out of descriptions alone: no file, and no value of a variable that is no coordinate.
namespace fit_test {
namespace {

using cli::Attribute;
using cli::Header;
using cli::Variable;
using cli::fit::Plan;
using cli::fit::Request;

class Described : public cli::fit::Input {
 public:
  int dim(const std::string& name, std::size_t length) {
    content.dims.push_back({name, length, false});
    return static_cast<int>(content.dims.size()) - 1;
  }
  void coordinate(const std::string& name, int on, const std::string& units,
                  std::vector<double> numbers) {
    Variable variable;
    variable.name = name;
    variable.type = NC_DOUBLE;
    variable.dims = {on};
    if (!units.empty()) variable.attributes.push_back({"units", NC_CHAR, units, {}});
    values[static_cast<int>(content.vars.size())] = std::move(numbers);
    content.vars.push_back(variable);
  }
  void field(const std::string& name, std::vector<int> dims) {
    Variable variable;
    variable.name = name;
    variable.dims = std::move(dims);
    content.vars.push_back(variable);
  }
  const Header& header() const override { return content; }
  void read(int variable, const std::vector<std::size_t>&, const std::vector<std::size_t>&,
            double* to) const override {
    const auto found = values.find(variable);
    ASSERT_NE(found, values.end()) << content.vars[static_cast<std::size_t>(variable)].name;
    std::copy(found->second.begin(), found->second.end(), to);
  }

  Header content;
  std::map<int, std::vector<double>> values;
};

// As reanalyses come: north first, the ground first, names of their own.
Described analysis() {
  Described input;
  const int t = input.dim("valid_time", 3), z = input.dim("plev", 2), y = input.dim("latitude", 3);
  const int x = input.dim("longitude", 4);
  input.coordinate("longitude", x, "degrees_east", {0, 90, 180, 270});
  input.coordinate("latitude", y, "degrees_north", {60, 50, 40});
  input.coordinate("plev", z, "Pa", {100000, 50000});
  input.coordinate("valid_time", t, "hours since 1990-01-01", {0, 6, 12});
  input.field("ta", {t, z, y, x});
  return input;
}

std::vector<std::string> names(const Plan& plan) {
  std::vector<std::string> found;
  for (const cli::fit::PlanVar& variable : plan.vars) found.push_back(variable.name);
  return found;
}

TEST(FitPlan, SaysWhichIndicesTheCopyHas) {
  const Plan plan = cli::fit::makePlan(analysis(), {});
  EXPECT_EQ(names(plan),
            (std::vector<std::string>{"time", "level", "latitude", "longitude", "ta"}));
  EXPECT_EQ(plan.dims[0].name, "time");
  EXPECT_EQ(plan.dims[1].index, (std::vector<std::size_t>{1, 0}));
  EXPECT_EQ(plan.dims[2].index, (std::vector<std::size_t>{2, 1, 0}));
  EXPECT_EQ(plan.dims[3].index, (std::vector<std::size_t>{0, 1, 2, 3}));
  EXPECT_EQ(*plan.vars[1].values, (std::vector<double>{50000, 100000}));
  EXPECT_TRUE(plan.vars[4].drawn);
  EXPECT_EQ(plan.changes.size(), 4U);
}

TEST(FitPlan, RotatesLongitudesIntoTheBox) {
  Request request;
  request.box = cli::fit::Box{-100, 0, 100, 90};
  request.steps = cli::StepRange{2, {}};
  const Plan plan = cli::fit::makePlan(analysis(), request);
  EXPECT_EQ(plan.dims[3].index, (std::vector<std::size_t>{3, 0, 1}));
  EXPECT_EQ(*plan.vars[3].values, (std::vector<double>{-90, 0, 90}));
  EXPECT_EQ(plan.dims[0].index, (std::vector<std::size_t>{1, 2}));
  EXPECT_EQ(*plan.vars[0].values, (std::vector<double>{6, 12}));
}

TEST(FitPlan, KeepsTheOrderOfTheRulesTold) {
  const Plan plan = cli::fit::makePlan(analysis(), {});
  EXPECT_TRUE(plan.changes[0].starts_with("latitude: turned south to north (")) << plan.changes[0];
  EXPECT_TRUE(plan.changes[1].starts_with("plev: levels turned (")) << plan.changes[1];
  EXPECT_TRUE(plan.changes[2].starts_with("plev: renamed to level (")) << plan.changes[2];
  EXPECT_TRUE(plan.changes[3].starts_with("valid_time: renamed to time (")) << plan.changes[3];
}

struct Broken {
  const char* says;
  void (*breakIt)(Described& input);
};

TEST(FitPlan, RefusesWithTheReason) {
  const std::vector<Broken> all = {
      {"No longitude and latitude were found for ta(valid_time, plev, latitude, longitude)",
       [](Described& input) {
         input.content.vars[0].name = "x";
         input.content.vars[0].attributes[0].text = "m";
       }},
      {"There is no section to draw",
       [](Described& input) {
         input.content.vars[4].dims = {0, 2, 3};
       }},
      {"There is nothing to draw", [](Described& input) { input.content.vars.pop_back(); }},
      {"valid_time has values that are no numbers",
       [](Described& input) { input.values[3][1] = std::numeric_limits<double>::quiet_NaN(); }},
      {"The dimension plev is too long",
       [](Described& input) { input.content.dims[1].length = 1U << 30; }},
      {"ta(valid_time, plev, latitude) lies along latitude: a list of observations",
       [](Described& input) {
         input.content.vars[0].dims = {2};
         input.values[0] = {0, 1, 2};
         input.content.vars[4].dims = {0, 1, 2};
         input.content.globals.push_back({"featureType", NC_CHAR, "profile", {}});
       }},
      {"There are no time steps",
       [](Described& input) {
         input.content.dims[0].length = 0;
         input.values[3].clear();
       }},
  };
  for (const Broken& each : all) {
    Described input = analysis();
    each.breakIt(input);
    try {
      cli::fit::makePlan(input, {});
      ADD_FAILURE() << each.says;
    } catch (const cli::Failure& failure) {
      EXPECT_EQ(std::string(failure.what()).find(each.says), 0U) << failure.what();
    }
  }
}

}  // namespace
}  // namespace fit_test
