#include <algorithm>
#include <csignal>
#include <filesystem>

#include "CliTest.h"
#include "pngFile.h"
#include "steppedSet.h"

// What is left of an animation that a signal ends, and what a terminal shows of it.
namespace cli_test {
namespace {

constexpr int kSteps = 1000;
const std::vector<std::string> kAnimate = {"animate", "steps.nc", "--path", kSteppedPath,
                                           "--size",  "400x300",  "-o",     "f-%04d.png"};

class Interruption : public CliTest {
 protected:
  Interruption() { makeSteppedSet(file("steps.nc"), kSteps); }

  // Sends the signal some time after the frame was begun.
  Surroundings interruptAfter(const std::string& frame, int number) const {
    Surroundings around;
    around.meanwhile = [this, frame, number](pid_t process) {
      return exists(frame) && ::kill(process, number) == 0;
    };
    return around;
  }
  // Nothing but whole pictures, some but not all; removes them.
  void expectWholeFrames() const {
    std::size_t frames = 0;
    for (const std::string& name : listing()) {
      if (name == "small.nc" || name == "steps.nc") continue;
      ASSERT_TRUE(name.starts_with("f-") && name.ends_with(".png")) << name;
      expectPng(contents(name), 400, 300);
      std::filesystem::remove(file(name));
      ++frames;
    }
    EXPECT_GT(frames, 1U);
    EXPECT_LT(frames, static_cast<std::size_t>(kSteps));
  }
};

TEST_F(Interruption, LeavesWholeFramesOnlyAndEndsByTheSignal) {
  // Different frames, so that the signals come at different moments of the work.
  for (const char* frame : {"f-0002.png", "f-0003.png", "f-0005.png", "f-0011.png"}) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
      const Result result = kelvane(kAnimate, interruptAfter(frame, number));
      EXPECT_EQ(result.status, 128 + number);
      EXPECT_EQ(result.err, "");
      expectWholeFrames();
    }
  }
}

class Progress : public Interruption {
 protected:
  static constexpr const char* kClear = "\r\x1b[K";

  static Surroundings terminal(Surroundings around = {}) {
    around.terminalColumns = 80;
    if (around.environment.empty()) around.environment = {{"TERM", "xterm"}};
    return around;
  }
  Result animate(const std::string& times, const Surroundings& around) const {
    std::vector<std::string> arguments = kAnimate;
    arguments.insert(arguments.end(), {"--times", times});
    return kelvane(arguments, around);
  }
};

TEST_F(Progress, IsShownOnATerminalAndClearedAtTheEnd) {
  const Result result = animate("1:100", terminal());
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(contains(result.out, "]   1%  frame 1 of 100")) << result.out;
  EXPECT_TRUE(contains(result.out, "]  ")) << result.out;
  EXPECT_TRUE(contains(result.out, " left")) << result.out;
  EXPECT_TRUE(result.out.starts_with(kClear));
  EXPECT_TRUE(result.out.ends_with(kClear));
  EXPECT_FALSE(contains(result.out, "\n"));
}

TEST_F(Progress, IsNotShownInAPipeOrOnADumbTerminal) {
  const Result piped = animate("1:20", {});
  EXPECT_EQ(piped.status, 0);
  EXPECT_EQ(piped.out + piped.err, "");
  for (const char* kind : {"dumb", ""}) {
    Surroundings around;
    around.environment = {{"TERM", kind}};
    const Result dumb = animate("1:20", terminal(around));
    EXPECT_EQ(dumb.status, 0);
    EXPECT_EQ(dumb.out, "");
  }
}

TEST_F(Progress, IsClearedBeforeAFailureIsReported) {
  std::filesystem::create_symlink("/dev/full", file("f-0007.png"));
  const Result result = animate("1:20", terminal());
  EXPECT_EQ(result.status, 1);
  const std::size_t reason = result.out.find("kelvane: Cannot write");
  ASSERT_NE(reason, std::string::npos) << result.out;
  EXPECT_EQ(result.out.substr(reason - 4, 4), kClear);
}

TEST_F(Progress, IsClearedWhenASignalEndsIt) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const Result result = kelvane(kAnimate, terminal(interruptAfter("f-0004.png", number)));
    EXPECT_EQ(result.status, 128 + number);
    EXPECT_TRUE(contains(result.out, "frame 1 of 1000")) << result.out;
    EXPECT_TRUE(result.out.ends_with(kClear)) << result.out;
    expectWholeFrames();
  }
}

TEST_F(Progress, AnIgnoredSignalStaysIgnored) {
  std::vector<std::string> command = {"/bin/sh", "-c", "trap '' HUP; exec \"$@\"", "sh",
                                      KELVANE_PROGRAM};
  command.insert(command.end(), kAnimate.begin(), kAnimate.end());
  command.insert(command.end(), {"--times", "1:40"});
  Surroundings around = terminal(interruptAfter("f-0004.png", SIGHUP));
  around.folder = folder.path().string();
  const Result result = run(command, around);
  EXPECT_EQ(result.status, 0) << result.out;
  EXPECT_TRUE(exists("f-0040.png"));
}

}  // namespace
}  // namespace cli_test
