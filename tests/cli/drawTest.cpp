#include <filesystem>
#include <fstream>

#include "CliTest.h"
#include "pngFile.h"

namespace cli_test {
namespace {

class Draw : public CliTest {
 protected:
  // Draws a section of small.nc and expects it to work without a word.
  void draw(const std::string& output, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"draw", "small.nc", "--path", kSmallPath, "-o", output});
    const Result result = kelvane(more);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
  }
};

TEST_F(Draw, PngHasTheSizeAskedFor) {
  draw("default.png");
  expectPng(contents("default.png"), 1000, 600);
  draw("small.PNG", {"--size", "321x234"});
  expectPng(contents("small.PNG"), 321, 234);
}

TEST_F(Draw, DefaultsAreTheFirstItemTheFirstStepAnd1000x600) {
  draw("default.png");
  draw("explicit.png", {"--var", "TEMP", "--time", "1", "--size", "1000x600"});
  EXPECT_EQ(contents("default.png"), contents("explicit.png"));
}

TEST_F(Draw, EveryOptionChangesThePicture) {
  draw("default.png");
  draw("step.png", {"--time", "2"});
  draw("salt.png", {"--var", "salt"});
  EXPECT_NE(contents("default.png"), contents("step.png"));
  EXPECT_NE(contents("default.png"), contents("salt.png"));
}

TEST_F(Draw, SvgIsMadeOfVectorsAndCarriesItsTitle) {
  draw("section.svg", {"--time", "2"});
  const std::string svg = contents("section.svg");
  EXPECT_TRUE(contains(svg, "<svg"));
  EXPECT_TRUE(contains(svg, "</svg>"));
  EXPECT_TRUE(contains(svg, "<title>potential temperature [degC], 1990-01-03 12:00:00</title>"));
  // A block for each cell above the last level that has a value, and 50 shades of the legend.
  EXPECT_GE(count(svg, "<path") + count(svg, "<rect"), 50 + 2 * 6);
  EXPECT_FALSE(contains(svg, "<image"));
  EXPECT_FALSE(contains(svg, "base64"));
}

TEST_F(Draw, PdfIsMadeOfVectors) {
  draw("section.pdf", {"--size", "400x300"});
  const std::string pdf = contents("section.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  EXPECT_TRUE(contains(pdf, "%%EOF"));
  EXPECT_FALSE(contains(pdf, "/Image"));
  EXPECT_TRUE(contains(pdf, "/MediaBox [ 0 0 300 225 ]"));
}

TEST_F(Draw, ASectionWithoutValuesIsDrawnWithANote) {
  const Result result = kelvane(
      {"draw", "small.nc", "--var", "salt", "--path", "350,-0.9 359,-0.9", "-o", "empty.png"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "kelvane: note: every value of salt is missing along this path.\n");
  expectPng(contents("empty.png"), 1000, 600);
}

TEST_F(Draw, ABackwardSegmentIsDrawnForwardWithANote) {
  const Result result =
      kelvane({"draw", "small.nc", "--path", "352,-0.9 354,0.4 351,0.4", "-o", "back.png"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(count(result.err, "note:"), 1) << result.err;
  EXPECT_TRUE(contains(result.err, "segment 2 of the path goes west or south")) << result.err;
  EXPECT_TRUE(exists("back.png"));
}

TEST_F(Draw, FileNamesOfEveryKindAreWritten) {
  for (const char* name : {"two words.png", "\xC3\xA9t\xC3\xA9.svg", "-o.png", "[a].pdf"}) {
    draw(name);
    EXPECT_TRUE(exists(name)) << name;
  }
}

TEST_F(Draw, NothingIsWrittenWhenSomethingFails) {
  std::ofstream(file("old.png")) << "older picture";
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"draw", "none.nc", "--path", kSmallPath, "-o", "old.png"}, "No such file or directory"},
      {{"draw", "small.nc", "--path", kSmallPath, "-o", "old.png", "--var", "zeta"},
       "[SelectVarByName] nc varable not identified: zeta\nItems that can be drawn: temp, salt"},
      {{"draw", "small.nc", "--path", "10,50 20,60", "-o", "old.png"},
       "[MakeKelvane] Section distance is too short, or input error\n"
       "The grid covers longitudes 350 to 360 and latitudes -1 to 0.5."},
      {{"draw", "small.nc", "--path", kSmallPath, "-o", "old.png", "--time", "3"},
       "nvar, tcount= "},
      {{"draw", "small.nc", "--path", kSmallPath, "-o", "old.png", "--size", "1x1"},
       "[Cartesian] screen size out of range"},
      {{"draw", "small.nc", "--path", kSmallPath, "-o", "none/a.png"}, "none/a.png"},
      {{"draw", "small.nc", "--path", kSmallPath, "-o", "folder.png"}, "folder.png"},
  };
  std::filesystem::create_directory(file("folder.png"));
  for (const auto& [arguments, reason] : cases) {
    const Result result = kelvane(arguments);
    EXPECT_EQ(result.status, 1) << reason;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(count(result.err, "kelvane: "), 1) << result.err;
    EXPECT_TRUE(contains(result.err, reason)) << result.err;
  }
  EXPECT_EQ(contents("old.png"), "older picture");
  EXPECT_EQ(listing(), (std::vector<std::string>{"folder.png", "old.png", "small.nc"}));
}

TEST_F(Draw, TheDataSetIsNeverReplacedByItsPicture) {
  std::filesystem::rename(file("small.nc"), file("data.png"));
  const std::string before = contents("data.png");
  const Result result = kelvane({"draw", "data.png", "--path", kSmallPath, "-o", "./data.png"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "would replace the data set")) << result.err;
  EXPECT_EQ(contents("data.png"), before);
}

TEST_F(Draw, AClosedStandardOutputDoesNoHarm) {
  Surroundings closed;
  closed.stdoutClosed = true;
  const Result result = kelvane({"draw", "small.nc", "--path", kSmallPath, "-o", "a.png"}, closed);
  EXPECT_EQ(result.status, 0) << result.err;
  expectPng(contents("a.png"), 1000, 600);
}

}  // namespace
}  // namespace cli_test
