#include <gtest/gtest.h>

#include <filesystem>

#include "MadeSet.h"
#include "diagnosis/diagnose.h"
#include "diagnosis/remedy.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"
#include "typed.h"

// The command that is given is one to be typed as it stands.
namespace diagnosis_test {
namespace {

using namespace cli::diagnosis;

class Remedy : public testing::Test {
 protected:
  ~Remedy() override { support::resetState(); }

  Diagnosis of(const std::string& name) {
    support::resetState();
    return examine(folder.file(name)).diagnosis;
  }

  cli_test::Result typed(const std::string& command) {
    return diagnosis_test::typed(command, folder.path().string());
  }

  // The fitted copy that a diagnosis proposes is made, and can be drawn as its diagnosis says.
  void expectCured(const std::string& name, const std::string& copy, const std::string& options) {
    const Diagnosis diagnosis = of(name);
    EXPECT_EQ(diagnosis.command,
              "kelvane fit " + shellWord(folder.file(name)) + " " + shellWord(copy) + options);
    const cli_test::Result made = typed(diagnosis.command);
    ASSERT_EQ(made.status, 0) << made.err;
    const Diagnosis again = of(copy);
    ASSERT_TRUE(again.command.starts_with("kelvane draw ")) << again.summary << again.command;
    const cli_test::Result drawn = typed(again.command);
    EXPECT_EQ(drawn.status, 0) << drawn.err;
    EXPECT_TRUE(std::filesystem::exists(folder.file("section.png")));
  }

  support::TempFolder folder;
};

TEST_F(Remedy, OfWhatCanBeDrawnIsADrawing) {
  MadeSet{.lons = {10, 11}, .lats = {40, 41}}.make(folder.file("small.nc"));
  const Diagnosis diagnosis = of("small.nc");
  EXPECT_TRUE(diagnosis.command.starts_with("kelvane draw ")) << diagnosis.command;
  const cli_test::Result drawn = typed(diagnosis.command);
  EXPECT_EQ(drawn.status, 0) << drawn.err;
}

TEST_F(Remedy, NamesAreQuotedForAShell) {
  const std::string name = "it's $HOME; a `b`.nc";
  MadeSet{.lats = {43, 42, 41, 40}}.make(folder.file(name));
  expectCured(name, "it's $HOME; a `b`-fit.nc", "");
  MadeSet{.lats = {43, 42, 41, 40}}.make(folder.file("--vars.nc"));
  expectCured("--vars.nc", "./--vars-fit.nc", "");
  EXPECT_EQ(fileWord("-a b.nc"), "'./-a b.nc'");
  EXPECT_EQ(shellWord("plain_1.nc"), "plain_1.nc");
  EXPECT_EQ(shellWord(""), "''");
}

TEST_F(Remedy, TooManyDimensionsAreSelectedFrom) {
  MadeSet{.order = "wwtzyx"}.make(folder.file("set.nc"));
  expectCured("set.nc", "set-fit.nc", " --select w0=1");
}

TEST_F(Remedy, UnevenGridsAreMadeEven) {
  MadeSet{.lats = {0, 1, 2, 3, 48}}.make(folder.file("set.nc"));
  expectCured("set.nc", "set-fit.nc", " --grid 1,12");
}

TEST_F(Remedy, OfWhatLiesInAGroupTakesTheGroup) {
  MadeSet set = {.mode = NC_NETCDF4, .order = ""};
  set.more = [](support::NcMaker& nc, int) {
    const char* const names[] = {"empty", "stations", "fore cast"};
    int group = -1, variable = -1;
    for (const char* name : names) ASSERT_EQ(nc_def_grp(nc.id(), name, &group), NC_NOERR);
    const int dims[] = {0, 1, 2, 3};
    ASSERT_EQ(nc_def_var(group, "q", NC_FLOAT, 4, dims, &variable), NC_NOERR);
    ASSERT_EQ(nc_inq_ncid(nc.id(), "stations", &group), NC_NOERR);
    ASSERT_EQ(nc_def_var(group, "height", NC_FLOAT, 1, dims, &variable), NC_NOERR);
  };
  set.make(folder.file("set.nc"));
  expectCured("set.nc", "set-fit.nc", " --group '/fore cast'");
}

TEST_F(Remedy, ThereIsNoneOfWhatHasNoLevels) {
  MadeSet{.levelName = "other", .order = "tyx"}.make(folder.file("set.nc"));
  const Diagnosis diagnosis = of("set.nc");
  EXPECT_EQ(diagnosis.command, "");
  EXPECT_TRUE(diagnosis.advice.starts_with("No command helps: There is no section to draw"))
      << diagnosis.advice;
}

}  // namespace
}  // namespace diagnosis_test
