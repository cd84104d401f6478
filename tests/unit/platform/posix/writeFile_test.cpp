#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/files.h"
#include "support/TempFolder.h"
#include "unit/platform/sharedFile.h"

namespace {

namespace fs = std::filesystem;
using support::TempFolder;

// What the library asked of the system, and what the system is to answer.
struct Calls {
  std::vector<std::string> made;
  std::string renamed;
  int fsyncError = 0, folderError = 0, renameError = 0;
};
Calls* calls = nullptr;

// Takes down the calls for the extent of a test.
class CallRecorder {
 public:
  CallRecorder() { calls = &recorded; }
  ~CallRecorder() { calls = nullptr; }
  CallRecorder(const CallRecorder&) = delete;
  CallRecorder& operator=(const CallRecorder&) = delete;
  Calls recorded;
};

std::string contentsOf(const std::string& path) {
  return platform::readWholeFile(path, 10'000'000);
}

std::string failureOf(const std::string& path) {
  try {
    platform::writeWholeFile(path, "new");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

struct stat factsOf(const std::string& path) {
  struct stat facts = {};
  EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
  return facts;
}

mode_t modeOf(const std::string& path) { return factsOf(path).st_mode & mode_t{07777}; }

}  // namespace

// The program's own functions come before the system's.
extern "C" int fsync(int descriptor) {
  struct stat facts = {};
  int error = 0;
  if (calls != nullptr && fstat(descriptor, &facts) == 0) {
    const bool folder = S_ISDIR(facts.st_mode);
    calls->made.push_back(folder ? "force folder" : "force file");
    error = folder ? calls->folderError : calls->fsyncError;
    // An interrupted call is made again.
    if (error == EINTR) (folder ? calls->folderError : calls->fsyncError) = 0;
  }
  errno = error;
  return error == 0 ? fdatasync(descriptor) : -1;
}

extern "C" int rename(const char* from, const char* to) noexcept {
  static const auto real =
      reinterpret_cast<int (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "rename"));
  if (calls != nullptr) {
    calls->made.emplace_back("rename");
    calls->renamed = from;
  }
  if (calls == nullptr || calls->renameError == 0) return real(from, to);
  errno = calls->renameError;
  return -1;
}

namespace {

TEST(WriteWholeFileOnPosix, IsOnTheDiskBeforeItHasItsNameAndItsNameAfterwards) {
  const TempFolder folder;
  for (const char* what : {"new", "replaced"}) {
    CallRecorder recorder;
    platform::writeWholeFile(folder.file("file"), what);
    EXPECT_EQ(recorder.recorded.made,
              (std::vector<std::string>{"force file", "rename", "force folder"}));
  }
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  CallRecorder recorder;
  platform::writeWholeFile("relative", "new");
  fs::current_path(before);
  EXPECT_EQ(recorder.recorded.made,
            (std::vector<std::string>{"force file", "rename", "force folder"}));
}

TEST(WriteWholeFileOnPosix, LeavesTheNameToTheSystemWhenThatIsEnough) {
  const TempFolder folder;
  CallRecorder recorder;
  platform::writeWholeFile(folder.file("file"), "new", platform::NameForced::InTime);
  EXPECT_EQ(recorder.recorded.made, (std::vector<std::string>{"force file", "rename"}));
}

TEST(WriteWholeFileOnPosix, AFailureOfAnyStepLeavesTheOldFileAlone) {
  struct Row {
    int fsyncError, folderError, renameError;
    const char* reason;  // none when the step does not matter
  };
  const Row rows[] = {{EIO, 0, 0, "Input/output error"},
                      {ENOSPC, 0, 0, "No space left on device"},
                      {EDQUOT, 0, 0, "Disk quota exceeded"},
                      {0, 0, EBUSY, "Device or resource busy"},
                      {0, 0, EROFS, "Read-only file system"},
                      {EINTR, 0, 0, nullptr},
                      {0, EINTR, 0, nullptr},
                      {EINVAL, 0, 0, nullptr},
                      {ENOTSUP, 0, 0, nullptr},
                      {0, EIO, 0, nullptr}};
  for (const Row& row : rows) {
    const TempFolder folder;
    const std::string path = folder.file("file");
    platform::writeWholeFile(path, "old");
    CallRecorder recorder;
    recorder.recorded.fsyncError = row.fsyncError;
    recorder.recorded.folderError = row.folderError;
    recorder.recorded.renameError = row.renameError;
    const std::string expected =
        row.reason == nullptr ? "" : "Cannot write \"" + path + "\": " + row.reason;
    EXPECT_EQ(failureOf(path), expected);
    EXPECT_EQ(contentsOf(path), row.reason == nullptr ? "new" : "old") << expected;
    EXPECT_EQ(folder.entries(), 1) << expected;
  }
}

TEST(WriteWholeFileOnPosix, AWriteThatEndsInTheMiddleLeavesTheOldFileAlone) {
  const TempFolder folder;
  const std::string path = folder.file("file");
  platform::writeWholeFile(path, "old");
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto action = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small = {100'000, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  std::string failure;
  try {
    platform::writeWholeFile(path, std::string(1'000'000, 'x'));
  } catch (const std::runtime_error& error) {
    failure = error.what();
  }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, action);
  EXPECT_EQ(failure, "Cannot write \"" + path + "\": File too large");
  EXPECT_EQ(contentsOf(path), "old");
  EXPECT_EQ(folder.entries(), 1);
}

TEST(WriteWholeFileOnPosix, LinksAreFollowedToTheirEnd) {
  const TempFolder folder;
  fs::create_directory(folder.file("below"));
  const std::string target = folder.file("below/target");
  fs::create_symlink("below/middle", folder.file("link"));
  fs::create_symlink("target", folder.file("below/middle"));
  for (const char* text : {"through a link to nothing", "through a link to a file"}) {
    platform::writeWholeFile(folder.file("link"), text);
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    EXPECT_TRUE(fs::is_symlink(folder.file("below/middle")));
    EXPECT_FALSE(fs::is_symlink(target));
    EXPECT_EQ(contentsOf(target), text);
  }
  fs::create_symlink(target, folder.file("absolute"));
  platform::writeWholeFile(folder.file("absolute"), "through an absolute link");
  EXPECT_EQ(contentsOf(target), "through an absolute link");
}

TEST(WriteWholeFileOnPosix, AReplacedFileKeepsItsOwnerGroupAndPermissions) {
  const TempFolder folder;
  const std::string path = folder.file("private.png");
  platform::writeWholeFile(path, "old");
  // Any owner for the superuser; for others one of their groups.
  std::vector<gid_t> groups(static_cast<std::size_t>(std::max(getgroups(0, nullptr), 0)));
  getgroups(static_cast<int>(groups.size()), groups.data());
  const bool superuser = geteuid() == 0;
  const uid_t owner = superuser ? 12'345 : geteuid();
  const gid_t group = superuser ? 23'456 : groups.empty() ? getegid() : groups.back();
  ASSERT_EQ(chown(path.c_str(), owner, group), 0);
  for (const mode_t mode : {0600U, 0644U, 0664U, 0777U, 0606U, 0200U}) {
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
    platform::writeWholeFile(path, "new");
    EXPECT_EQ(modeOf(path), mode);
    EXPECT_EQ(factsOf(path).st_uid, owner);
    EXPECT_EQ(factsOf(path).st_gid, group);
  }
}

TEST(WriteWholeFileOnPosix, ANewFileHasThePermissionsThatTheUserWants) {
  const TempFolder folder;
  for (const mode_t mask : {0022U, 0077U, 0002U}) {
    const std::string path = folder.file(std::to_string(mask));
    const mode_t before = umask(mask);
    platform::writeWholeFile(path, "new");
    umask(before);
    EXPECT_EQ(modeOf(path), 0666U & ~mask);
  }
}

TEST(WriteWholeFileOnPosix, WhatAKilledProgramLeftIsInNobodysWay) {
  const TempFolder folder;
  CallRecorder recorder;
  platform::writeWholeFile(folder.file("file"), "old");
  // Parts are numbered: .kelvane-PROCESS-NUMBER.part
  const std::string part = recorder.recorded.renamed;
  const std::size_t number = part.rfind('-') + 1;
  const int last = std::stoi(part.substr(number));
  for (const int left : {last + 1, last + 2, last + 3}) {
    std::ofstream(part.substr(0, number) + std::to_string(left) + ".part") << "left";
  }
  platform::writeWholeFile(folder.file("file"), "new");
  EXPECT_EQ(contentsOf(folder.file("file")), "new");
  EXPECT_EQ(recorder.recorded.renamed, part.substr(0, number) + std::to_string(last + 4) + ".part");
  EXPECT_EQ(folder.entries(), 4);
}

TEST(WriteWholeFileOnPosix, WritersAndReadersOfOneFileNeverMix) {
  const TempFolder folder;
  const support::SharedFile result = support::shareFile(folder.file("shared"), 40);
  EXPECT_EQ(result.written, 80);
  EXPECT_GT(result.read, 1);
  EXPECT_EQ(result.mixed, 0);
  EXPECT_EQ(result.writeFailures, std::vector<std::string>());
  EXPECT_EQ(result.readFailures, std::vector<std::string>());
  EXPECT_EQ(folder.entries(), 1);
}

TEST(WriteWholeFileOnPosix, APipeIsWrittenStraight) {
  const TempFolder folder;
  const std::string path = folder.file("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  const std::string large(300'000, 'x');
  std::string read;
  std::thread reader([&] {
    FILE* pipe = std::fopen(path.c_str(), "rb");
    for (int letter = std::fgetc(pipe); letter != EOF; letter = std::fgetc(pipe)) {
      read += static_cast<char>(letter);
    }
    std::fclose(pipe);
  });
  platform::writeWholeFile(path, large);
  reader.join();
  EXPECT_EQ(read, large);
  EXPECT_TRUE(fs::is_fifo(path));
  EXPECT_EQ(folder.entries(), 1);
}

TEST(WriteWholeFileOnPosix, FailuresNameTheFileAndTheReason) {
  const TempFolder folder;
  platform::writeWholeFile(folder.file("file"), "old");
  platform::writeWholeFile(folder.file("protected"), "old");
  ASSERT_EQ(chmod(folder.file("protected").c_str(), 0444), 0);
  fs::create_symlink("round", folder.file("round"));
  struct Row {
    std::string path, reason;
  };
  const Row rows[] = {{folder.file("no/such/folder.png"), "No such file or directory"},
                      {folder.file("file/below.png"), "Not a directory"},
                      {folder.path().string(), "Is a directory"},
                      {folder.file("protected"), "Permission denied"},
                      {folder.file("round"), "Too many levels of symbolic links"},
                      {folder.file(std::string(256, 'n')), "File name too long"},
                      {"/proc/kelvane.kew", "No such file or directory"},
                      {"/dev/full", "No space left on device"},
                      {"", "No such file or directory"}};
  for (const Row& row : rows) {
    EXPECT_EQ(failureOf(row.path), "Cannot write \"" + row.path + "\": " + row.reason);
  }
  EXPECT_EQ(contentsOf(folder.file("file")), "old");
  EXPECT_EQ(contentsOf(folder.file("protected")), "old");
  EXPECT_EQ(folder.entries(), 3);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

}  // namespace
