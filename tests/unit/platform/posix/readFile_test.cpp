#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "platform/files.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

std::string failureOf(const std::string& path, std::size_t limit) {
  try {
    platform::readWholeFile(path, limit);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(ReadWholeFileOnPosix, FailuresNameTheFileAndTheReason) {
  const support::TempFolder folder;
  platform::writeWholeFile(folder.file("file"), "12345");
  ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
  fs::create_symlink("nothing", folder.file("dangling"));
  fs::create_symlink("round", folder.file("round"));
  struct Row {
    std::string path, reason;
  };
  const Row rows[] = {{folder.file("missing"), "No such file or directory"},
                      {folder.file("dangling"), "No such file or directory"},
                      {folder.file("round"), "Too many levels of symbolic links"},
                      {folder.file("file/below"), "Not a directory"},
                      {folder.path().string(), "Is a directory"},
                      {folder.file("pipe"), "Not a regular file"},
                      {"/dev/zero", "Not a regular file"},
                      {folder.file("file"), "File too large"},
                      {folder.file(std::string(256, 'n')), "File name too long"},
                      {std::string("file\0", 5), "Invalid argument"},
                      {"", "No such file or directory"}};
  for (const Row& row : rows) {
    const std::string shown = row.path.c_str();
    EXPECT_EQ(failureOf(row.path, 4), "Cannot read \"" + shown + "\": " + row.reason);
  }
}

TEST(ReadWholeFileOnPosix, ALinkIsFollowed) {
  const support::TempFolder folder;
  platform::writeWholeFile(folder.file("target"), "text");
  fs::create_symlink("target", folder.file("link"));
  EXPECT_EQ(platform::readWholeFile(folder.file("link"), 4), "text");
}

// The kernel's own files say that they are empty.
TEST(ReadWholeFileOnPosix, AFileThatTellsNoLengthIsReadToItsEnd) {
  const std::string path = "/proc/self/stat";
  ASSERT_EQ(fs::file_size(path), 0U);
  EXPECT_GT(platform::readWholeFile(path, 100'000).size(), 20U);
  EXPECT_EQ(failureOf(path, 10), "Cannot read \"/proc/self/stat\": File too large");
}

TEST(ReadWholeFileOnPosix, AFileThatGrowsMeanwhileIsNeverReadBeyondTheLimit) {
  const support::TempFolder folder;
  const std::string path = folder.file("growing");
  std::ofstream out(path, std::ios::binary);
  std::atomic<bool> stop{false};
  std::thread writer([&] {
    const std::string piece(10'000, 'x');
    for (int count = 0; count < 1'000 && !stop; ++count) out << piece << std::flush;
  });
  const std::size_t limit = 5'000'000;
  for (int count = 0; count < 50; ++count) {
    try {
      EXPECT_LE(platform::readWholeFile(path, limit).size(), limit);
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(std::string(error.what()), "Cannot read \"" + path + "\": File too large");
    }
  }
  stop = true;
  writer.join();
}

}  // namespace
