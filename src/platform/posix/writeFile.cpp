#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>

#include "platform/files.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/permissions.h"
#include "platform/wholeFile.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path, const std::error_code& why) {
  failFile("write", path, why.message());
}

// An error of the file system, or none.
std::error_code writeAll(int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = write(descriptor, contents.data(), contents.size());
    if (written > 0) {
      contents.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0) {
      return std::make_error_code(std::errc::io_error);
    } else if (errno != EINTR) {
      return lastError();
    }
  }
  return {};
}

// Forces a file or folder to the disk. Some file systems have nothing to force.
std::error_code forceToDisk(int descriptor) {
  while (fsync(descriptor) != 0) {
    if (errno == EINVAL || errno == ENOTSUP) return {};
    if (errno != EINTR) return lastError();
  }
  return {};
}

std::error_code writeStraight(const fs::path& target, std::string_view contents) {
  Descriptor file(open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
  if (!file.isOpen()) return lastError();
  const std::error_code failure = writeAll(file.number(), contents);
  const std::error_code closing = file.close();
  return failure ? failure : closing;
}

// Where a name leads to over its links, whether anything is there or not.
fs::path followLinks(const std::string& path) {
  constexpr int kMostLinks = 40;
  fs::path target = path;
  std::error_code failure;
  for (int count = 0; fs::is_symlink(fs::symlink_status(target, failure)); ++count) {
    if (count == kMostLinks) {
      fail(path, std::make_error_code(std::errc::too_many_symbolic_link_levels));
    }
    const fs::path next = fs::read_symlink(target, failure);
    if (failure) fail(path, failure);
    target = target.parent_path() / next;
  }
  return target;
}

// The superuser may write everything; what nobody may write is meant to stay as it is all the same.
void checkWritable(const std::string& path, const fs::path& target, const struct stat& facts) {
  if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) fail(path, lastError());
  if ((facts.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) {
    fail(path, std::make_error_code(std::errc::permission_denied));
  }
}

// A new file beside the target that becomes the target or goes.
class Part {
 public:
  // Of a file that will replace another, nobody else sees anything before it has the permissions
  // of that one.
  Part(const fs::path& folder, bool replaces) : file_(create(folder, replaces)) {}
  ~Part() {
    if (created_) unlink(name_.c_str());
  }
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;

  // With the permissions of the file `target`, of which `old` are the facts, if it is there.
  std::error_code fill(std::string_view contents, const fs::path& target, const struct stat* old) {
    if (!created_) return failure_;
    std::error_code failure = writeAll(file_.number(), contents);
    if (!failure && old != nullptr) failure = takeOver(file_.number(), target, *old);
    if (!failure) failure = forceToDisk(file_.number());
    const std::error_code closing = file_.close();
    return failure ? failure : closing;
  }

  std::error_code become(const fs::path& target) {
    if (rename(name_.c_str(), target.c_str()) != 0) return lastError();
    created_ = false;
    return {};
  }

 private:
  // A program that was killed may have left a file of this name.
  int create(const fs::path& folder, bool replaces) {
    for (;;) {
      name_ = folder / nameOfPart(static_cast<unsigned long>(getpid()));
      const int descriptor =
          open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, replaces ? 0600 : 0666);
      created_ = descriptor >= 0;
      if (created_ || errno != EEXIST) {
        failure_ = created_ ? std::error_code() : lastError();
        return descriptor;
      }
    }
  }

  fs::path name_;
  bool created_ = false;
  std::error_code failure_;
  Descriptor file_;
};

// Whatever comes of this, the file is in its place; and a folder may be written but not read.
void forceFolderToDisk(const fs::path& folder) {
  const Descriptor opened(
      open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.isOpen()) forceToDisk(opened.number());
}

}  // namespace

void writeWholeFile(const std::string& path, std::string_view contents, NameForced nameForced) {
  if (path.find('\0') != std::string::npos) {
    fail(path, std::make_error_code(std::errc::invalid_argument));
  }
  if (path.empty()) fail(path, std::make_error_code(std::errc::no_such_file_or_directory));
  const fs::path target = followLinks(path);
  struct stat old = {};
  const bool replaces = stat(target.c_str(), &old) == 0;
  if (!replaces && errno != ENOENT) fail(path, lastError());
  if (replaces && S_ISDIR(old.st_mode)) failFile("write", path, kIsDirectory);
  std::error_code failure;
  if (replaces && !S_ISREG(old.st_mode)) {
    failure = writeStraight(target, contents);
    if (failure) fail(path, failure);
    return;
  }
  if (replaces) checkWritable(path, target, old);
  {
    Part part(target.parent_path(), replaces);
    failure = part.fill(contents, target, replaces ? &old : nullptr);
    if (!failure) failure = part.become(target);
  }
  if (failure) fail(path, failure);
  if (nameForced == NameForced::Now) forceFolderToDisk(target.parent_path());
}

}  // namespace platform
