#include <filesystem>
#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "kewFiles.h"

namespace cli_test {
namespace {

using nlohmann::json;

class Key : public CliTest {
 protected:
  void write(const std::string& variables) const { writeFile(file("a.kew"), kewFile(variables)); }
  json listed() const {
    const Result result = kelvane({"key", "--json", "a.kew"});
    EXPECT_EQ(result.status, 0) << result.err;
    return json::parse(result.out);
  }
};

const std::string kTemp =
    kewDivision("0", "12.5", "255") + kewDivision("12.5", "1E+20", "16711680");

TEST_F(Key, ListsTheVariablesInTheOrderOfTheFile) {
  write(kewVariable("temp", kTemp) + kewVariable("salt", "") +
        kewVariable("temp", kewDivision("1", "2", "3")));
  const Result result = kelvane({"key", "a.kew"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "temp: 2 divisions\n"
            "             low      high  colour\n"
            "     1         0      12.5  #ff0000\n"
            "     2      12.5     1E+20  #0000ff\n"
            "salt: 0 divisions\n"
            "temp: 1 division (ignored: the first key of this name counts)\n"
            "             low      high  colour\n"
            "     1         1         2  #030000\n");
}

TEST_F(Key, ListsAsJson) {
  write(kewVariable("temp", kTemp) + kewVariable("temp", "") +
        kewVariable("salt", kewDivision("0.1", "-3.25", "65280")));
  const json wanted = {
      {"file", "a.kew"},
      {"error", nullptr},
      {"variables",
       {{{"name", "temp"},
         {"ignored", false},
         {"error", nullptr},
         {"divisions",
          {{{"low", 0.0}, {"high", 12.5}, {"color", 255}, {"rgb", "#ff0000"}},
           {{"low", 12.5}, {"high", 1e20}, {"color", 16711680}, {"rgb", "#0000ff"}}}}},
        {{"name", "temp"}, {"ignored", true}, {"error", nullptr}, {"divisions", json::array()}},
        {{"name", "salt"},
         {"ignored", false},
         {"error", nullptr},
         {"divisions", {{{"low", 0.1}, {"high", -3.25}, {"color", 65280}, {"rgb", "#00ff00"}}}}}}}};
  EXPECT_EQ(listed(), wanted);
}

TEST_F(Key, ReadsNumbersAsTheControlDoes) {
  write(kewVariable("temp",
                    kewDivision(" 12,5 ", "x", "255.5") + kewDivision("1d1", "-1e-3 m", "254.5")));
  const json divisions = listed()["variables"][0]["divisions"];
  EXPECT_EQ(divisions[0], (json{{"low", 12.0}, {"high", 0.0}, {"color", 256}, {"rgb", "#000100"}}));
  EXPECT_EQ(divisions[1],
            (json{{"low", 10.0}, {"high", -0.001}, {"color", 254}, {"rgb", "#fe0000"}}));
}

TEST_F(Key, AVariableWithoutANameIsIgnored) {
  write("<variable>" + kTemp + "</variable>" + kewVariable("temp", ""));
  const json variables = listed()["variables"];
  EXPECT_EQ(variables[0]["ignored"], true);
  EXPECT_EQ(variables[1]["ignored"], false);
  EXPECT_TRUE(contains(kelvane({"key", "a.kew"}).out,
                       "(no name): 2 divisions (ignored: it belongs to no variable)\n"));
}

TEST_F(Key, NamesDoNotSteerTheTerminal) {
  write(kewVariable("te\xC2\x9Bmp&#10;x", ""));
  EXPECT_EQ(kelvane({"key", "a.kew"}).out, "te mp x: 0 divisions\n");
}

TEST_F(Key, FilesThatAreNoKewFilesAreRefusedWithTheReason) {
  writeFile(file("text.kew"), "this is no key\n");
  writeFile(file("cut.kew"), kewFile(kewVariable("temp", kTemp)).substr(0, 100));
  writeFile(file("empty.kew"), "");
  std::filesystem::create_directory(file("folder.kew"));
  for (const char* name : {"none.kew", "text.kew", "cut.kew", "empty.kew", "folder.kew", ""}) {
    const Result text = kelvane({"key", name});
    EXPECT_EQ(text.status, 1) << name;
    EXPECT_EQ(text.out, "") << name;
    EXPECT_EQ(count(text.err, "kelvane: "), 1) << text.err;
    EXPECT_TRUE(contains(text.err, name)) << text.err;
    const Result form = kelvane({"key", "--json", name});
    EXPECT_EQ(form.status, 1) << name;
    EXPECT_EQ(form.err, text.err);
    const json listed = json::parse(form.out);
    EXPECT_EQ("kelvane: " + listed["error"].get<std::string>() + "\n", text.err);
    EXPECT_EQ(listed["variables"], json::array());
  }
}

TEST_F(Key, ADocumentWithoutKeysIsNoted) {
  writeFile(file("a.kew"), "<html><body/></html>");
  const Result result = kelvane({"key", "a.kew"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "kelvane: note: a.kew has no keys.\n");
}

TEST_F(Key, ShowsTheColoursOnATerminalUnlessTheyAreUnwanted) {
  write(kewVariable("temp", kewDivision("0", "1", "8421376")));
  const std::string sample = "#008080  \x1b[48;2;0;128;128m    \x1b[0m";
  struct Case {
    const char *term, *noColor;
    bool shown;
  };
  for (const auto& [term, noColor, shown] : {Case{"xterm", "", true}, Case{"xterm", "1", false},
                                             Case{"dumb", "", false}, Case{"", "", false}}) {
    Surroundings around;
    around.terminalColumns = 80;
    around.environment = {{"TERM", term}, {"NO_COLOR", noColor}};
    const Result result = kelvane({"key", "a.kew"}, around);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(contains(result.out, sample), shown) << result.out;
    EXPECT_EQ(contains(result.out, "\x1b"), shown) << result.out;
    EXPECT_TRUE(contains(result.out, "#008080"));
  }
  Surroundings piped;
  piped.environment = {{"TERM", "xterm"}};
  EXPECT_FALSE(contains(kelvane({"key", "a.kew"}, piped).out, "\x1b"));
}

TEST_F(Key, TheExampleHasUnbrokenKeysOfTheSamples) {
  const Result result = kelvane({"key", "--json", EXAMPLE_KEY});
  EXPECT_EQ(result.status, 0) << result.err;
  const json variables = json::parse(result.out)["variables"];
  ASSERT_EQ(variables.size(), 2U);
  EXPECT_EQ(variables[0]["name"], "temp");
  EXPECT_EQ(variables[1]["name"], "salt");
  const std::string text = fileText(EXAMPLE_KEY);
  for (const json& variable : variables) {
    EXPECT_EQ(variable["error"], json());
    ASSERT_GT(variable["divisions"].size(), 10U);
    json before;
    for (const json& division : variable["divisions"]) {
      EXPECT_LT(division["low"], division["high"]);
      EXPECT_TRUE(before.is_null() || division["low"] == before["high"]) << division;
      // The comment behind each division names its colour.
      const std::string comment = "<color>" + division["color"].dump() +
                                  "</color></division>  <!-- " +
                                  division["rgb"].get<std::string>() + " -->";
      EXPECT_TRUE(contains(text, comment)) << comment;
      before = division;
    }
  }
}

TEST_F(Key, AFullDiskIsNoticed) {
  write(kewVariable("temp", kTemp));
  Surroundings full;
  full.stdoutFile = "/dev/full";
  const Result result = kelvane({"key", "a.kew"}, full);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "Standard output cannot be written")) << result.err;
}

}  // namespace
}  // namespace cli_test
