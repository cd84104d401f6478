#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "CsvSection.h"

// Climatologies that nobody made for these tests, from the package ferret-datasets.
namespace cli_test {
namespace {

using nlohmann::json;

class RealData : public CliTest {};

TEST_F(RealData, TheAtlasIsRecognised) {
  const Result result = kelvane({"info", "--json", OCEAN_ATLAS});
  EXPECT_EQ(result.status, 0) << result.err;
  const json listed = json::parse(result.out);
  const json longitude = listed["coordinates"]["longitude"];
  EXPECT_EQ(longitude["first"], 20.5);
  EXPECT_EQ(longitude["last"], 378.5);
  EXPECT_EQ(longitude["count"], 180);
  EXPECT_EQ(listed["coordinates"]["latitude"]["first"], -89.5);
  EXPECT_EQ(listed["coordinates"]["latitude"]["last"], 88.5);
  EXPECT_EQ(listed["levels"].size(), 19U);
  EXPECT_EQ(listed["levels"].back()["depth"], 1000.0);
  EXPECT_EQ(listed["time_steps"].size(), 12U);
  ASSERT_EQ(listed["items"].size(), 1U);
  EXPECT_EQ(listed["items"][0]["name"], "TEMP");
}

TEST_F(RealData, ValuesOfTheAtlasAreThoseOfTheFile) {
  Reference reference(OCEAN_ATLAS);
  reference.missing = static_cast<double>(-1e34F);
  for (const char* path : {"150,-50 250,50", "180,-60 180,60", "150,0.5 270,0.5"}) {
    const Result result = kelvane({"values", OCEAN_ATLAS, "--path", path, "--time", "7"});
    EXPECT_EQ(result.status, 0) << result.err;
    const std::vector<Row> rows = parseCsv(result.out);
    ASSERT_GT(rows.size(), 19U * 45U);
    int found = 0;
    for (const Row& row : rows) {
      EXPECT_EQ(row.lon, reference.coordinate("XAX_SUBSET", row.i));
      EXPECT_EQ(row.lat, reference.coordinate("YAX_SUBSET", row.j));
      EXPECT_EQ(row.depth, reference.coordinate("ZAXLEVIT19", row.level));
      EXPECT_EQ(row.value, reference.value("TEMP", 7, row.level, row.j, row.i));
      if (row.value) ++found;
    }
    EXPECT_GT(found, 500) << path;
  }
}

TEST_F(RealData, TheAtlasIsDrawn) {
  const Result result =
      kelvane({"draw", OCEAN_ATLAS, "--path", "150,-50 250,50", "-o", "section.svg"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  const std::string svg = contents("section.svg");
  EXPECT_GT(count(svg, "<path"), 500);  // a block for each value
}

TEST_F(RealData, AClimatologyWithoutTimeOpensButCannotBeRead) {
  const Result info = kelvane({"info", "--json", LEVITUS_CLIMATOLOGY});
  EXPECT_EQ(info.status, 0) << info.err;
  const json listed = json::parse(info.out);
  EXPECT_EQ(listed["coordinates"]["time"], json());
  EXPECT_EQ(listed["time_steps"], json::array());
  EXPECT_EQ(listed["levels"].size(), 20U);
  EXPECT_EQ(listed["items"].size(), 2U);
  const Result draw =
      kelvane({"draw", LEVITUS_CLIMATOLOGY, "--path", "150,-50 250,50", "-o", "a.png"});
  EXPECT_EQ(draw.status, 1);
  EXPECT_EQ(draw.err, "kelvane: [ReadVSData] Time dimension ID not identified\n");
  EXPECT_FALSE(exists("a.png"));
}

}  // namespace
}  // namespace cli_test
