#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "platform/files.h"
#include "support/TempFolder.h"

namespace {

// What the system is to answer when a list is set on an open file, or the file is given away; 0
// lets it be done.
int setError = 0, chownError = 0;

}  // namespace

// The program's own functions come before the system's.
extern "C" int fsetxattr(int descriptor, const char* name, const void* value, std::size_t size,
                         int flags) noexcept {
  static const auto real =
      reinterpret_cast<int (*)(int, const char*, const void*, std::size_t, int)>(
          dlsym(RTLD_NEXT, "fsetxattr"));
  if (setError == 0) return real(descriptor, name, value, size, flags);
  errno = setError;
  return -1;
}

extern "C" int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
  static const auto real = reinterpret_cast<int (*)(int, uid_t, gid_t)>(dlsym(RTLD_NEXT, "fchown"));
  if (chownError == 0) return real(descriptor, owner, group);
  errno = chownError;
  return -1;
}

namespace {

using support::TempFolder;

constexpr const char* kAccess = "system.posix_acl_access";

void append(std::string& bytes, std::uint32_t number, int size) {
  for (int at = 0; at < size; ++at) bytes += static_cast<char>(number >> (8 * at) & 0xFF);
}

// The kernel's form of a list: version 2, then tag, permissions and user of each entry. The owner
// and the user 12,345 may read and write, the group and everybody nothing.
std::string listWithAnotherUser() {
  constexpr std::uint32_t kNobody = 0xFFFFFFFF;
  struct Entry {
    std::uint32_t tag, permissions, user;
  };
  std::string list;
  append(list, 2, 4);
  const Entry entries[] = {{0x01, 6, kNobody},
                           {0x02, 6, 12'345},
                           {0x04, 0, kNobody},
                           {0x10, 6, kNobody},
                           {0x20, 0, kNobody}};
  for (const Entry& entry : entries) {
    append(list, entry.tag, 2);
    append(list, entry.permissions, 2);
    append(list, entry.user, 4);
  }
  return list;
}

// Some file systems have no lists; then that is what the test is about.
bool setList(const std::string& path, const char* kind) {
  const std::string list = listWithAnotherUser();
  if (setxattr(path.c_str(), kind, list.data(), list.size(), 0) == 0) return true;
  EXPECT_EQ(errno, ENOTSUP) << path;
  return false;
}

std::string listOf(const std::string& path) {
  std::string list(1'000, '\0');
  const ssize_t length = getxattr(path.c_str(), kAccess, list.data(), list.size());
  list.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return list;
}

mode_t modeOf(const std::string& path) {
  struct stat facts = {};
  EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
  return facts.st_mode & mode_t{07777};
}

TEST(AccessList, OfAReplacedFileIsKept) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0600), 0);
  const bool lists = setList(path, kAccess);
  ASSERT_EQ(modeOf(path), lists ? 0660U : 0600U);
  platform::writeWholeFile(path, "new");
  EXPECT_EQ(platform::readWholeFile(path, 100), "new");
  EXPECT_EQ(listOf(path), lists ? listWithAnotherUser() : "");
  EXPECT_EQ(modeOf(path), lists ? 0660U : 0600U);
}

// What were the limits of the list would be the permissions of the group.
TEST(AccessList, ThatCannotBeSetGivesTheGroupNothing) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  for (const int error : {ENOTSUP, EPERM, ENOSPC}) {
    platform::writeWholeFile(path, "old");
    ASSERT_EQ(chmod(path.c_str(), 0600), 0);
    setList(path, kAccess);
    setError = error;
    platform::writeWholeFile(path, "new");
    setError = 0;
    EXPECT_EQ(platform::readWholeFile(path, 100), "new");
    EXPECT_EQ(listOf(path), "");
    EXPECT_EQ(modeOf(path), 0600U);
  }
}

// A list says what the group of its file may do.
TEST(AccessList, OfAFileOfAnotherGroupIsLeft) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew");
  platform::writeWholeFile(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0600), 0);
  // Only the superuser can be sure to have another group to give.
  const bool anotherGroup = chown(path.c_str(), uid_t(-1), 23'456) == 0;
  ASSERT_EQ(anotherGroup, geteuid() == 0);
  const bool lists = setList(path, kAccess);
  chownError = EPERM;
  platform::writeWholeFile(path, "new");
  chownError = 0;
  EXPECT_EQ(platform::readWholeFile(path, 100), "new");
  EXPECT_EQ(listOf(path), lists && !anotherGroup ? listWithAnotherUser() : "");
  EXPECT_EQ(modeOf(path), lists && !anotherGroup ? 0660U : 0600U);
}

TEST(AccessList, OfTheFolderIsNotGivenToAReplacedFile) {
  const TempFolder folder;
  const std::string path = folder.file("key.kew"), fresh = folder.file("fresh");
  platform::writeWholeFile(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0664), 0);
  const bool lists = setList(folder.path().string(), "system.posix_acl_default");
  platform::writeWholeFile(path, "new");
  platform::writeWholeFile(fresh, "new");
  EXPECT_EQ(listOf(path), "");
  EXPECT_EQ(modeOf(path), 0664U);
  EXPECT_EQ(listOf(fresh), lists ? listWithAnotherUser() : "");
}

}  // namespace
