#include <netcdf.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "OpendapTest.h"
#include "Subprocess.h"

// Sections of a served file are those of the file itself, bit for bit: columns, cells, labels,
// values, colours, titles and every drawing operation.
namespace opendap_test {
namespace {

struct Scenario {
  const char* title;
  const char* file;
  const char* variable;
  const char* path;
  const char* time;
  const char* size;
  const char* view;
};

void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.title; }

std::string contents(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(name, std::ios::binary).rdbuf();
  return text.str();
}

// The sample data sets and a measured climatology, where they are served and read from.
const std::string& samples() {
  static const std::string folder = [] {
    const std::string made = Place::here().own("samples");
    std::filesystem::create_directory(made);
    const cli_test::Result result = cli_test::run({MAKE_SAMPLE_PROGRAM, made});
    if (result.status != 0) throw std::runtime_error(result.err);
    for (const char* real : {OCEAN_ATLAS, LEVITUS_CLIMATOLOGY}) {
      std::filesystem::create_symlink(
          real, made + "/" + std::filesystem::path(real).filename().string());
    }
    return made;
  }();
  return folder;
}

class SameAsFile : public testing::TestWithParam<Scenario> {
 protected:
  static std::string dump(const std::string& dataSet) {
    const Scenario& s = GetParam();
    const std::string out = Place::here().own("dump");
    std::vector<std::string> command = {SECTION_DUMP_PROGRAM, out,    dataSet, s.variable,
                                        s.path,               s.time, s.size};
    if (*s.view != '\0') command.emplace_back(s.view);
    const cli_test::Result result = cli_test::run(command);
    EXPECT_EQ(result.status, 0) << dataSet;
    EXPECT_EQ(result.err, "") << dataSet;
    return contents(out);
  }
};

TEST_P(SameAsFile, OverTheNetwork) {
  DapServer server(samples(), Place::here().own("samples.log"));
  const std::string local = dump(samples() + "/" + GetParam().file);
  ASSERT_GT(local.size(), 1000U);
  EXPECT_TRUE(dump(server.url(GetParam().file)) == local);
  // Servers in use send their data in pieces, or until the connection ends.
  EXPECT_TRUE(dump(server.url(std::string("chunked/") + GetParam().file)) == local);
  EXPECT_TRUE(dump(server.url(std::string("untold/") + GetParam().file)) == local);
}

const std::array<Scenario, 9> kScenarios = {{
    {"AtlasOblique", "ocean_atlas_subset.nc", "TEMP", "150,-50 250,50", "1", "1000x600", ""},
    {"AtlasColumn", "ocean_atlas_subset.nc", "TEMP", "180,-60 180,60", "7", "640x480", ""},
    {"AtlasRow", "ocean_atlas_subset.nc", "TEMP", "130,2 280,2", "12", "333x777", ""},
    {"AtlasProfiles", "ocean_atlas_subset.nc", "TEMP", "30,-60 120,-20 180,5 350,60", "4",
     "1920x1080", "profiles"},
    {"SampleOblique", "ocean.nc", "temp", "285.25,32 292.75,35.1", "3", "1000x600", ""},
    {"SampleNetCdf4", "ocean4.nc", "salt", "285.25,32 292.75,35.1", "9", "1000x600", "contours"},
    {"SampleRow", "ocean.nc", "salt", "285.25,33 292.75,33", "5", "1000x600", ""},
    {"SampleSingleProfiles", "ocean.nc", "temp", "285.25,32 289,33.5 292.75,35.1", "3",
     "1000x600", "profiles-single"},
    {"AcrossTheDateLine", "pacific.nc", "temp", "150,0 200,0", "1", "1000x600", ""},
}};

INSTANTIATE_TEST_SUITE_P(, SameAsFile, testing::ValuesIn(kScenarios),
                         [](const auto& tested) { return std::string(tested.param.title); });

// The tool's own account of a served file, but for its name.
class TheTool : public testing::Test {
 protected:
  TheTool() : server(samples(), Place::here().own("tool.log")) {}

  static cli_test::Result kelvane(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KELVANE_PROGRAM);
    return cli_test::run(arguments);
  }
  static std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
      text.replace(at, what.size(), by);
    }
    return text;
  }
  // A listing without what a server adds: its own form of data set, and attributes with long names.
  static std::string comparable(const std::string& listing) {
    std::istringstream lines(listing);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
      const auto has = [&](const char* title) { return line.find(title) != std::string::npos; };
      if (!has("The data set is there") && !has("Names of attributes")) text += line + "\n";
    }
    return text;
  }
  void expectSame(const std::string& file, std::vector<std::string> arguments) {
    const std::string name = samples() + "/" + file;
    arguments.insert(arguments.begin() + 1, name);
    const cli_test::Result local = kelvane(arguments);
    arguments[1] = server.url(file);
    const cli_test::Result remote = kelvane(arguments);
    EXPECT_EQ(local.status, 0) << local.err;
    EXPECT_EQ(remote.status, 0) << remote.err;
    EXPECT_EQ(remote.err, local.err);
    EXPECT_EQ(comparable(replaced(remote.out, server.url(file), name)), comparable(local.out));
    EXPECT_GT(local.out.size(), 100U);
  }

  DapServer server;
};

TEST_F(TheTool, TellsTheSameOfAServedFile) {
  for (const char* file : {"ocean.nc", "ocean4.nc", "pacific.nc"}) expectSame(file, {"info"});
}

// The library puts the unlimited dimension first, wherever it stands in the file. Nothing else
// differs.
TEST_F(TheTool, ListsTheUnlimitedDimensionOfAServedFileFirst) {
  const cli_test::Result local = kelvane({"info", OCEAN_ATLAS});
  const cli_test::Result remote = kelvane({"info", server.url("ocean_atlas_subset.nc")});
  const std::string inFile = "XAX_SUBSET 180, YAX_SUBSET 90, ZAXLEVIT19 19, TIME 12 (unlimited)";
  const std::string served = "TIME 12 (unlimited), XAX_SUBSET 180, YAX_SUBSET 90, ZAXLEVIT19 19";
  const std::string remoteNamed =
      replaced(remote.out, server.url("ocean_atlas_subset.nc"), OCEAN_ATLAS);
  EXPECT_EQ(comparable(replaced(remoteNamed, served, inFile)), comparable(local.out));
  EXPECT_NE(remote.out.find(served), std::string::npos);
}

TEST_F(TheTool, TellsTheSameOfAClimatologyWithoutTime) {
  expectSame("levitus_climatology.cdf", {"info"});
}

TEST_F(TheTool, ListsTheSameValues) {
  expectSame("ocean_atlas_subset.nc", {"values", "--path", "150,-50 250,50", "--time", "7"});
}

}  // namespace
}  // namespace opendap_test
