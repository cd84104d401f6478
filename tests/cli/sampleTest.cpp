#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "CsvSection.h"

namespace cli_test {
namespace {

using nlohmann::json;

constexpr const char* kSamplePath = "285.25,32 292.75,35.1";

class Sample : public CliTest {
 protected:
  void make() const {
    const Result made = run({MAKE_SAMPLE_PROGRAM, file("out")});
    ASSERT_EQ(made.status, 0) << made.err;
    ASSERT_EQ(made.err, "");
  }
  std::string values(const std::string& name, const std::string& variable) const {
    const Result result =
        kelvane({"values", name, "--var", variable, "--path", kSamplePath, "--time", "5"});
    EXPECT_EQ(result.status, 0) << result.err;
    return result.out;
  }
};

TEST_F(Sample, IsOneYearOfAnOceanInBothFormats) {
  make();
  for (const char* name : {"out/ocean.nc", "out/ocean4.nc"}) {
    const Result result = kelvane({"info", "--json", name});
    EXPECT_EQ(result.status, 0) << result.err;
    const json listed = json::parse(result.out);
    EXPECT_EQ(listed["coordinates"]["longitude"]["count"], 121);
    EXPECT_EQ(listed["coordinates"]["latitude"]["count"], 81);
    EXPECT_EQ(listed["levels"].size(), 32U);
    EXPECT_EQ(listed["time_steps"].size(), 12U);
    EXPECT_EQ(listed["time_steps"][0]["date"], "2020-01-16 12:00:00");
    EXPECT_EQ(listed["time_steps"][11]["date"], "2020-12-16 12:00:00");
    ASSERT_EQ(listed["items"].size(), 2U);
    EXPECT_EQ(listed["items"][0]["name"], "temp");
    EXPECT_EQ(listed["items"][1]["name"], "salt");
    EXPECT_EQ(listed["notes"], json::array());
  }
  EXPECT_EQ(contents("out/ocean.nc").substr(0, 4), "CDF\x01");
  EXPECT_EQ(contents("out/ocean4.nc").substr(1, 3), "HDF");
}

TEST_F(Sample, HoldsTheSameNumbersInBothFormats) {
  make();
  for (const char* variable : {"temp", "salt"}) {
    const std::string classic = values("out/ocean.nc", variable);
    EXPECT_EQ(classic, values("out/ocean4.nc", variable));
    Reference reference(file("out/ocean.nc"));
    reference.missing = -32768;
    reference.scale = 0.001;
    reference.offset = std::string(variable) == "temp" ? 15 : 30;
    for (const Row& row : parseCsv(classic)) {
      EXPECT_EQ(row.value, reference.value(variable, 5, row.level, row.j, row.i));
    }
  }
}

TEST_F(Sample, HasAShoreASlopeAndAThermocline) {
  make();
  const std::vector<Row> rows = parseCsv(values("out/ocean.nc", "temp"));
  ASSERT_EQ(rows.size() % 32, 0U);
  ASSERT_GT(rows.size(), 32U * 60U);
  EXPECT_FALSE(rows.front().value.has_value());  // the first column is land
  int32_t reachingDown = 0, endingAbove = 0;
  for (std::size_t at = 32; at < rows.size(); at += 32) {
    ASSERT_TRUE(rows[at].value.has_value());  // then there is water at the surface
    if (rows[at + 31].value) {
      ++reachingDown;
      EXPECT_GT(*rows[at].value - *rows[at + 31].value, 12.0F);
    } else {
      ++endingAbove;
    }
    for (std::size_t k = 1; k < 32 && rows[at + k].value; ++k) {
      EXPECT_TRUE(rows[at + k - 1].value.has_value());
      EXPECT_LE(*rows[at + k].value, *rows[at + k - 1].value);  // colder with depth
    }
  }
  EXPECT_GT(reachingDown, 30);
  EXPECT_GT(endingAbove, 15);
}

TEST_F(Sample, HasAnOceanAcrossTheDateLine) {
  make();
  const Result result = kelvane({"info", "--json", "out/pacific.nc"});
  EXPECT_EQ(result.status, 0) << result.err;
  const json listed = json::parse(result.out);
  EXPECT_EQ(listed["coordinates"]["longitude"]["first"], 120.0);
  EXPECT_EQ(listed["coordinates"]["longitude"]["last"], 300.0);
  EXPECT_EQ(listed["coordinates"]["latitude"]["first"], -60.0);
  EXPECT_EQ(listed["time_steps"].size(), 12U);
  EXPECT_EQ(listed["items"].size(), 2U);
  EXPECT_EQ(contents("out/pacific.nc").substr(0, 4), "CDF\x01");
  EXPECT_LT(std::filesystem::file_size(file("out/pacific.nc")), 10000000U);

  // Along the equator the surface is warmer in the west, the water below colder in the east.
  const Result equator = kelvane(
      {"values", "out/pacific.nc", "--var", "temp", "--path", "130,0 278,0", "--time", "1"});
  EXPECT_EQ(equator.status, 0) << equator.err;
  const std::vector<Row> rows = parseCsv(equator.out);
  std::optional<float> west, east, westDeep, eastDeep;
  for (const Row& row : rows) {
    if (row.lon == 150.0F && row.depth == 0.0F) west = row.value;
    if (row.lon == 270.0F && row.depth == 0.0F) east = row.value;
    if (row.lon == 150.0F && row.depth == 120.0F) westDeep = row.value;
    if (row.lon == 270.0F && row.depth == 120.0F) eastDeep = row.value;
  }
  ASSERT_TRUE(west && east && westDeep && eastDeep);
  EXPECT_GT(*west, *east + 3.0F);
  EXPECT_GT(*westDeep, *eastDeep + 8.0F);
}

TEST_F(Sample, WrongUseAndUnwritableFoldersAreReported) {
  EXPECT_EQ(run({MAKE_SAMPLE_PROGRAM}).status, 2);
  EXPECT_EQ(run({MAKE_SAMPLE_PROGRAM, "a", "b"}).status, 2);
  Surroundings here;
  here.folder = folder.path().string();
  for (const char* option : {"--", "-h", "--version", "-out"}) {
    const Result refused = run({MAKE_SAMPLE_PROGRAM, option}, here);
    EXPECT_EQ(refused.status, 2) << option;
    EXPECT_EQ(refused.err, "usage: make_sample OUTDIR\n");
  }
  const Result help = run({MAKE_SAMPLE_PROGRAM, "--help"}, here);
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.out, "usage: make_sample OUTDIR\n");
  EXPECT_EQ(help.err, "");
  const Result result = run({MAKE_SAMPLE_PROGRAM, file("small.nc")});  // a file, not a folder
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "small.nc")) << result.err;
  EXPECT_EQ(listing(), std::vector<std::string>{"small.nc"});
}

}  // namespace
}  // namespace cli_test
