#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <vector>

#include "Dispatch.h"
#include "library.h"
#include "process.h"
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
// folder with vec1.nc (the vector set) and plain.txt (no netCDF).
class Scripts : public testing::TestWithParam<Script> {};

TEST_P(Scripts, PrintWhatIsExpected) {
  const support::TempFolder folder;
  support::makeVectorSet(folder.file("vec1.nc"));
  std::ofstream(folder.path() / "plain.txt") << "This is no netCDF file.\n";
  const std::string name = GetParam().name;
  const std::string expected = readFile(dataFile(host::wide("scripts\\" + name + ".expected")));
  ASSERT_NE(expected, "");

  const Outcome outcome = runProgram(
      L"cscript.exe //nologo \"" + dataFile(host::wide("scripts\\" + name)) + L"\" \"" +
      folder.path().wstring() + L"\"");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.status, 0U);
  EXPECT_EQ(outcome.output, expected);
  EXPECT_EQ(outcome.boxes, GetParam().boxes);
}

const SeenBox kMissing{"NetCDF Error", "No such file or directory"};
const SeenBox kUnknown{"NetCDF Error", "NetCDF: Unknown file format"};
const SeenBox kBeyond{"NetCDF Error", "NetCDF: Index exceeds dimension bound"};

INSTANTIATE_TEST_SUITE_P(, Scripts,
                         testing::Values(Script{"members.vbs", {}}, Script{"members.js", {}},
                                         Script{"badFiles.vbs", {kMissing, kUnknown}},
                                         Script{"time.vbs", {kBeyond}}, Script{"errors.vbs", {}},
                                         Script{"errors.js", {}}));

// The scripts that are given to users as a start.
class SampleScripts : public testing::Test {
 protected:
  Outcome run(const std::wstring& script, const std::string& file, const std::wstring& rest) {
    return runProgram(L"cscript.exe //nologo \"" + dataFile(L"samples\\" + script) + L"\" \"" +
                      host::wide(folder_.file(file)) + L"\"" + rest);
  }
  support::TempFolder folder_;
};

TEST_F(SampleScripts, ListAndDraw) {
  support::makeVectorSet(folder_.file("vec1.nc"));
  const Outcome outcome = run(L"section.js", "vec1.nc", L" \"350,0 358,0\" salt");
  EXPECT_EQ(outcome.output, "1 temp\n2 salt\ndrawn\n");
  EXPECT_EQ(outcome.status, 0U);
}

TEST_F(SampleScripts, TellWhyNot) {
  support::makeVectorSet(folder_.file("vec1.nc"));
  // The path of the script lies elsewhere in the world.
  Outcome outcome = run(L"section.vbs", "vec1.nc", L"");
  EXPECT_EQ(outcome.output,
            "1 temp\n2 salt\n[MakeKelvane] Section distance is too short, or input error\n");
  EXPECT_EQ(outcome.status, 1U);
  outcome = run(L"section.js", "vec1.nc", L" \"350,0 358,0\" nosuch");
  EXPECT_EQ(outcome.output, "1 temp\n2 salt\n[SelectVarByName] nc varable not identified\n");
  EXPECT_EQ(outcome.status, 1U);
}

}  // namespace
}  // namespace winetest
