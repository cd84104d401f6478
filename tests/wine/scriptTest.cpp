#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <vector>

#include "Dispatch.h"
#include "childProcess.h"
#include "library.h"
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

}  // namespace
}  // namespace winetest
