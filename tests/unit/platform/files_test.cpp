#include "platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string failureOf(const std::string& path) {
  try {
    platform::writeWholeFile(path, "new");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

std::ptrdiff_t filesIn(const support::TempFolder& folder) {
  return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
}

TEST(WholeFile, WritesAndReplacesLeavingNothingBeside) {
  const support::TempFolder folder;
  const std::string path = folder.file("picture \xC3\xA9.png");
  platform::writeWholeFile(path, "first");
  EXPECT_EQ(contentsOf(path), "first");
  const std::string large(5'000'000, 'x');
  platform::writeWholeFile(path, large);
  EXPECT_EQ(contentsOf(path), large);
  platform::writeWholeFile(path, "");
  EXPECT_EQ(contentsOf(path), "");
  EXPECT_EQ(filesIn(folder), 1);
}

TEST(WholeFile, ANameOfTheGreatestLengthIsAccepted) {
  const support::TempFolder folder;
  const std::string path = folder.file(std::string(255, 'n'));
  platform::writeWholeFile(path, "text");
  EXPECT_EQ(contentsOf(path), "text");
}

TEST(WholeFile, ALinkIsFollowed) {
  const support::TempFolder folder;
  const std::string target = folder.file("target"), link = folder.file("link");
  platform::writeWholeFile(target, "old");
  fs::create_symlink("target", link);
  platform::writeWholeFile(link, "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contentsOf(target), "new");
}

TEST(WholeFile, AReplacedFileKeepsItsPermissions) {
  const support::TempFolder folder;
  const std::string path = folder.file("private.png");
  platform::writeWholeFile(path, "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  platform::writeWholeFile(path, "new");
  EXPECT_EQ(contentsOf(path), "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(WholeFile, FailuresNameTheFileAndTheReason) {
  const support::TempFolder folder;
  platform::writeWholeFile(folder.file("file"), "old");
  struct Row {
    std::string path, reason;
  };
  const Row rows[] = {{folder.file("no/such/folder.png"), "No such file or directory"},
                      {folder.file("file/below.png"), "Not a directory"},
                      {folder.path().string(), "Is a directory"},
                      {folder.file(std::string(256, 'n')), "File name too long"},
                      {"", "No such file or directory"}};
  for (const Row& row : rows) {
    EXPECT_EQ(failureOf(row.path), "Cannot write \"" + row.path + "\": " + row.reason);
  }
  EXPECT_EQ(contentsOf(folder.file("file")), "old");
  EXPECT_EQ(filesIn(folder), 1);
}

TEST(WholeFile, AFullDeviceIsAFailure) {
  ASSERT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_EQ(failureOf("/dev/full"), "Cannot write \"/dev/full\": No space left on device");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

}  // namespace
