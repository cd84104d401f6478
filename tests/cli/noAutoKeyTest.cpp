#include <filesystem>

#include "CliTest.h"
#include "kewFiles.h"
#include "support/NcMaker.h"

// Data sets for which no key can be made, or none kept.
namespace cli_test {
namespace {

using Names = std::vector<std::string>;

class NoAutoKey : public CliTest {
 protected:
  // Fails the same way, picture or animation, and writes nothing.
  void expectRefused(const std::string& dataSet, const Names& section, const std::string& reason) {
    const Names before = listing();
    for (const char* command : {"draw", "animate"}) {
      Names arguments = {command, dataSet, "--auto-key", "-o", "picture-%d.png"};
      arguments.insert(arguments.end(), section.begin(), section.end());
      const Result result = kelvane(arguments);
      EXPECT_EQ(result.status, 1);
      EXPECT_EQ(result.err, "kelvane: " + reason + "\n");
      EXPECT_EQ(listing(), before);
    }
  }
};

const Names kEmptySection = {"--var", "salt", "--path", "350,-0.9 359,-0.9"};

TEST_F(NoAutoKey, WithoutAValue) {
  expectRefused("small.nc", kEmptySection,
                "No colour key of salt can be made: every value is missing along this path in this "
                "time step; small.KEW was not written.");
}

TEST_F(NoAutoKey, WithoutAValueUnlessOneIsThere) {
  writeFile(file("small.KEW"), kewFile(kewVariable("salt", kewDivision("0", "50", "255"))));
  Names arguments = {"draw", "small.nc", "--auto-key", "-o", "a.png"};
  arguments.insert(arguments.end(), kEmptySection.begin(), kEmptySection.end());
  const Result result = kelvane(arguments);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(contains(result.err, "was loaded from small.KEW.\n")) << result.err;
  EXPECT_TRUE(exists("a.png"));
}

TEST_F(NoAutoKey, OfOneValueEverywhere) {
  {
    support::NcMaker nc(file("even.nc"));
    const int t = nc.dim("time", 2), z = nc.dim("depth", 2);
    const int y = nc.dim("lat", 3), x = nc.dim("lon", 4);
    const int ts = nc.var("time", NC_DOUBLE, {t}), zs = nc.var("depth", NC_FLOAT, {z});
    const int ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
    const int even = nc.var("even", NC_FLOAT, {t, z, y, x});
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", "degrees_east");
    nc.put(ts, {0, 1});
    nc.put(zs, {0, 10});
    nc.put(ys, {0, 1, 2});
    nc.put(xs, {0, 1, 2, 3});
    nc.put(even, std::vector<double>(48, 5.0));
    nc.close();
  }
  expectRefused("even.nc", {"--path", "0,0 3,2"},
                "No colour key of even can be made: every value is 5; even.KEW was not written.");
}

TEST_F(NoAutoKey, WhereTheLastDotIsNotInTheFilesOwnName) {
  std::filesystem::create_directory(file("d.x"));
  std::filesystem::copy_file(file("small.nc"), file("d.x/plain"));
  std::filesystem::copy_file(file("small.nc"), file("plain"));
  const Names section = {"--path", kSmallPath};
  for (const std::string name : {"d.x/plain", "./plain", "d.x/../plain"}) {
    expectRefused(name, section,
                  "The data set " + name +
                      " has no key file of its own: .KEW takes the place of what follows the last "
                      "dot, and here that is more than the end of the file's own name. Name a key "
                      "file with --key.");
  }
  Names arguments = {"draw", "plain", "--auto-key", "-o", "a.png", "--path", kSmallPath};
  EXPECT_EQ(kelvane(arguments).status, 0);
  EXPECT_TRUE(exists("plain.KEW"));
  arguments[1] = "d.x/../small.nc";
  EXPECT_EQ(kelvane(arguments).status, 0);
  EXPECT_TRUE(exists("small.KEW"));
}

}  // namespace
}  // namespace cli_test
