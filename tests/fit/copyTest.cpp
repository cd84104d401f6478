#include <csignal>
#include <filesystem>
#include <fstream>

#include "FitTest.h"

// The file that is made: where it goes, what becomes of it when something goes wrong.
namespace fit_test {
namespace {

namespace fs = std::filesystem;
using cli_test::contains;
using cli_test::Result;
using cli_test::Surroundings;

class FitCopy : public FitTest {
 protected:
  FitCopy() { MadeSet().make(in()); }
};

TEST_F(FitCopy, NeverReplacesTheDataSet) {
  const std::string before = contents("in.nc");
  fs::create_hard_link(in(), file("hard.nc"));
  fs::create_symlink("in.nc", file("soft.nc"));
  fs::create_directory(file("folder"));
  fs::create_directory_symlink(folder.path(), file("here"));
  for (const std::string name : {"in.nc", "./in.nc", "hard.nc", "soft.nc", "folder/../in.nc",
                                 "here/in.nc", "here/soft.nc"}) {
    const Result result = kelvane({"fit", "in.nc", name});
    EXPECT_EQ(result.status, 1) << name;
    EXPECT_EQ(result.err, "kelvane: The copy would replace the data set: " + name + "\n");
  }
  EXPECT_EQ(kelvane({"fit", "soft.nc", "hard.nc"}).status, 1);
  EXPECT_EQ(contents("in.nc"), before);
}

TEST_F(FitCopy, ReplacesAnotherFileAndKeepsItsPermissions) {
  std::ofstream(file("out.nc")) << "old";
  fs::permissions(out(), fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("out.nc", file("link.nc"));
  EXPECT_EQ(kelvane({"fit", "in.nc", "link.nc"}).status, 0);
  EXPECT_TRUE(fs::is_symlink(file("link.nc")));
  EXPECT_EQ(fs::status(out()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(ReadSet(out()).dims("temp"), "time depth lat lon");
}

TEST_F(FitCopy, ALinkThatLeadsNowhereIsFollowed) {
  fs::create_symlink("new.nc", file("link.nc"));
  EXPECT_EQ(kelvane({"fit", "in.nc", "link.nc"}).status, 0);
  EXPECT_TRUE(fs::is_regular_file(file("new.nc")));
}

TEST_F(FitCopy, RefusesPlacesThatAreNoFiles) {
  fs::create_directory(file("folder"));
  for (const auto& [name, reason] : std::vector<std::pair<std::string, std::string>>{
           {"folder", "Is a directory"},
           {"/dev/full", "Not a regular file"},
           {"none/out.nc", "Cannot write \"none/out.nc\": No such file"},
           {"http://127.0.0.1/x.nc", "must be a file"}}) {
    const Result result = kelvane({"fit", "in.nc", name});
    EXPECT_EQ(result.status, 1) << name;
    EXPECT_TRUE(contains(result.err, reason)) << result.err;
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(listing(), (std::vector<std::string>{"folder", "in.nc", "small.nc"}));
}

TEST_F(FitCopy, LeavesNothingWhenTheDiskIsFull) {
  std::ofstream(file("out.nc")) << "old";
  Surroundings around;
  around.fileSizeLimit = 512;
  const Result result = kelvane({"fit", "in.nc", "out.nc"}, around);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(contains(result.err, "kelvane: Cannot write ")) << result.err;
  EXPECT_EQ(contents("out.nc"), "old");
  EXPECT_EQ(listing(), (std::vector<std::string>{"in.nc", "out.nc", "small.nc"}));
}

TEST_F(FitCopy, TellsWhyADataSetCannotBeRead) {
  std::ofstream(file("text.nc")) << "no data set";
  EXPECT_EQ(kelvane({"fit", "text.nc", "out.nc"}).err,
            "kelvane: text.nc: NetCDF: Unknown file format\n");
  EXPECT_EQ(kelvane({"fit", "absent.nc", "out.nc"}).err,
            "kelvane: absent.nc: No such file or directory\n");
  const std::string whole = contents("in.nc");
  std::ofstream(file("cut.nc"), std::ios::binary) << whole.substr(0, whole.size() - 40);
  EXPECT_EQ(kelvane({"fit", "cut.nc", "out.nc"}).err,
            "kelvane: cut.nc: the file ends before its data.\n");
  EXPECT_FALSE(exists("out.nc"));
}

TEST_F(FitCopy, RefusesOptionsThatAreNone) {
  const std::vector<std::vector<std::string>> options = {
      {"--box", "1,2,3"},      {"--box", "0,10,5,10"},
      {"--box", "0,-91,5,0"},  {"--box", "0,0,400,1"},
      {"--grid", "0"},         {"--grid", "1,2,3"},
      {"--grid", "-1"},        {"--select", "run"},
      {"--select", "run=0"},   {"--select", "=1"},
      {"--times", "3:2"},      {"--vars", "a,,b"},
      {"--method", "nearest"}, {"--grid", "1", "--method", "cubic"}};
  for (const std::vector<std::string>& option : options) {
    std::vector<std::string> arguments = {"fit", "in.nc", "out.nc"};
    arguments.insert(arguments.end(), option.begin(), option.end());
    const Result result = kelvane(arguments);
    EXPECT_EQ(result.status, 2) << option[0] << " " << option[1] << result.err;
    EXPECT_TRUE(contains(result.err, "Try 'kelvane fit --help'.")) << result.err;
  }
  EXPECT_EQ(kelvane({"fit", "in.nc"}).status, 2);
  EXPECT_FALSE(exists("out.nc"));
}

TEST_F(FitCopy, TheHistoryHasTheCommand) {
  EXPECT_EQ(kelvane({"fit", "in.nc", "out.nc", "--box", "11, 0, 13, 2", "--times=1"}).status, 0);
  const std::string history = ReadSet(out()).text("", "history");
  EXPECT_TRUE(history.ends_with("Z kelvane fit in.nc out.nc --box \"11, 0, 13, 2\" --times=1"))
      << history;
}

// A set that takes a while: some 40 megabytes, to be turned and reordered.
class LargeFit : public FitTest {
 protected:
  static constexpr std::size_t kSide = 160;

  void make(std::size_t steps) {
    support::NcMaker nc(in(), NC_64BIT_OFFSET);
    const int y = nc.dim("lat", kSide), x = nc.dim("lon", kSide), z = nc.dim("depth", 20);
    const int t = nc.dim("time", steps);
    const int ys = nc.var("lat", NC_DOUBLE, {y}), xs = nc.var("lon", NC_DOUBLE, {x});
    const int zs = nc.var("depth", NC_DOUBLE, {z}), ts = nc.var("time", NC_DOUBLE, {t});
    const int temp = nc.var("temp", NC_FLOAT, {y, t, x, z});
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", "degrees_east");
    std::vector<double> down(kSide), up(kSide), levels(20), days(steps);
    for (std::size_t at = 0; at < kSide; ++at) {
      up[at] = static_cast<double>(at) / 4;
      down[at] = 60 - up[at];
    }
    for (std::size_t at = 0; at < 20; ++at) levels[at] = 200 - 10 * static_cast<double>(at);
    for (std::size_t at = 0; at < steps; ++at) days[at] = static_cast<double>(at);
    nc.put(ys, down);
    nc.put(xs, up);
    nc.put(zs, levels);
    nc.put(ts, days);
    const std::size_t row = steps * kSide * 20;
    for (std::size_t j = 0; j < kSide; ++j) {
      std::vector<double> values(row);
      for (std::size_t at = 0; at < row; ++at)
        values[at] = static_cast<double>((j * row + at) % 9999);
      nc.putSlab(temp, {j, 0, 0, 0}, {1, steps, kSide, 20}, values);
    }
    nc.close();
  }
};

TEST_F(LargeFit, TakesNoMoreMemoryForMoreSteps) {
  make(2);
  const Result few = kelvane({"fit", "in.nc", "out.nc"});
  EXPECT_EQ(few.status, 0) << few.err;
  fs::remove(in());
  make(40);
  const Result many = kelvane({"fit", "in.nc", "out.nc"});
  EXPECT_EQ(many.status, 0) << many.err;
  EXPECT_GT(fs::file_size(out()), 80000000U);
#ifndef __SANITIZE_ADDRESS__
  EXPECT_LT(many.peakKilobytes, few.peakKilobytes + 20000);
#endif
  const ReadSet copy(out());
  const std::string dims = copy.dims("temp");
  EXPECT_EQ(dims, "time depth lat lon");
  const std::vector<double> values = copy.values("temp");
  const std::size_t row = std::size_t{40} * kSide * 20;
  std::size_t at = 0, wrong = 0;
  for (std::size_t t = 0; t < 40; ++t) {
    for (std::size_t k = 0; k < 20; ++k) {
      for (std::size_t j = 0; j < kSide; ++j) {
        for (std::size_t i = 0; i < kSide; ++i, ++at) {
          const std::size_t from = (kSide - 1 - j) * row + (t * kSide + i) * 20 + (19 - k);
          if (values[at] != static_cast<double>(from % 9999)) ++wrong;
        }
      }
    }
  }
  EXPECT_EQ(wrong, 0U);
}

TEST_F(LargeFit, LeavesNothingWhenASignalEndsIt) {
  make(20);
  std::ofstream(file("out.nc")) << "old";
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    Surroundings around;
    around.meanwhile = [&](pid_t process) {
      for (const std::string& name : listing()) {
        if (name.starts_with(".kelvane-")) return ::kill(process, number) == 0;
      }
      return false;
    };
    const Result result = kelvane({"fit", "in.nc", "out.nc"}, around);
    EXPECT_EQ(result.status, 128 + number);
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(listing(), (std::vector<std::string>{"in.nc", "out.nc", "small.nc"}));
    EXPECT_EQ(contents("out.nc"), "old");
  }
}

TEST_F(LargeFit, ShowsItsProgressOnATerminal) {
  make(20);
  Surroundings terminal;
  terminal.terminalColumns = 80;
  terminal.environment = {{"TERM", "xterm"}};
  const Result result = kelvane({"fit", "in.nc", "out.nc"}, terminal);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(contains(result.out, "%  block 1 of ")) << result.out;
  EXPECT_TRUE(contains(result.out, "can be drawn: temp")) << result.out;
}

}  // namespace
}  // namespace fit_test
