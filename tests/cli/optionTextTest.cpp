#include <gtest/gtest.h>

#include "optionText.h"

namespace {

using Path = std::vector<cli::PathPoint>;

struct PathCase {
  const char* text;
  std::optional<Path> wanted;
};

TEST(PathText, TwoPointsOrMoreAndNothingElse) {
  const Path two = {{150.0F, -50.0F}, {250.5F, 50.0F}};
  const PathCase cases[] = {
      {"150,-50 250.5,50", two},
      {"  150,-50\t250.5,50 ", two},
      {"150, -50 250.5 , 50", two},
      {"+150,-50 2.505e2,5e1", two},
      {"1,2 3,4 5,6", Path{{1, 2}, {3, 4}, {5, 6}}},
      {"", std::nullopt},
      {" ", std::nullopt},
      {"1,2", std::nullopt},
      {"1 2 3 4", std::nullopt},
      {"1,2 3", std::nullopt},
      {"1,2 3,", std::nullopt},
      {"1,2,3,4", std::nullopt},
      {"1,2;3,4", std::nullopt},
      {"1,2 3,4x", std::nullopt},
      {"1,2 3,4 west", std::nullopt},
      {"+-1,2 3,4", std::nullopt},
      {"nan,2 3,4", std::nullopt},
      {"1,2 3,inf", std::nullopt},
      {"1,2 3,1e39", std::nullopt},
      {"0x10,2 3,4", std::nullopt},
  };
  for (const PathCase& each : cases) {
    const auto found = cli::readPath(each.text);
    EXPECT_EQ(found, each.wanted) << each.text;
  }
}

TEST(SizeText, WidthAndHeightWithinTheLimits) {
  EXPECT_EQ(cli::readSize("1000x600"), (cli::PictureSize{1000, 600}));
  EXPECT_EQ(cli::readSize("1X2"), (cli::PictureSize{1, 2}));
  EXPECT_EQ(cli::readSize("32767x32767"), (cli::PictureSize{32767, 32767}));
  for (const char* text : {"", "1000", "1000x", "x600", "0x600", "1000x0", "-1x5", "10x5x2",
                           "1.5x2", "32768x1", "1x32768", "99999999999x1", "10 x 20", "10x20 "}) {
    EXPECT_EQ(cli::readSize(text), std::nullopt) << text;
  }
}

TEST(SizeText, PixelsInAllAreLimitedInPngAlone) {
  using cli::PictureFormat;
  EXPECT_TRUE(cli::isPossible({32767, 2048}, PictureFormat::Png));
  EXPECT_TRUE(cli::isPossible({8192, 8192}, PictureFormat::Png));
  EXPECT_FALSE(cli::isPossible({32767, 2049}, PictureFormat::Png));
  EXPECT_FALSE(cli::isPossible({32767, 32767}, PictureFormat::Png));
  EXPECT_TRUE(cli::isPossible({32767, 32767}, PictureFormat::Svg));
  EXPECT_TRUE(cli::isPossible({32767, 32767}, PictureFormat::Pdf));
}

TEST(StepText, WholeNumbersFromOne) {
  EXPECT_EQ(cli::readStep("1"), 1);
  EXPECT_EQ(cli::readStep("2147483647"), 2147483647);
  for (const char* text : {"", "0", "-1", "1.5", "one", "2147483648", "1 ", " 1", "0x1"}) {
    EXPECT_EQ(cli::readStep(text), std::nullopt) << text;
  }
}

TEST(StepsText, ARangeOpenAtOneEndOrASingleStep) {
  EXPECT_EQ(cli::readSteps("3:9"), (cli::StepRange{3, 9}));
  EXPECT_EQ(cli::readSteps("3:3"), (cli::StepRange{3, 3}));
  EXPECT_EQ(cli::readSteps("3:"), (cli::StepRange{3, std::nullopt}));
  EXPECT_EQ(cli::readSteps(":9"), (cli::StepRange{1, 9}));
  EXPECT_EQ(cli::readSteps("3"), (cli::StepRange{3, 3}));
  for (const char* text : {"", ":", "9:3", "0:3", ":0", "0", "-1:3", "1:-3", "1:2:3", "1-3", "a:b",
                           "1: 2", "1 :2", "1:2 ", "2147483648:", "1.5:2"}) {
    EXPECT_EQ(cli::readSteps(text), std::nullopt) << text;
  }
}

TEST(PictureName, ExtensionSaysTheFormat) {
  EXPECT_EQ(cli::formatOf("a.png"), cli::PictureFormat::Png);
  EXPECT_EQ(cli::formatOf("dir.svg/a.b.PDF"), cli::PictureFormat::Pdf);
  EXPECT_EQ(cli::formatOf("-.Svg"), cli::PictureFormat::Svg);
  for (const char* name : {"", "png", ".png", "dir/.png", "a.png/", "a.jpg", "a.png.", "a.png "}) {
    EXPECT_EQ(cli::formatOf(name), std::nullopt) << name;
  }
}

}  // namespace
