#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "Subprocess.h"
#include "colorkey/kewListing.h"
#include "platform/WriteTurn.h"
#include "platform/files.h"
#include "support/TempFolder.h"

namespace {

using support::TempFolder;

constexpr int kSaves = 200;

// Names of the variables in a file, each behind the number of its divisions.
std::vector<std::string> keysIn(const std::string& file) {
  std::vector<std::string> keys;
  for (const ModColor::KewVariable& variable : ModColor::ListKewFile(file)) {
    keys.push_back(std::to_string(variable.divisions.size()) + " " + variable.name);
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

constexpr std::chrono::milliseconds kShort(100), kLong(60'000);

std::string failureOfTurn(const std::string& path, std::chrono::milliseconds patience = kShort) {
  try {
    const platform::WriteTurn turn(path, patience);
    return "";
  } catch (const std::runtime_error& failure) {
    return failure.what();
  }
}

TEST(SavingKeysAtOnce, LosesNoneAndTheFileIsWholeAtEveryMoment) {
  const TempFolder folder;
  const std::string file = folder.file("set.KEW");
  std::atomic<int> running = 0;
  std::vector<cli_test::Result> results(3);
  std::vector<std::jthread> savers;
  const char* const variables[] = {"temp", "salt", "u"};
  for (std::size_t i = 0; i < results.size(); ++i) {
    ++running;
    savers.emplace_back([&, i] {
      results[i] = cli_test::run(
          {KEY_SAVER_PROGRAM, folder.path().string(), variables[i], std::to_string(kSaves)});
      --running;
    });
  }
  int looks = 0;
  std::size_t most = 0;
  while (running > 0) {
    if (!platform::fileExists(file)) continue;
    ++looks;
    // Throws for what is no whole document.
    std::vector<std::string> keys;
    ASSERT_NO_THROW(keys = keysIn(file));
    EXPECT_GE(keys.size(), most) << "a key is gone";
    most = keys.size();
  }
  for (std::jthread& saver : savers) saver.join();
  for (const cli_test::Result& result : results) EXPECT_EQ(result.status, 0) << result.out;
  EXPECT_GT(looks, 10);
  EXPECT_EQ(keysIn(file), (std::vector<std::string>{"20 salt", "20 temp", "20 u"}));
  EXPECT_EQ(folder.entries(), 1);
}

TEST(WriteTurn, LeavesNothingBehindAndCanBeHadAgain) {
  const TempFolder folder;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(failureOfTurn(folder.file("none.KEW")), "");
  EXPECT_EQ(folder.entries(), 0);
}

TEST(WriteTurn, WaitsForAnotherOneButNotForEver) {
  const TempFolder folder;
  const std::string file = folder.file("set.KEW");
  const platform::WriteTurn turn(file);
  std::string failure;
  std::jthread other([&] { failure = failureOfTurn(file); });
  other.join();
  EXPECT_EQ(failure, "Cannot write \"" + file + "\": Another program is writing it");
}

TEST(WriteTurn, GoesToTheNextOneWhenItsHolderEnds) {
  const TempFolder folder;
  const std::string file = folder.file("set.KEW");
  std::string failure;
  std::jthread other;
  {
    const platform::WriteTurn turn(file);
    other = std::jthread([&] { failure = failureOfTurn(file, kLong); });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  other.join();
  EXPECT_EQ(failure, "");
}

TEST(WriteTurn, IsTheSameForEveryNameOfAFile) {
  const TempFolder folder, links;
  std::filesystem::create_symlink(folder.path() / "set.KEW", links.path() / "link.KEW");
  std::filesystem::create_directory_symlink(folder.path(), links.path() / "folder");
  std::ofstream(folder.path() / "set.KEW") << "x";
  const int held = open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  std::vector<std::string> failures(3);
  std::vector<std::jthread> others;
  const std::string names[] = {links.file("link.KEW"), links.file("folder/set.KEW"),
                               folder.file("./set.KEW")};
  for (std::size_t i = 0; i < failures.size(); ++i) {
    others.emplace_back([&, i] { failures[i] = failureOfTurn(names[i]); });
  }
  for (std::jthread& other : others) other.join();
  close(held);
  for (const std::string& failure : failures) EXPECT_NE(failure, "");
}

}  // namespace
