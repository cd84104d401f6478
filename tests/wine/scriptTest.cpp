#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <vector>

#include "Dispatch.h"
#include "childProcess.h"
#include "library.h"
#include "support/NcMaker.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

struct Script {
  const char* name;
  std::vector<SeenBox> boxes;
};

void PrintTo(const Script& script, std::ostream* out) { *out << script.name; }

// Scripts use the control as their users do, and print what they get. Each gets the name of a
// folder with tiny.nc (the tiny set) and plain.txt (no netCDF).
class Scripts : public testing::TestWithParam<Script> {};

TEST_P(Scripts, PrintWhatIsExpected) {
  const support::TempFolder folder;
  support::makeTinySet(folder.file("tiny.nc"));
  std::ofstream(folder.path() / "plain.txt") << "This is no netCDF file.\n";
  const std::string name = GetParam().name;
  const std::string expected = readFile(dataFile(host::wide("scripts\\" + name + ".expected")));
  ASSERT_NE(expected, "");

  const Outcome outcome =
      runProgram(L"cscript.exe //nologo \"" + dataFile(host::wide("scripts\\" + name)) + L"\" \"" +
                 folder.path().wstring() + L"\"");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.status, 0U);
  EXPECT_EQ(outcome.output, expected);
  EXPECT_EQ(outcome.boxes, GetParam().boxes);
}

const SeenBox kMissing{"NetCDF Error", "No such file or directory"};
const SeenBox kUnknown{"NetCDF Error", "NetCDF: Unknown file format"};
const SeenBox kBeyond{"NetCDF Error", "NetCDF: Index exceeds dimension bound"};
const SeenBox kOptions{"Section View Options", ""};
const SeenBox kNoKey{"InitColorKey", "Subscript out of range"};

INSTANTIATE_TEST_SUITE_P(, Scripts,
                         testing::Values(Script{"members.vbs", {kOptions}},
                                         Script{"members.js", {kOptions}},
                                         Script{"badFiles.vbs", {kMissing, kUnknown}},
                                         Script{"time.vbs", {kBeyond}},
                                         Script{"key.vbs", {kNoKey, kNoKey}},
                                         Script{"errors.vbs", {}}, Script{"errors.js", {}}));

// The scripts that are given to users as a start.
class SampleScripts : public testing::Test {
 protected:
  Outcome run(const std::wstring& script, const std::wstring& arguments) {
    return runProgram(L"cscript.exe //nologo \"" + dataFile(L"samples\\" + script) + L"\"" +
                      arguments);
  }
  Outcome run(const std::wstring& script, const std::string& file, const std::wstring& rest) {
    return run(script, L" \"" + host::wide(folder_.file(file)) + L"\"" + rest);
  }
  // A grid of whole degrees around the path that the scripts draw unless told otherwise.
  void makeGulfSet(const std::string& name) {
    support::NcMaker nc(folder_.file(name));
    const int time = nc.dim("time", NC_UNLIMITED), depth = nc.dim("depth", 2);
    const int lat = nc.dim("lat", 8), lon = nc.dim("lon", 12);
    const int timeVar = nc.var("time", NC_DOUBLE, {time});
    const int depthVar = nc.var("depth", NC_FLOAT, {depth});
    const int latVar = nc.var("lat", NC_FLOAT, {lat}), lonVar = nc.var("lon", NC_FLOAT, {lon});
    const int temp = nc.var("temp", NC_FLOAT, {time, depth, lat, lon});
    nc.text(timeVar, "units", "hours since 1990-01-01 00:00:00");
    nc.text(depthVar, "units", "m");
    nc.text(latVar, "units", "degrees_north");
    nc.text(lonVar, "units", "degrees_east");
    nc.text(temp, "units", "degC");
    nc.putSlab(timeVar, {0}, {1}, {0});
    nc.put(depthVar, {0, 100});
    nc.put(latVar, {30, 31, 32, 33, 34, 35, 36, 37});
    nc.put(lonVar, {283, 284, 285, 286, 287, 288, 289, 290, 291, 292, 293, 294});
    std::vector<double> values;
    for (int cell = 0; cell < 2 * 8 * 12; ++cell) values.push_back(20 - 0.0625 * cell);
    nc.putSlab(temp, {0, 0, 0, 0}, {1, 2, 8, 12}, values);
  }
  support::TempFolder folder_;
};

TEST_F(SampleScripts, ListAndDraw) {
  support::makeTinySet(folder_.file("tiny.nc"));
  const Outcome outcome = run(L"section.js", "tiny.nc", L" \"350,0 358,0\" salt");
  EXPECT_EQ(outcome.output, "1 temp\n2 salt\ndrawn\n");
  EXPECT_EQ(outcome.status, 0U);
  makeGulfSet("gulf.nc");
  for (const wchar_t* script : {L"section.vbs", L"section.js"}) {
    const Outcome whole = run(script, "gulf.nc", L"");
    EXPECT_EQ(whole.output, "1 temp\ndrawn\n");
    EXPECT_EQ(whole.status, 0U);
    EXPECT_TRUE(whole.boxes.empty());
  }
}

TEST_F(SampleScripts, TellHowToUseThem) {
  const Outcome basic = run(L"section.vbs", L"");
  EXPECT_EQ(basic.output, "usage: cscript //nologo section.vbs FILE\n");
  EXPECT_EQ(basic.status, 2U);
  const Outcome script = run(L"section.js", L"");
  EXPECT_EQ(script.output,
            "usage: cscript //nologo section.js FILE [\"lon,lat lon,lat ...\" [VARIABLE]]\n");
  EXPECT_EQ(script.status, 2U);
}

TEST_F(SampleScripts, TellWhyNot) {
  support::makeTinySet(folder_.file("tiny.nc"));
  // The path of the script lies elsewhere in the world.
  Outcome outcome = run(L"section.vbs", "tiny.nc", L"");
  EXPECT_EQ(outcome.output,
            "1 temp\n2 salt\n[MakeKelvane] Section distance is too short, or input error\n");
  EXPECT_EQ(outcome.status, 1U);
  outcome = run(L"section.js", "tiny.nc", L" \"350,0 358,0\" nosuch");
  EXPECT_EQ(outcome.output, "1 temp\n2 salt\n[SelectVarByName] nc varable not identified\n");
  EXPECT_EQ(outcome.status, 1U);
}

}  // namespace
}  // namespace winetest
