#include <gtest/gtest.h>

#include "DapServer.h"
#include "MadeSet.h"
#include "diagnosis/diagnose.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

// Data sets at an address are diagnosed as the files they are made from.
namespace diagnosis_test {
namespace {

using namespace cli::diagnosis;
using opendap_test::DapServer;

class AtAnAddress : public testing::Test {
 protected:
  AtAnAddress() : server_(folder_.path().string(), folder_.file("log")) {}
  ~AtAnAddress() override { support::resetState(); }

  static Diagnosis of(const std::string& dataSet) {
    support::resetState();
    return examine(dataSet).diagnosis;
  }

  void expectTheSame(const MadeSet& set) {
    set.make(folder_.file("set.nc"));
    const Diagnosis file = of(folder_.file("set.nc")), address = of(server_.url("set.nc"));
    EXPECT_EQ(verdictName(address.verdict), verdictName(file.verdict)) << address.summary;
    EXPECT_EQ(address.summary, file.summary);
    ASSERT_EQ(address.variables.size(), file.variables.size());
    for (std::size_t at = 0; at < file.variables.size(); ++at) {
      EXPECT_EQ(address.variables[at].name, file.variables[at].name);
      EXPECT_EQ(address.variables[at].reason, file.variables[at].reason);
    }
    EXPECT_EQ(address.warnings.size(), file.warnings.size());
    EXPECT_NE(address.command.find(server_.url("set.nc")), std::string::npos) << address.command;
  }

  support::TempFolder folder_;
  DapServer server_;
};

TEST_F(AtAnAddress, TheDiagnosisIsThatOfTheFile) {
  expectTheSame({});
  expectTheSame({.lats = {43, 42, 41, 40}});
  expectTheSame({.timeName = "run"});
  expectTheSame({.levelName = "lev"});
  expectTheSame({.levels = {200, 50, 0}});
}

TEST_F(AtAnAddress, NobodyThereIsSaid) {
  const Diagnosis diagnosis = of("http://127.0.0.1:1/set.nc");
  EXPECT_EQ(verdictName(diagnosis.verdict), "unreadable");
  ASSERT_EQ(diagnosis.checks.size(), 1U);
  EXPECT_EQ(diagnosis.checks.front().rule, "readable");
  EXPECT_FALSE(diagnosis.checks.front().evidence.finding.empty());
  EXPECT_EQ(diagnosis.command, "");
}

}  // namespace
}  // namespace diagnosis_test
