#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/posix/descriptor.h"
#include "platform/wholeFile.h"

namespace platform {
namespace {

void checkKind(const std::string& path, const struct stat& facts) {
  if (S_ISDIR(facts.st_mode)) failFile("read", path, kIsDirectory);
  if (!S_ISREG(facts.st_mode)) failFile("read", path, kNotRegular);
}

// Opens without waiting: what the name stands for may have become a pipe since it was looked at.
// A regular file says "try again" only while another program is asked to give it up.
int openWithoutWaiting(const std::string& path) {
  int waiting = O_NONBLOCK;
  for (;;) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | waiting);
    if (descriptor >= 0) return descriptor;
    if (errno == EWOULDBLOCK && waiting != 0) {
      waiting = 0;
    } else if (errno != EINTR) {
      return descriptor;
    }
  }
}

}  // namespace

bool fileExists(const std::string& path) {
  if (path.find('\0') != std::string::npos) return false;
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(path, ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string readWholeFile(const std::string& path, std::size_t limit) {
  const auto fail = [&](const std::error_code& why) { failFile("read", path, why.message()); };
  if (path.find('\0') != std::string::npos) {
    fail(std::make_error_code(std::errc::invalid_argument));
  }
  struct stat facts = {};
  if (stat(path.c_str(), &facts) != 0) fail(lastError());
  checkKind(path, facts);
  const Descriptor file(openWithoutWaiting(path));
  if (!file.isOpen() || fstat(file.number(), &facts) != 0) fail(lastError());
  checkKind(path, facts);
  const auto length = static_cast<std::uint64_t>(facts.st_size);
  return readToEnd(path, length, limit, [&](char* to, std::size_t wanted) {
    for (;;) {
      const ssize_t count = read(file.number(), to, wanted);
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno != EINTR) fail(lastError());
    }
  });
}

}  // namespace platform
