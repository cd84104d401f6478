#include <nlohmann/json.hpp>

#include "CliTest.h"
#include "kewFiles.h"

// Keys that cannot be read to their end, listed and drawn with.
namespace cli_test {
namespace {

using nlohmann::json;

const std::string kWhole = kewDivision("0", "1", "2");

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int k = 0; k < times; ++k) all += text;
  return all;
}

class BrokenKey : public CliTest {
 protected:
  void write(const std::string& variables) const { writeFile(file("a.kew"), kewFile(variables)); }
  Result draw() const {
    return kelvane({"draw", "small.nc", "--path", kSmallPath, "--key", "a.kew", "-o", "a.png"});
  }
};

struct Fault {
  std::string divisions;
  std::size_t read;
  std::string reason, itsNumber;
};

TEST_F(BrokenKey, IsToldInPlainWords) {
  const Fault faults[] = {
      {kWhole + "<division><low>1</low></division>" + kWhole, 1,
       "division 2 lacks low, high or color", "91"},
      {"<division/>", 0, "division 1 lacks low, high or color", "91"},
      {kWhole + kWhole + kewDivision("0", "1e39", "2"), 2, "division 3 has a number out of range",
       "6"},
      {kewDivision("0", "1", "2147483648"), 0, "division 1 has a number out of range", "6"},
      {repeated(kWhole, 32768), 32767, "more than 32767 divisions", "6"},
  };
  for (const auto& [divisions, read, reason, itsNumber] : faults) {
    write(kewVariable("salt", kWhole) + kewVariable("temp", divisions));
    const std::string failure =
        "a.kew: keys that cannot be read to their end: temp (" + reason + ")";
    const Result text = kelvane({"key", "a.kew"});
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.err, "kelvane: " + failure + "\n");
    EXPECT_TRUE(contains(text.out, "salt: 1 division\n"));
    EXPECT_TRUE(contains(text.out, ", then not readable: " + reason + "\n"));
    const Result form = kelvane({"key", "--json", "a.kew"});
    EXPECT_EQ(form.status, 1);
    EXPECT_EQ(form.err, text.err);
    const json listed = json::parse(form.out);
    EXPECT_EQ(listed["error"], failure);
    EXPECT_EQ(listed["variables"][0]["error"], json());
    EXPECT_EQ(listed["variables"][1]["error"], reason);
    EXPECT_EQ(listed["variables"][1]["divisions"].size(), read);
    const Result picture = draw();
    EXPECT_EQ(picture.status, 1);
    EXPECT_TRUE(picture.err.starts_with("kelvane: No colour key of temp: a.kew: " + reason +
                                        ". (ModColor GetKewCol: " + itsNumber + ", "))
        << picture.err;
    EXPECT_FALSE(exists("a.png"));
  }
}

TEST_F(BrokenKey, OfAnotherVariableHindersNoPicture) {
  write(kewVariable("temp", kWhole) + kewVariable("salt", "<division/>"));
  EXPECT_EQ(kelvane({"key", "a.kew"}).status, 1);
  EXPECT_EQ(draw().err, "");
  EXPECT_TRUE(exists("a.png"));
}

TEST_F(BrokenKey, ThatIsIgnoredIsNoFailure) {
  write(kewVariable("temp", kWhole) + kewVariable("temp", "<division/>") +
        "<variable><division/></variable>");
  const Result result = kelvane({"key", "a.kew"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(count(result.out, "then not readable: division 1 lacks"), 2) << result.out;
}

TEST_F(BrokenKey, OfANameThatIsNeverFound) {
  write(kewVariable("te&quot;mp", kWhole));
  const Result result = kelvane({"key", "a.kew"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err,
            "kelvane: a.kew: keys that cannot be read to their end: te\"mp (a name with a double "
            "quote is never found)\n");
}

TEST_F(BrokenKey, IsOneOfManyInALineOfTen) {
  std::string variables;
  for (int k = 1; k <= 1000; ++k) {
    variables += kewVariable("v" + std::to_string(k), k % 2 == 0 ? kWhole : "<division/>");
  }
  write(variables);
  const Result result = kelvane({"key", "a.kew"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(count(result.err, "lacks"), 10);
  EXPECT_TRUE(result.err.ends_with("v19 (division 1 lacks low, high or color) and 490 more\n"))
      << result.err;
  EXPECT_TRUE(contains(draw().err,
                       "a.kew has keys of v1, v2, v3, v4, v5, v6, v7, v8, v9, v10 and "
                       "990 more only.\n"))
      << draw().err;
}

}  // namespace
}  // namespace cli_test
