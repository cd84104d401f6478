#include "platform/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path, const std::error_code& why) {
  throw std::runtime_error("Cannot write \"" + path + "\": " + why.message());
}

std::error_code lastError() { return {errno, std::generic_category()}; }

// An error of the file system, or none.
std::error_code writeTo(const fs::path& file, int flags, std::string_view contents) {
  const int descriptor = open(file.c_str(), flags | O_WRONLY | O_CLOEXEC, 0666);
  if (descriptor < 0) return lastError();
  std::error_code failure;
  while (!contents.empty() && !failure) {
    const ssize_t written = write(descriptor, contents.data(), contents.size());
    if (written >= 0) {
      contents.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      failure = lastError();
    }
  }
  if (close(descriptor) != 0 && !failure) failure = lastError();
  return failure;
}

// A name of its own for every write, so that two writers of one file never share it.
fs::path nameBeside(const fs::path& target) {
  static std::atomic<unsigned> counter{0};
  return target.parent_path() /
         (".kelvane-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".part");
}

}  // namespace

bool fileExists(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return fs::exists(status) && !fs::is_directory(status);
}

void writeWholeFile(const std::string& path, std::string_view contents) {
  std::error_code failure;
  fs::path target = path;
  const fs::file_status status = fs::status(target, failure);
  if (fs::is_directory(status)) fail(path, std::make_error_code(std::errc::is_a_directory));
  if (fs::exists(status)) {
    if (!fs::is_regular_file(status)) {
      failure = writeTo(target, 0, contents);
      if (failure) fail(path, failure);
      return;
    }
    target = fs::canonical(target, failure);
    if (failure) fail(path, failure);
  }
  const fs::path beside = nameBeside(target);
  failure = writeTo(beside, O_CREAT | O_EXCL, contents);
  if (!failure && fs::exists(status)) fs::permissions(beside, status.permissions(), failure);
  if (!failure) fs::rename(beside, target, failure);
  if (!failure) return;
  std::error_code ignored;
  fs::remove(beside, ignored);
  fail(path, failure);
}

}  // namespace platform
