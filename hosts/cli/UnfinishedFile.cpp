#include "UnfinishedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "failures.h"
#include "platform/wholeFile.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

std::string targetOf(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw Failure("Cannot write \"" + path + "\": " +
                  (fs::is_directory(status) ? platform::kIsDirectory : platform::kNotRegular));
  }
  // Also a link that leads to a file that is not there yet.
  fs::path place = path;
  for (int links = 0; links < 40 && fs::is_symlink(place, error); ++links) {
    place = place.parent_path() / fs::read_symlink(place, error);
  }
  return place.string();
}

std::string partOf(const std::string& target) {
  const fs::path part = platform::nameOfPart(static_cast<unsigned long>(::getpid()));
  return (fs::path(target).parent_path() / part).string();
}

[[noreturn]] void fail(const std::string& path) {
  throw Failure("Cannot write \"" + path + "\": " + std::strerror(errno));
}

// A file that is replaced keeps its permissions.
void takePermissions(const std::string& from, const std::string& to) {
  struct stat status {};
  if (::stat(from.c_str(), &status) != 0) return;
  if (::access(from.c_str(), W_OK) != 0) fail(from);
  static_cast<void>(::chmod(to.c_str(), status.st_mode & 07777U));
}

}  // namespace

UnfinishedFile::UnfinishedFile(const std::string& path)
    : target_(targetOf(path)), path_(partOf(target_)), signals_(path_) {
  // Told here by the name that the user gave: whoever writes the part would name that.
  const fs::path folder = fs::path(target_).parent_path();
  if (::access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0) fail(path);
}

UnfinishedFile::~UnfinishedFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
}

void UnfinishedFile::finish() {
  takePermissions(target_, path_);
  const int file = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) fail(target_);
  const bool written = ::fsync(file) == 0;
  if (!written) {
    const int reason = errno;
    ::close(file);
    errno = reason;
    fail(target_);
  }
  ::close(file);
  const SignalsWait untilRenamed;
  if (::rename(path_.c_str(), target_.c_str()) != 0) fail(target_);
  path_.clear();
  signals_.forget();
}

}  // namespace cli
