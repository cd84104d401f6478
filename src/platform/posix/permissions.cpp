#include "platform/posix/permissions.h"

#include <sys/xattr.h>

#include <string>

#include "platform/posix/descriptor.h"

namespace platform {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";

// No list, or a file system without lists.
bool meansNoList(int error) { return error == ENODATA || error == ENOTSUP; }

struct AccessList {
  bool exists = false;
  std::string entries;  // as the system has them; none when they cannot be read
};

AccessList accessListOf(const std::filesystem::path& path) {
  const ssize_t room = getxattr(path.c_str(), kAccessList, nullptr, 0);
  if (room < 0) return {!meansNoList(errno), {}};
  std::string entries(static_cast<std::size_t>(room), '\0');
  const ssize_t length = getxattr(path.c_str(), kAccessList, entries.data(), entries.size());
  if (length < 0) return {!meansNoList(errno), {}};
  entries.resize(static_cast<std::size_t>(length));
  return {true, entries};
}

// A new file may have a list from its folder. False when it cannot be taken away.
bool removeAccessList(int descriptor) {
  return fremovexattr(descriptor, kAccessList) == 0 || meansNoList(errno);
}

}  // namespace

// Only the superuser may give files away, and to a group of his own only its owner. Who would get
// another group's permissions by that gets those of everybody.
std::error_code takeOver(int descriptor, const std::filesystem::path& from,
                         const struct stat& old) {
  struct stat now = {};
  if (fstat(descriptor, &now) != 0) return lastError();
  const bool owner = now.st_uid == old.st_uid || fchown(descriptor, old.st_uid, gid_t(-1)) == 0;
  const bool group = now.st_gid == old.st_gid || fchown(descriptor, uid_t(-1), old.st_gid) == 0;
  mode_t mode = old.st_mode & mode_t{07777};
  if (!owner) mode &= ~mode_t{S_ISUID};
  if (!group) mode = (mode & ~mode_t{S_ISGID | S_IRWXG}) | ((mode & mode_t{S_IRWXO}) << 3);
  // With a list the group's bits limit what it grants, and are not what the group may do. Setting
  // the list sets them; without it they stay away. To another group a list says nothing.
  const AccessList list = accessListOf(from);
  if (!removeAccessList(descriptor) || list.exists) mode &= ~mode_t{S_IRWXG};
  if (fchmod(descriptor, mode) != 0) return lastError();
  if (group && !list.entries.empty()) {
    fsetxattr(descriptor, kAccessList, list.entries.data(), list.entries.size(), 0);
  }
  return {};
}

}  // namespace platform
