#include "platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using support::TempFolder;

std::string contentsOf(const std::string& path) {
  std::ifstream file(support::pathOf(path), std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST(FileExists, IsTrueForWhatIsThereAndNoFolder) {
  const TempFolder folder;
  platform::writeWholeFile(folder.file("file \xC3\xA9"), "");
  EXPECT_TRUE(platform::fileExists(folder.file("file \xC3\xA9")));
  EXPECT_FALSE(platform::fileExists(folder.file("missing")));
  EXPECT_FALSE(platform::fileExists(folder.file("no/such/folder")));
  EXPECT_FALSE(platform::fileExists(support::nameOf(folder.path())));
  EXPECT_FALSE(platform::fileExists(""));
  EXPECT_FALSE(platform::fileExists(folder.file("file \xC3\xA9") + std::string("\0", 1)));
}

TEST(WriteWholeFile, WritesAndReplacesLeavingNothingBeside) {
  const TempFolder folder;
  const std::string path = folder.file("picture \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8C\x8A.png");
  const std::string everyByte("\0\r\n\x1A\xFF", 5);
  for (const std::string& contents :
       {std::string("first"), std::string(5'000'000, 'x'), everyByte, std::string()}) {
    platform::writeWholeFile(path, contents);
    EXPECT_EQ(contentsOf(path), contents);
    EXPECT_EQ(folder.entries(), 1);
  }
}

TEST(WriteWholeFile, ANameOfTheGreatestLengthIsAccepted) {
  const TempFolder folder;
  const std::string path = folder.file(std::string(255, 'n'));
  for (const char* text : {"new", "replaced"}) {
    platform::writeWholeFile(path, text);
    EXPECT_EQ(platform::readWholeFile(path, 100), text);
  }
  EXPECT_TRUE(platform::fileExists(path));
}

// The new contents are another file of the same name.
TEST(WriteWholeFile, AnotherHardLinkKeepsTheOldContents) {
  const TempFolder folder;
  platform::writeWholeFile(folder.file("file"), "old");
  fs::create_hard_link(support::pathOf(folder.file("file")), support::pathOf(folder.file("other")));
  platform::writeWholeFile(folder.file("file"), "new");
  EXPECT_EQ(contentsOf(folder.file("file")), "new");
  EXPECT_EQ(contentsOf(folder.file("other")), "old");
  EXPECT_EQ(folder.entries(), 2);
}

TEST(WriteWholeFile, AWriteProtectedFileIsRefused) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  const auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(support::pathOf(path), writing, fs::perm_options::remove);
  EXPECT_THROW(platform::writeWholeFile(path, "new"), std::runtime_error);
  EXPECT_EQ(contentsOf(path), "old");
  EXPECT_EQ(folder.entries(), 1);
  fs::permissions(support::pathOf(path), writing, fs::perm_options::add);
  platform::writeWholeFile(path, "new");
  EXPECT_EQ(contentsOf(path), "new");
}

TEST(WriteWholeFile, AFailureNamesTheFileAndLeavesWhatWasThere) {
  const TempFolder folder;
  platform::writeWholeFile(folder.file("file"), "old");
  const std::string withZero = folder.file("file") + std::string("\0x", 2);
  for (const std::string& path : {folder.file("no/such/folder.png"), folder.file("file/below.png"),
                                  support::nameOf(folder.path()),
                                  folder.file(std::string(256, 'n')), std::string(), withZero}) {
    const std::string start = "Cannot write \"" + std::string(path.c_str()) + "\": ";
    try {
      platform::writeWholeFile(path, "new");
      ADD_FAILURE() << path;
    } catch (const std::runtime_error& error) {
      const std::string text = error.what();
      EXPECT_EQ(text.rfind(start, 0), 0U) << text;
      EXPECT_GT(text.size(), start.size());
    }
  }
  EXPECT_EQ(contentsOf(folder.file("file")), "old");
  EXPECT_EQ(folder.entries(), 1);
}

}  // namespace
