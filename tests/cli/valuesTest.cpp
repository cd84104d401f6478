#include <cmath>

#include "CliTest.h"
#include "CsvSection.h"

namespace cli_test {
namespace {

class Values : public CliTest {
 protected:
  std::string values(std::vector<std::string> more) const {
    more.insert(more.begin(), {"values", "small.nc"});
    const Result result = kelvane(more);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
  }
};

TEST_F(Values, ARowSectionLineByLine) {
  // Latitude row 2; longitudes 350 to 354; level 3 has values up to column 4 of the grid.
  EXPECT_EQ(values({"--path", "350,-0.4 356,-0.4"}),
            "column,i,j,lon,lat,km,level,depth,value\n"
            "1,1,2,350,-0.5,0,1,0,16.02\n"
            "1,1,2,350,-0.5,0,2,50,12.52\n"
            "1,1,2,350,-0.5,0,3,200,9.02\n"
            "2,2,2,352,-0.5,222.21988,1,0,16.39\n"
            "2,2,2,352,-0.5,222.21988,2,50,12.89\n"
            "2,2,2,352,-0.5,222.21988,3,200,9.39\n"
            "3,3,2,354,-0.5,444.43976,1,0,16.76\n"
            "3,3,2,354,-0.5,444.43976,2,50,13.26\n"
            "3,3,2,354,-0.5,444.43976,3,200,9.76\n");
}

TEST_F(Values, MissingValuesAreEmpty) {
  const std::vector<Row> rows = parseCsv(values({"--path", "356,-0.4 361,-0.4"}));
  ASSERT_EQ(rows.size(), 9U);
  for (const Row& row : rows) EXPECT_EQ(row.value.has_value(), row.level < 3 || row.i < 5);
}

TEST_F(Values, EveryNumberIsWhatNetcdfHoldsAtThatPlace) {
  Reference reference(file("small.nc"));
  reference.missing = -32768;
  reference.scale = 0.01;
  reference.offset = 10;
  for (int32_t step = 1; step <= 2; ++step) {
    const std::vector<Row> rows =
        parseCsv(values({"--path", kSmallPath, "--time", std::to_string(step)}));
    ASSERT_GE(rows.size(), 12U);
    for (const Row& row : rows) {
      const float lon = reference.coordinate("lon", row.i);
      EXPECT_EQ(row.lon, row.i == 6 ? lon + 360.0F : lon);  // past the meridian of 0
      EXPECT_EQ(row.lat, reference.coordinate("lat", row.j));
      EXPECT_EQ(row.depth, reference.coordinate("depth", row.level));
      EXPECT_EQ(row.value, reference.value("temp", step, row.level, row.j, row.i));
    }
  }
}

TEST_F(Values, OfTheVariableAskedFor) {
  Reference reference(file("small.nc"));
  reference.missing = static_cast<double>(1e20F);
  const std::vector<Row> rows = parseCsv(values({"--path", kSmallPath, "--var", "Salt"}));
  ASSERT_FALSE(rows.empty());
  for (const Row& row : rows) {
    EXPECT_EQ(row.value, reference.value("salt", 1, row.level, row.j, row.i));
  }
}

TEST_F(Values, KilometresAddUpAlongTheColumns) {
  const std::vector<Row> rows = parseCsv(values({"--path", kSmallPath}));
  const double radian = 3.1415926 / 180, radius = 6366191.357;
  double km = 0;
  ASSERT_FALSE(rows.empty());
  for (std::size_t at = 0; at < rows.size(); ++at) {
    if (rows[at].level == 1 && at > 0) {
      const Row &from = rows[at - 1], &to = rows[at];
      EXPECT_EQ(to.column, from.column + 1);
      // Cell centres lie half a step from the grid points: 0.25 degrees north of them here.
      const double middle = (from.lat + to.lat) / 2 + 0.25F;
      const double east = (to.i - from.i) * 2.0 * std::cos(middle * radian) * radius * radian;
      const double north = (to.j - from.j) * 0.5 * radius * radian;
      km += std::sqrt(east * east + north * north) / 1000;
    }
    EXPECT_NEAR(static_cast<double>(rows[at].km), km, km * 1e-6);
  }
  EXPECT_GT(rows.back().column, 3);
}

TEST_F(Values, FailuresListNothing) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"values", "none.nc", "--path", kSmallPath}, "No such file or directory"},
      {{"values", "small.nc", "--path", kSmallPath, "--var", ""},
       "[SelectVarByName] nc varable not identified"},
      {{"values", "small.nc", "--path", "1e30,1e30 2e30,2e30"},
       "[Set_cell_Section] Error: Overflow"},
      {{"values", "small.nc", "--path", kSmallPath, "--time", "3"}, "nvar, tcount= "},
  };
  for (const auto& [arguments, reason] : cases) {
    const Result result = kelvane(arguments);
    EXPECT_EQ(result.status, 1) << reason;
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(contains(result.err, reason)) << result.err;
  }
}

TEST_F(Values, AFullDiskIsNoticed) {
  Surroundings full;
  full.stdoutFile = "/dev/full";
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"values", "small.nc", "--path", kSmallPath},
        {"info", "small.nc"},
        {"--help"}}) {
    const Result result = kelvane(command, full);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(contains(result.err, "Standard output cannot be written: No space left"))
        << result.err;
  }
}

TEST_F(Values, AClosedStandardOutputIsNoticed) {
  Surroundings closed;
  closed.stdoutClosed = true;
  const Result result = kelvane({"values", "small.nc", "--path", kSmallPath}, closed);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "Standard output cannot be written")) << result.err;
}

TEST_F(Values, AReaderThatHasSeenEnoughEndsItQuietly) {
  Surroundings gone;
  gone.stdoutReaderGone = true;
  const Result result = kelvane({"values", "small.nc", "--path", kSmallPath}, gone);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
}

}  // namespace
}  // namespace cli_test
