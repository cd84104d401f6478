#include "CliTest.h"
#include "nameList.h"
#include "pngFile.h"

// The limits of pictures and files, and what is said when they are met.
namespace cli_test {
namespace {

using Arguments = std::vector<std::string>;

class Limit : public CliTest {
 protected:
  Result draw(const std::string& size, const std::string& output,
              const std::vector<std::string>& more = {}) const {
    Arguments arguments = {"draw", "small.nc", "--path", kSmallPath, "--size", size, "-o", output};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kelvane(arguments);
  }
};

TEST_F(Limit, OfPixelsIsForPngAloneAndSaidAsSuch) {
  const std::string reason =
      "kelvane: --size: 32767x2049 are too many pixels for a PNG file, which has 67108864 at most; "
      ".svg and .pdf have no such limit\nTry 'kelvane ";
  const Result png = draw("32767x2049", "a.png");
  EXPECT_EQ(png.status, 2);
  EXPECT_EQ(png.err, reason + "draw --help'.\n");
  const Result frames = kelvane(
      {"animate", "small.nc", "--path", kSmallPath, "-o", "a%d.PNG", "--size", "32767x2049"});
  EXPECT_EQ(frames.status, 2);
  EXPECT_EQ(frames.err, reason + "animate --help'.\n");
  EXPECT_EQ(listing(), Arguments{"small.nc"});
  const Result side = draw("32768x1", "a.svg");
  EXPECT_EQ(side.status, 2);
  EXPECT_TRUE(contains(side.err, "'32768x1' is not a size")) << side.err;
}

TEST_F(Limit, OfPixelsIsNoneOfVectors) {
  EXPECT_EQ(draw("32767x32767", "a.svg").err, "");
  EXPECT_TRUE(contains(contents("a.svg"), "width=\"32767px\" height=\"32767px\""));
  EXPECT_EQ(draw("32767x32767", "a.pdf").err, "");
  EXPECT_TRUE(contains(contents("a.pdf"), "/MediaBox [ 0 0 24575.25 24575.25 ]"));
}

TEST_F(Limit, OfTheMarginsIsSaidInPlainWords) {
  const Result result = draw("40x30", "a.png");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err,
                       "\nThe picture is too small for its margins: of its 40x30 pixels "
                       "they take "))
      << result.err;
  EXPECT_EQ(listing(), Arguments{"small.nc"});
}

TEST_F(Limit, OfFileSizeIsAFailureOfWriting) {
  Surroundings around;
  around.fileSizeLimit = 2048;
  for (const char* output : {"a.png", "a.svg", "a.pdf"}) {
    const Result result = kelvane({"draw", "small.nc", "--path", kSmallPath, "-o", output}, around);
    EXPECT_EQ(result.status, 1) << output;
    EXPECT_EQ(result.err,
              "kelvane: Cannot write \"" + std::string(output) + "\": File too large\n");
    EXPECT_EQ(listing(), Arguments{"small.nc"});
  }
  around.fileSizeLimit = 100;
  around.stdoutFile = file("values.csv");
  const Result values = kelvane({"values", "small.nc", "--path", kSmallPath}, around);
  EXPECT_EQ(values.status, 1);
  EXPECT_EQ(values.err, "kelvane: Standard output cannot be written: File too large\n");
}

std::string pathOf(int points) {
  std::string path;
  for (int k = 0; k < points; ++k) {
    path += std::to_string(350 + k) + "." + std::to_string(k % 10) + ",0 ";
  }
  return path;
}

TEST_F(Limit, OfColoursInASharedGraphIsNoted) {
  const auto profiles = [&](int points, const Arguments& more) {
    Arguments arguments = {"draw", "small.nc", "--path", pathOf(points), "-o", "a.png"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Result result = kelvane(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    expectPng(contents("a.png"), 1000, 600);
    return result.err;
  };
  EXPECT_EQ(profiles(7, {"--profile", "--single"}),
            "kelvane: note: one graph tells six profiles apart; the seventh is white on white, and "
            "from the eighth on the colours repeat.\n");
  EXPECT_EQ(profiles(6, {"--profile", "--single"}), "");
  EXPECT_EQ(profiles(7, {"--profile"}), "");
}

TEST(NameList, NamesTenAtMost) {
  const auto list = [](int names) {
    Arguments all;
    for (int k = 1; k <= names; ++k) all.push_back("v" + std::to_string(k));
    return cli::nameList(all);
  };
  EXPECT_EQ(list(0), "");
  EXPECT_EQ(list(1), "v1");
  EXPECT_EQ(list(10), "v1, v2, v3, v4, v5, v6, v7, v8, v9, v10");
  EXPECT_EQ(list(11), "v1, v2, v3, v4, v5, v6, v7, v8, v9, v10 and 1 more");
  EXPECT_EQ(list(100000), "v1, v2, v3, v4, v5, v6, v7, v8, v9, v10 and 99990 more");
}

}  // namespace
}  // namespace cli_test
