#include "Dispatch.h"
#include "SampleTest.h"

namespace winetest {
namespace {

// The sample in each of the script languages.
class ScriptSamples : public SampleTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ScriptSamples, TellTheStory) {
  const Outcome outcome = cscript(sample(GetParam()), {makeGulfSet()});
  EXPECT_EQ(outcome.output, kGulfStory);
  EXPECT_EQ(outcome.status, 0U);
  EXPECT_TRUE(outcome.boxes.empty());
}

TEST_P(ScriptSamples, TellHowToUseThem) {
  const Outcome outcome = cscript(sample(GetParam()), {});
  EXPECT_EQ(outcome.output,
            "usage: cscript //nologo " + host::narrow(GetParam()) + " FILE\n");
  EXPECT_EQ(outcome.status, 2U);
}

TEST_P(ScriptSamples, TellWhyNot) {
  Outcome outcome = cscript(sample(GetParam()), {makeElsewhereSet()});
  EXPECT_EQ(outcome.output, std::string("1 temp\n2 salt\n") + kTooShort + "\n");
  EXPECT_EQ(outcome.status, 1U);

  const SeenBox box{"NetCDF Error", "No such file or directory"};
  outcome = cscript(sample(GetParam()), {file("missing.nc")});
  EXPECT_EQ(outcome.output, "No such file or directory\n");
  EXPECT_EQ(outcome.status, 1U);
  EXPECT_EQ(outcome.boxes, std::vector<SeenBox>{box});
}

INSTANTIATE_TEST_SUITE_P(, ScriptSamples, testing::Values(L"section.vbs", L"section.js"));

}  // namespace
}  // namespace winetest
