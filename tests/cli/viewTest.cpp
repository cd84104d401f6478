#include <filesystem>

#include "CliTest.h"
#include "HostDriven.h"
#include "kewFiles.h"
#include "pngFile.h"
#include "render/settings.h"

// The options that change how a section is shown, held against a control that is set the same.
namespace cli_test {
namespace {

using Options = std::vector<std::string>;
using Path = std::vector<std::pair<float, float>>;

const Path kPath = {{350.5F, -0.9F}, {358, 0.4F}};

class View : public CliTest {
 protected:
  Result draw(const Options& options, const std::string& output = "a.png") const {
    Options arguments = {"draw",   "small.nc", "--path", kSmallPath,
                         "--size", "400x300",  "-o",     output};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return kelvane(arguments);
  }
  // The picture drawn with the options, without a word.
  std::string picture(const Options& options) const {
    const Result result = draw(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out + result.err, "");
    return contents("a.png");
  }
  std::string place() const { return folder.path().string(); }
};

TEST_F(View, ContourLines) {
  HostDriven host(file("small.nc"), kPath);
  KelvaneMain::settings.ViewStyle = 1;
  host.control().SetCurrentTime(1);
  EXPECT_EQ(picture({"--contours"}), host.png(place()));
  EXPECT_NE(picture({"--contours"}), picture({}));
}

TEST_F(View, ProfilesInGraphsOfTheirOwnOrInOne) {
  std::string pictures[2];
  for (const int style : {0, 1}) {
    HostDriven host(file("small.nc"), kPath);
    host.control().DrawProfile(true);
    KelvaneMain::settings.ProfileStyle = style;
    host.control().SetCurrentTime(1);
    pictures[style] = host.png(place());
  }
  EXPECT_EQ(picture({"--profile"}), pictures[0]);
  EXPECT_EQ(picture({"--profile", "--single"}), pictures[1]);
  EXPECT_NE(pictures[0], pictures[1]);
  EXPECT_NE(pictures[0], picture({}));
}

const std::string kDivisions =
    kewDivision("0", "12", "16711680") + kewDivision("12", "15", "65280");

TEST_F(View, ColoursOfAKeyFile) {
  writeFile(file("my.kew"), kewFile(kewVariable("salt", "") + kewVariable("temp", kDivisions)));
  HostDriven host(file("small.nc"), kPath);
  host.control().AddColorKey(0, 12, 16711680);
  host.control().AddColorKey(12, 15, 65280);
  host.control().UseColorKey(true);
  host.control().SetCurrentTime(1);
  EXPECT_EQ(picture({"--key", "my.kew"}), host.png(place()));
  EXPECT_NE(picture({"--key", "my.kew"}), picture({}));
  KelvaneMain::settings.ViewStyle = 1;
  host.control().ReDraw();
  EXPECT_EQ(picture({"--key", "my.kew", "--contours"}), host.png(place()));
}

TEST_F(View, AKeyWithoutDivisionsIsNotedAndTheRampUsed) {
  writeFile(file("my.kew"), kewFile(kewVariable("temp", "")));
  const std::string plain = picture({});
  const Result result = draw({"--key", "my.kew"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "kelvane: note: the key of temp in my.kew has no divisions; the section is drawn in "
            "the colours of the ramp.\n");
  EXPECT_EQ(contents("a.png"), plain);
}

TEST_F(View, AKeyFileWithoutTheKeyIsRefusedWithTheReason) {
  writeFile(file("text.kew"), "this is no key\n");
  writeFile(file("other.kew"), kewFile(kewVariable("salt", kDivisions) + kewVariable("Temp", "")));
  writeFile(file("none.kew"), kewFile(""));
  writeFile(file("half.kew"), kewFile(kewVariable("temp", "<division><low>1</low></division>")));
  const std::pair<const char*, const char*> cases[] = {
      {"missing.kew", "No such file"},
      {"text.kew", "text.kew"},
      {"other.kew", "No colour key of temp: other.kew has keys of salt, Temp only."},
      {"none.kew", "No colour key of temp: none.kew has no keys."},
      {"half.kew",
       "No colour key of temp: half.kew: division 1 lacks low, high or color. (ModColor "
       "GetKewCol: "},
  };
  for (const auto& [name, reason] : cases) {
    const Result result = draw({"--key", name});
    EXPECT_EQ(result.status, 1) << name;
    EXPECT_TRUE(contains(result.err, reason)) << result.err;
    EXPECT_EQ(count(result.err, "kelvane: "), 1) << result.err;
    EXPECT_FALSE(exists("a.png"));
  }
}

TEST_F(View, ThePictureNeverReplacesTheKeyFile) {
  const std::string key = kewFile(kewVariable("temp", kDivisions));
  writeFile(file("key.png"), key);
  const Result result = draw({"--key", "key.png"}, "./key.png");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "would replace the key file: ./key.png")) << result.err;
  EXPECT_EQ(contents("key.png"), key);
}

TEST_F(View, AnAutomaticKeyIsMadeOnceThenLoaded) {
  const Result first = draw({"--auto-key", "--time", "2"}, "first.png");
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.err,
            "kelvane: note: the colour key of temp (10 divisions) was made with random colours "
            "and saved in small.KEW.\n");
  const std::string key = contents("small.KEW");
  EXPECT_EQ(count(key, "<division>"), 10);
  const Result second = draw({"--auto-key", "--time", "2"}, "second.png");
  EXPECT_EQ(second.status, 0);
  EXPECT_EQ(second.err,
            "kelvane: note: the colour key of temp (10 divisions) was loaded from small.KEW.\n");
  EXPECT_EQ(contents("small.KEW"), key);
  EXPECT_EQ(contents("first.png"), contents("second.png"));
  // It divides the range of the step that was asked for, not of the first.
  EXPECT_EQ(contents("first.png"), [&] {
    EXPECT_EQ(draw({"--key", "small.KEW", "--time", "2"}, "third.png").status, 0);
    return contents("third.png");
  }());
  HostDriven host(file("small.nc"), kPath);
  host.control().SetCurrentTime(2);
  std::filesystem::remove(file("small.KEW"));
  host.control().InitColorKey();
  const auto bounds = [](const std::string& text) {
    std::string found;
    for (std::size_t at = text.find("<low>"); at != std::string::npos;
         at = text.find("<low>", at + 1)) {
      found += text.substr(at, text.find("<color>", at) - at);
    }
    return found;
  };
  EXPECT_EQ(bounds(contents("small.KEW")), bounds(key));
}

TEST_F(View, AnAutomaticKeyThatCannotBeHadIsAnError) {
  const std::string other = kewFile(kewVariable("salt", kDivisions));
  writeFile(file("small.KEW"), other);
  const Result lacking = draw({"--auto-key"});
  EXPECT_EQ(lacking.status, 1);
  EXPECT_EQ(lacking.err,
            "kelvane: No colour key of temp: small.KEW has keys of salt only. (InitColorKey: "
            "Subscript out of range)\n");
  EXPECT_EQ(contents("small.KEW"), other);

  std::filesystem::remove(file("small.KEW"));
  std::filesystem::create_directory(file("small.KEW"));
  const Result unsaved = draw({"--auto-key"});
  EXPECT_EQ(unsaved.status, 1);
  EXPECT_TRUE(contains(
      unsaved.err, "The colour key of temp could not be saved in small.KEW: ModColor SaveKEW: "))
      << unsaved.err;
  EXPECT_EQ(listing(), (Options{"small.KEW", "small.nc"}));
}

TEST_F(View, AnAutomaticKeyWithoutDivisionsLeavesTheCellsWhite) {
  writeFile(file("small.KEW"), kewFile(kewVariable("temp", "")));
  const Result result = draw({"--auto-key"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "kelvane: note: the colour key of temp (0 divisions) was loaded from small.KEW.\n");
  expectPng(contents("a.png"), 400, 300);
}

TEST_F(View, AnimationsAreShownTheSameWay) {
  writeFile(file("my.kew"), kewFile(kewVariable("temp", kDivisions)));
  HostDriven host(file("small.nc"), kPath);
  EXPECT_EQ(host.control().KewFile(file("my.kew")), 1);
  host.control().UseColorKey(true);
  KelvaneMain::settings.ViewStyle = 1;
  host.control().SetCurrentTime(1);
  host.control().AdvanceTime(1);
  const Result result = kelvane({"animate", "small.nc", "--path", kSmallPath, "--size", "400x300",
                                 "--key", "my.kew", "--contours", "-o", "f%d.png"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(contents("f2.png"), host.png(place()));
  const Result automatic =
      kelvane({"animate", "small.nc", "--path", kSmallPath, "--auto-key", "-o", "g%d.png"});
  EXPECT_EQ(automatic.status, 0);
  EXPECT_EQ(count(automatic.err, "kelvane: "), 1) << automatic.err;
  EXPECT_TRUE(contains(automatic.err, "saved in small.KEW.")) << automatic.err;
}

}  // namespace
}  // namespace cli_test
