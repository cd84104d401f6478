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

}  // namespace
}  // namespace winetest
