#include <filesystem>
#include <limits>

#include "colorkey/colorKey.h"
#include "colorkey/kewDocument.h"
#include "colorkey/kewFile.h"
#include "section/drawItems.h"
#include "unit/colorkey/KewTest.h"
#include "util/lastError.h"

namespace {

using ModColor::ColorKey;
using ModColor::GetKewCol;
using ModColor::KewDivision;
using Divisions = std::vector<KewDivision>;

class KewReading : public KewTest {
 protected:
  // The number of divisions of temp in a section with this content.
  int32_t read(const std::string& content) const {
    return GetKewCol(write("<?xml version=\"1.0\"?><section>" + content + "</section>"));
  }
  int32_t readDivision(const std::string& content) const {
    return read("<variable name='temp'><division>" + content + "</division></variable>");
  }
  static std::string failure(const std::string& numberAndText) {
    return "ModColor GetKewCol: " + numberAndText;
  }
};

const std::string kNotSet = "91, KelvaneCtl, Object variable or With block variable not set";
const std::string kOverflow = "6, KelvaneCtl, Overflow";
const std::string kSubscript = "9, KelvaneCtl, Subscript out of range";
const std::string kInvalid = "5, KelvaneCtl, Invalid procedure call or argument";

TEST_F(KewReading, TakesTheDivisionsInTheOrderOfTheFile) {
  EXPECT_EQ(read("<variable name='temp'>" + division("12.5", "1E+20", "16711680") +
                 division("0", "12.5", "255") + "</variable>"),
            2);
  EXPECT_EQ(lists(), (Divisions{{12.5F, 1e20F, 16711680}, {0, 12.5F, 255}}));
  EXPECT_EQ(ColorKey.nDivision, 0) << "the count is the caller's";
  EXPECT_EQ(ModColor::bUseKey, 0);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(KewReading, TakesTheNumberAtTheStartOfABoundsText) {
  struct Row {
    const char* text;
    float number;
  };
  const Row rows[] = {{" 1E+20", 1e20F},
                      {"abc", 0},
                      {"", 0},
                      {"12,5", 12},
                      {"-3.25m", -3.25F},
                      {"+.5", 0.5F},
                      {"1e", 1},
                      {"1d2", 100},
                      {"1 2", 1},
                      {"\n\t 7 \n", 7},
                      {"<!-- x -->4<x>2</x>", 42},
                      {"<![CDATA[ 5]]>.25", 5.25F},
                      {"&#x31;&#50;", 12},
                      {"3.4028235e38", std::numeric_limits<float>::max()},
                      {"1e-60", 0}};
  for (const Row& row : rows) {
    EXPECT_EQ(read("<variable name='temp'>" + division(row.text, "9", "1") + "</variable>"), 1);
    EXPECT_EQ(ColorKey.low(1), row.number) << row.text;
    EXPECT_EQ(read("<variable name='temp'>" + division("-9", row.text, "1") + "</variable>"), 1);
    EXPECT_EQ(ColorKey.high(1), row.number) << row.text;
  }
}

TEST_F(KewReading, RoundsColoursHalvesToEven) {
  struct Row {
    const char* text;
    int32_t colour;
  };
  const Row rows[] = {{"255.5", 256},
                      {"254.5", 254},
                      {"-0.5", 0},
                      {"1e3", 1000},
                      {"-1", -1},
                      {"red", 0},
                      {"2147483647.4", 2147483647},
                      {"-2147483648.5", std::numeric_limits<int32_t>::min()}};
  for (const Row& row : rows) {
    EXPECT_EQ(read("<variable name='temp'>" + division("1", "2", row.text) + "</variable>"), 1);
    EXPECT_EQ(ColorKey.color(1), row.colour) << row.text;
  }
}

TEST_F(KewReading, FindsTheFirstVariableOfExactlyTheNameAnywhere) {
  const std::string other = "<variable name='%'>" + division("3", "4", "5") + "</variable>";
  const auto named = [&](const std::string& name) {
    return std::string(other).replace(other.find('%'), 1, name);
  };
  const std::string wanted = "<variable name='temp'>" + division("1", "2", "255") + "</variable>";
  const Divisions expected{{1, 2, 255}};
  const std::string contents[] = {
      wanted + named("temp"),
      named("salt") + named("Temp") + named("temp ") + named("tem") + wanted,
      "<group><a/><group>" + wanted + "</group></group>" + named("temp"),
      "<variable name='outer'>" + wanted + "</variable>" + named("temp"),
      "<!--" + named("temp") + "--><![CDATA[" + named("temp") + "]]>" + wanted,
      "<Variable name='temp'/><variables name='temp'/><variable Name='temp'/><variable/>" + wanted,
      "<variable x='1' name='&#116;e&#x6D;p'>" + division("1", "2", "255") + "</variable>"};
  for (const std::string& content : contents) {
    EXPECT_EQ(read(content), 1) << content;
    EXPECT_EQ(lists(), expected) << content;
  }
  EXPECT_EQ(GetKewCol(write(wanted)), 1) << "the document element itself";
  EXPECT_EQ(GetKewCol(write("<x>" + wanted + "</x>")), 1) << "no section is needed";
}

TEST_F(KewReading, TakesDivisionsAndNumbersFromAnyDepthInDocumentOrder) {
  EXPECT_EQ(read("<variable name='temp'><g><division><color>7</color><x><high>2</high></x>"
                 "<division><low>1</low><high>5</high><color>8</color></division></division></g>"
                 "<division><low>3</low><low>4</low><high>6</high><color>9</color></division>"
                 "</variable>"),
            3);
  EXPECT_EQ(lists(), (Divisions{{1, 2, 7}, {1, 5, 8}, {3, 6, 9}}));
}

TEST_F(KewReading, AVariableWithoutDivisionsGivesNoneAndKeepsTheLists) {
  setKey({{1, 2, 3}});
  for (const char* content : {"<variable name='temp'/>", "<variable name='temp'>text</variable>"}) {
    EXPECT_EQ(read(content), 0);
    EXPECT_EQ(lists(), (Divisions{{1, 2, 3}}));
    EXPECT_EQ(ColorKey.nDivision, 1);
  }
}

TEST_F(KewReading, WithoutAKeyInTheFileNothingChangesAndNothingIsSaid) {
  setKey({{1, 2, 3}});
  util::LastError = "kept";
  std::filesystem::create_directory(folder.path() / "folder.kew");
  const std::string names[] = {write("<section/>"),
                               write("<section><variable name='salt'/></section>", "salt.kew"),
                               write("", "empty.kew"),
                               write("no document", "text.kew"),
                               write("<section>", "cut.kew"),
                               folder.file("missing.kew"),
                               folder.file("folder.kew"),
                               ""};
  for (const std::string& name : names) {
    EXPECT_EQ(GetKewCol(name), -1) << name;
    EXPECT_EQ(util::LastError, "kept") << name;
    EXPECT_EQ(lists(), (Divisions{{1, 2, 3}})) << name;
    EXPECT_EQ(ColorKey.nDivision, 1) << name;
  }
}

TEST_F(KewReading, KeepsTheDivisionsBeforeOneThatFailsAndWhatItHasOfThat) {
  struct Row {
    std::string division, failure;
    ModColor::KewDivision begun;
  };
  const Row rows[] = {{"<division><low>1</low><high>2</high></division>", kNotSet, {1, 2, 0}},
                      {"<division><low>1</low><color>2</color></division>", kNotSet, {1, 0, 0}},
                      {"<division><high>1</high><color>2</color></division>", kNotSet, {}},
                      {"<division/>", kNotSet, {}},
                      {division("1e39", "2", "3"), kOverflow, {}},
                      {division("1", "-1e400", "3"), kOverflow, {1, 0, 0}},
                      {division("1", "2", "2147483647.5"), kOverflow, {1, 2, 0}},
                      {division("1", "2", "-2147483649"), kOverflow, {1, 2, 0}},
                      {division("1", "2", "1e999"), kOverflow, {1, 2, 0}}};
  for (const Row& row : rows) {
    setKey({{7, 7, 7}, {8, 8, 8}, {9, 9, 9}, {9, 9, 9}});
    EXPECT_EQ(read("<variable name='temp'>" + division("1", "2", "255") + division("2", "3", "1") +
                   row.division + division("4", "5", "6") + "</variable>"),
              -1);
    EXPECT_EQ(util::LastError, failure(row.failure)) << row.division;
    EXPECT_EQ(lists(), (Divisions{{1, 2, 255}, {2, 3, 1}, row.begun})) << row.division;
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(KewReading, CountsInSixteenBits) {
  std::string most;
  for (int i = 1; i <= 32767; ++i) most += division("1", "2", "3");
  EXPECT_EQ(read("<variable name='temp'>" + most + "</variable>"), 32767);
  EXPECT_EQ(util::LastError, "");
  ModColor::NewColorKey();
  EXPECT_EQ(read("<variable name='temp'>" + most + division("4", "5", "6") + "</variable>"), -1);
  EXPECT_EQ(util::LastError, failure(kOverflow));
  EXPECT_EQ(ColorKey.low.size(), 32767);
  EXPECT_EQ(ColorKey.low(32767), 1.0F);
}

TEST_F(KewReading, NeedsAnItemShown) {
  const std::string name = write(smallKew());
  for (const int32_t item : {-1, 0, 2}) {
    util::LastError.clear();
    KelvaneMain::Item_shown = item;
    EXPECT_EQ(GetKewCol(name), -1);
    EXPECT_EQ(util::LastError, failure(kSubscript));
  }
}

// A name is looked for as it stands and never becomes part of the question.
TEST_F(KewReading, TakesNamesLiterally) {
  struct Row {
    std::string name, attribute;
  };
  const Row rows[] = {{"it's", "it's"},
                      {"a]b[c", "a]b[c"},
                      {"//variable", "//variable"},
                      {"a&b<c>", "a&amp;b&lt;c>"},
                      {"&amp;", "&amp;amp;"},
                      {"Temp\xC3\xA9rature", "Temp\xC3\xA9rature"},
                      {"\xE6\xB8\xA9\xE5\xBA\xA6", "&#x6E29;&#x5EA6;"},
                      {" blanks  inside ", " blanks  inside "},
                      {std::string(5000, 'n'), std::string(5000, 'n')}};
  for (const Row& row : rows) {
    show(row.name);
    const std::string keys = "<variable name=\"any\"/><variable name=\"" + row.attribute + "\">" +
                             division("1", "2", "255") + "</variable>";
    EXPECT_EQ(read(keys), 1) << row.name;
    EXPECT_EQ(util::LastError, "") << row.name;
  }
}

TEST_F(KewReading, ADoubleQuoteInTheNameFailsWhateverTheFileHolds) {
  for (const char* name : {"a\"b", "\"", "\" or \"1\"=\"1"}) {
    show(name);
    for (const std::string& file : {write(smallKew()), folder.file("missing.kew")}) {
      util::LastError.clear();
      EXPECT_EQ(GetKewCol(file), -1);
      EXPECT_EQ(util::LastError, failure(kInvalid)) << name;
    }
  }
  EXPECT_EQ(read("<variable name='a&quot;b'/>"), -1);
}

// The text that the tree points into must be the one of the last load, also after a failed one.
TEST_F(KewReading, ADocumentCanBeLoadedAgain) {
  ModColor::KewDocument document;
  const std::string first = write("<a/>", "first.kew");
  const std::string second = write("<section>" + std::string(100, ' ') + "</section>", "b.kew");
  const std::string broken = write("<b>", "broken.kew");
  document.load(first);
  document.load(second);
  EXPECT_TRUE(ModColor::firstElement(document.tree, "section"));
  EXPECT_FALSE(ModColor::firstElement(document.tree, "a"));
  EXPECT_THROW(document.load(broken), std::runtime_error);
  EXPECT_FALSE(document.tree.first_child());
  document.load(first);
  EXPECT_TRUE(ModColor::firstElement(document.tree, "a"));
}

}  // namespace
