#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>

#include "Dispatch.h"
#include "GuidePage.h"
#include "library.h"
#include "support/TempFolder.h"

namespace winetest {
namespace {

struct Language {
  std::string page, name, comment, extension;
};

void PrintTo(const Language& language, std::ostream* out) {
  *out << language.page << " in " << language.name;
}

// The examples run as a reader would run them: beside the sample data set.
class GuideFolder : public testing::Test {
 protected:
  void SetUp() override {
    previous_ = std::filesystem::current_path();
    std::filesystem::copy_file(dataFile(L"guide\\ocean.nc"), folder_.path() / "ocean.nc");
    std::filesystem::current_path(folder_.path());
  }
  void TearDown() override { std::filesystem::current_path(previous_); }

  static GuidePage read(const Language& language) {
    const std::string text = readFile(dataFile(host::wide("guide\\" + language.page)));
    return readGuidePage(text, language.name, language.comment);
  }

  support::TempFolder folder_;
  std::filesystem::path previous_;
};

class GuideScripts : public GuideFolder, public testing::WithParamInterface<Language> {};

TEST_P(GuideScripts, DoWhatTheySay) {
  const Language& language = GetParam();
  const GuidePage page = read(language);
  ASSERT_NE(page.output, "");
  const std::filesystem::path script = folder_.path() / ("example." + language.extension);
  std::ofstream(script, std::ios::binary) << page.program;
  const Outcome outcome = runProgram(L"cscript.exe //nologo \"" + script.wstring() + L"\"");
  EXPECT_TRUE(outcome.ended);
  EXPECT_EQ(outcome.output, page.output);
  EXPECT_EQ(outcome.boxes, page.boxes);
  EXPECT_EQ(outcome.status, 0U);
}

INSTANTIATE_TEST_SUITE_P(, GuideScripts,
                         testing::Values(Language{"members.md", "vbs", "'", "vbs"},
                                         Language{"errors.md", "vbs", "'", "vbs"},
                                         Language{"install.md", "vbs", "'", "vbs"},
                                         Language{"kew.md", "vbs", "'", "vbs"},
                                         Language{"scripting.md", "vbs", "'", "vbs"},
                                         Language{"scripting.md", "js", "//", "js"}));

// Compiled from its page when the tests are built.
TEST_F(GuideFolder, HasAProgramThatSavesThePicture) {
  const GuidePage page = read({"cpp.md", "cpp", "//", ""});
  const Outcome outcome = runProgram(L"\"" + dataFile(L"guide_example.exe") + L"\"");
  EXPECT_EQ(outcome.output, page.output);
  EXPECT_EQ(outcome.status, 0U);
  const HENHMETAFILE picture = GetEnhMetaFileW(L"section.emf");
  ASSERT_NE(picture, nullptr);
  EXPECT_GT(GetEnhMetaFileBits(picture, 0, nullptr), 10'000U);
  DeleteEnhMetaFile(picture);
}

}  // namespace
}  // namespace winetest
