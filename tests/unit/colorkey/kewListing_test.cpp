#include "colorkey/kewListing.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

#include "support/TempFolder.h"

namespace {

using ModColor::KewDivision;
using ModColor::KewVariable;
using ModColor::ListKewFile;

class KewListing : public testing::Test {
 protected:
  std::vector<KewVariable> list(const std::string& document) const {
    const std::string path = folder_.file("a.kew");
    std::ofstream(path, std::ios::binary) << document;
    return ListKewFile(path);
  }
  support::TempFolder folder_;
};

const std::string kDivision = "<division><low>1</low><high>2.5</high><color>255</color></division>";

TEST_F(KewListing, GivesVariablesAndDivisionsInTheOrderOfTheFile) {
  const auto variables =
      list("<section><variable name='b'>" + kDivision +
           "<division><color> 254.5 </color><low>-1e3x</low><high>2,5</high></division></variable>"
           "<!-- <variable name='c'/> --><variable name='a'/></section>");
  ASSERT_EQ(variables.size(), 2U);
  EXPECT_EQ(variables[0].name, "b");
  EXPECT_EQ(variables[0].failure, "");
  EXPECT_FALSE(variables[0].ignored);
  EXPECT_EQ(variables[0].divisions,
            (std::vector<KewDivision>{{1.0F, 2.5F, 255}, {-1000.0F, 2.0F, 254}}));
  EXPECT_EQ(variables[1].name, "a");
  EXPECT_TRUE(variables[1].divisions.empty());
}

TEST_F(KewListing, MarksWhatIsNeverRead) {
  const auto variables = list(
      "<section><variable name='a'/><variable/><group><variable name='a'/></group>"
      "<variable name='A'/><variable name=''/></section>");
  ASSERT_EQ(variables.size(), 5U);
  std::vector<bool> ignored;
  for (const KewVariable& variable : variables) ignored.push_back(variable.ignored);
  EXPECT_EQ(ignored, (std::vector<bool>{false, true, true, false, false}));
}

TEST_F(KewListing, EndsAKeyWhereItsReadingFails) {
  const struct {
    std::string broken, reason;
  } cases[] = {
      {"<division><low>1</low><high>2</high></division>", "not set"},
      {"<division><low>1e39</low><high>2</high><color>3</color></division>", "Overflow"},
      {"<division><low>1</low><high>2</high><color>2147483648</color></division>", "Overflow"},
  };
  for (const auto& [broken, reason] : cases) {
    const auto variables =
        list("<section><variable name='a'>" + kDivision + broken + kDivision +
             "</variable><variable name='b'>" + kDivision + "</variable></section>");
    ASSERT_EQ(variables.size(), 2U);
    EXPECT_EQ(variables[0].divisions, (std::vector<KewDivision>{{1.0F, 2.5F, 255}}));
    EXPECT_NE(variables[0].failure.find(reason), std::string::npos) << variables[0].failure;
    EXPECT_EQ(variables[1].failure, "");
    EXPECT_EQ(variables[1].divisions.size(), 1U);
  }
}

TEST_F(KewListing, ANameWithAQuoteCannotBeAskedFor) {
  const auto variables =
      list("<section><variable name='a\"b'>" + kDivision + "</variable></section>");
  ASSERT_EQ(variables.size(), 1U);
  EXPECT_EQ(variables[0].name, "a\"b");
  EXPECT_NE(variables[0].failure, "");
  EXPECT_TRUE(variables[0].divisions.empty());
}

TEST_F(KewListing, ADocumentOfSomethingElseHasNoKeys) {
  EXPECT_TRUE(list("<html><body/></html>").empty());
}

TEST_F(KewListing, AFileThatIsNoDocumentThrows) {
  for (const char* text : {"", "no key", "<section>", "<section/><section/>"}) {
    EXPECT_THROW(list(text), std::runtime_error) << text;
  }
  EXPECT_THROW(ListKewFile(folder_.file("none.kew")), std::runtime_error);
}

}  // namespace
