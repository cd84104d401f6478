#include <algorithm>
#include <filesystem>
#include <fstream>

#include "CliTest.h"
#include "HostDriven.h"
#include "pngFile.h"
#include "steppedSet.h"
#include "support/NcMaker.h"

namespace cli_test {
namespace {

using Names = std::vector<std::string>;

class Animate : public CliTest {
 protected:
  static constexpr int kSteps = 5;

  Animate() { makeSteppedSet(file("steps.nc"), kSteps); }

  Result animate(const std::string& output, Names more = {}, Surroundings around = {}) const {
    more.insert(more.begin(),
                {"animate", "steps.nc", "--path", kSteppedPath, "--size", "400x300", "-o", output});
    return kelvane(more, around);
  }
  void expectQuiet(const Result& result) const {
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
  }
  // One picture by draw, in the same size.
  std::string drawn(const std::string& step) const {
    const Result result = kelvane({"draw", "steps.nc", "--path", kSteppedPath, "--size", "400x300",
                                   "--time", step, "-o", "one.png"});
    EXPECT_EQ(result.status, 0) << result.err;
    std::string bytes = contents("one.png");
    std::filesystem::remove(file("one.png"));
    return bytes;
  }
};

TEST_F(Animate, DrawsEveryStepIntoAFileOfItsNumber) {
  expectQuiet(animate("frame-%03d.png"));
  EXPECT_EQ(listing(), (Names{"frame-001.png", "frame-002.png", "frame-003.png", "frame-004.png",
                              "frame-005.png", "small.nc", "steps.nc"}));
  for (int step = 1; step <= kSteps; ++step) {
    expectPng(contents("frame-00" + std::to_string(step) + ".png"), 400, 300);
  }
}

TEST_F(Animate, KeepsThePlottingRangeOfTheFirstStepDrawn) {
  expectQuiet(animate("all-%d.png"));
  expectQuiet(animate("from3-%d.png", {"--times", "3:"}));
  const std::string place = folder.path().string();
  HostDriven fromFirst(file("steps.nc"), {{0, 0}, {3, 2}});
  fromFirst.control().SetCurrentTime(1);
  for (int step = 1; step <= kSteps; ++step) {
    if (step > 1) fromFirst.control().AdvanceTime(1);
    const std::string frame = contents("all-" + std::to_string(step) + ".png");
    EXPECT_EQ(frame, fromFirst.png(place)) << step;
    // Drawn by itself the step has the range of its own values.
    EXPECT_EQ(frame == drawn(std::to_string(step)), step == 1) << step;
  }
  HostDriven fromThird(file("steps.nc"), {{0, 0}, {3, 2}});
  fromThird.control().SetCurrentTime(3);
  EXPECT_EQ(contents("from3-3.png"), fromThird.png(place));
  fromThird.control().AdvanceTime(1);
  EXPECT_EQ(contents("from3-4.png"), fromThird.png(place));
  EXPECT_NE(contents("from3-4.png"), contents("all-4.png"));
}

TEST_F(Animate, DrawsTheStepsAskedFor) {
  const std::pair<const char*, Names> cases[] = {
      {"2:4", {"f-2.svg", "f-3.svg", "f-4.svg"}},
      {"4:", {"f-4.svg", "f-5.svg"}},
      {":2", {"f-1.svg", "f-2.svg"}},
      {"3", {"f-3.svg"}},
      {"5:5", {"f-5.svg"}},
      {"1:5", {"f-1.svg", "f-2.svg", "f-3.svg", "f-4.svg", "f-5.svg"}},
  };
  std::filesystem::create_directory(file("out"));
  for (const auto& [times, wanted] : cases) {
    expectQuiet(animate("out/f-%d.svg", {"--times", times}));
    Names written;
    for (const auto& entry : std::filesystem::directory_iterator(file("out"))) {
      written.push_back(entry.path().filename().string());
      std::filesystem::remove(entry.path());
    }
    std::ranges::sort(written);
    EXPECT_EQ(written, wanted) << times;
  }
}

TEST_F(Animate, WritesVectorsToo) {
  expectQuiet(animate("a%d.svg", {"--times", "2"}));
  EXPECT_TRUE(contains(contents("a2.svg"), "2000-01-03 00:00:00</title>"));
  expectQuiet(animate("a%d.pdf", {"--times", "2"}));
  EXPECT_TRUE(contents("a2.pdf").starts_with("%PDF-"));
}

TEST_F(Animate, ReplacesOlderFrames) {
  std::ofstream(file("f-2.png")) << "older picture";
  expectQuiet(animate("f-%d.png"));
  expectPng(contents("f-2.png"), 400, 300);
}

TEST_F(Animate, ARangeBeyondTheLastStepIsRefusedBeforeAnythingIsDrawn) {
  for (const char* times : {"1:6", "6", "6:", "2:2147483647"}) {
    const Result result = animate("f-%d.png", {"--times", times});
    EXPECT_EQ(result.status, 1) << times;
    EXPECT_TRUE(contains(result.err, "kelvane: There is no time step ")) << result.err;
    EXPECT_TRUE(contains(result.err, ": the data set has 5.\n")) << result.err;
  }
  EXPECT_EQ(listing(), (Names{"small.nc", "steps.nc"}));
}

TEST_F(Animate, ADataSetWithoutTimeStepsIsRefused) {
  makeSteppedSet(file("steps.nc"), 0);
  const Result none = animate("f-%d.png");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "kelvane: The data set has no time steps to go through.\n");
  EXPECT_EQ(listing(), (Names{"small.nc", "steps.nc"}));
}

TEST_F(Animate, ADataSetWithoutTimeAxisIsRefused) {
  {
    support::NcMaker nc(file("steps.nc"));
    const int z = nc.dim("depth", 2), y = nc.dim("lat", 3), x = nc.dim("lon", 4);
    const int zs = nc.var("depth", NC_FLOAT, {z});
    const int ys = nc.var("lat", NC_FLOAT, {y}), xs = nc.var("lon", NC_FLOAT, {x});
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", "degrees_east");
    nc.var("temp", NC_FLOAT, {z, y, x});
    nc.put(zs, {0, 10});
    nc.put(ys, {0, 1, 2});
    nc.put(xs, {0, 1, 2, 3});
  }
  const Result result = kelvane({"animate", "steps.nc", "--path", kSteppedPath, "-o", "f-%d.png"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "kelvane: The data set has no time steps to go through.\n");
  EXPECT_EQ(listing(), (Names{"small.nc", "steps.nc"}));
}

TEST_F(Animate, NeverReplacesTheDataSet) {
  std::filesystem::rename(file("steps.nc"), file("data-4.png"));
  const std::string before = contents("data-4.png");
  const Result result =
      kelvane({"animate", "data-4.png", "--path", kSteppedPath, "-o", "data-%d.png"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "would replace the data set: data-4.png")) << result.err;
  EXPECT_EQ(contents("data-4.png"), before);
  EXPECT_EQ(listing(), (Names{"data-4.png", "small.nc"}));
}

TEST_F(Animate, AStepThatCannotBeReadEndsItAndLeavesTheFramesBefore) {
  makeSteppedSet(file("steps.nc"), 2000);
  Surroundings around;
  around.meanwhile = [this](pid_t) {
    if (!exists("f-3.png")) return false;
    std::filesystem::rename(file("steps.nc"), file("gone.nc"));
    return true;
  };
  const Result result = animate("f-%d.png", {}, around);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "No such file or directory")) << result.err;
  EXPECT_EQ(count(result.err, "kelvane: "), 1) << result.err;
  for (const std::string& name : listing()) {
    if (name.ends_with(".png")) expectPng(contents(name), 400, 300);
    EXPECT_FALSE(contains(name, ".part")) << name;
  }
  EXPECT_TRUE(exists("f-3.png"));
  EXPECT_FALSE(exists("f-2000.png"));
}

TEST_F(Animate, AFullDiskEndsItAndLeavesTheFramesBefore) {
  std::filesystem::create_symlink("/dev/full", file("f-3.png"));
  const Result result = animate("f-%d.png");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "f-3.png\": No space left on device")) << result.err;
  EXPECT_EQ(listing(), (Names{"f-1.png", "f-2.png", "f-3.png", "small.nc", "steps.nc"}));
  expectPng(contents("f-2.png"), 400, 300);
}

TEST_F(Animate, AFolderThatTakesNoFilesEndsItAtTheFirstFrame) {
  for (const char* place : {"none/", "/proc/", "steps.nc/"}) {
    const Result result = animate(place + std::string("f-%d.png"));
    EXPECT_EQ(result.status, 1) << place;
    EXPECT_TRUE(contains(result.err, place + std::string("f-1.png\": "))) << result.err;
  }
  EXPECT_EQ(listing(), (Names{"small.nc", "steps.nc"}));
}

TEST_F(Animate, NotesOnceHowManyStepsHaveNoValue) {
  const Result result = kelvane(
      {"animate", "small.nc", "--var", "salt", "--path", "350,-0.9 359,-0.9", "-o", "f-%d.png"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "kelvane: note: every value of salt is missing along this path in 2 of 2 time "
            "steps.\n");
  expectPng(contents("f-2.png"), 1000, 600);
}

TEST_F(Animate, HoldsNoMoreMemoryForMoreFrames) {
  makeSteppedSet(file("steps.nc"), 200);
  Surroundings around;
  around.environment = {{"ASAN_OPTIONS", "quarantine_size_mb=1"}};
  for (const char* output : {"f-%d.png", "f-%d.svg"}) {
    const Result few = animate(output, {"--times", "1:5"}, around);
    const Result many = animate(output, {}, around);
    expectQuiet(many);
    EXPECT_LT(many.peakKilobytes, few.peakKilobytes + 4096) << output;
  }
}

}  // namespace
}  // namespace cli_test
