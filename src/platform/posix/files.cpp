#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path, const std::error_code& why) {
  throw std::runtime_error("Cannot write \"" + path + "\": " + why.message());
}

// Of a name with a zero character in it, the part before.
[[noreturn]] void failReading(const std::string& path, const std::string& why) {
  throw std::runtime_error("Cannot read \"" + std::string(path.c_str()) + "\": " + why);
}

[[noreturn]] void failReading(const std::string& path, const std::error_code& why) {
  failReading(path, why.message());
}

std::error_code lastError() { return {errno, std::generic_category()}; }

// An open file, closed at the end of the scope.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

void checkKind(const std::string& path, const struct stat& facts) {
  if (S_ISDIR(facts.st_mode)) failReading(path, std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(facts.st_mode)) failReading(path, "Not a regular file");
}

// Opens without waiting: what the name stands for may have become a pipe since it was looked at.
// A regular file says "try again" only while another program is asked to give it up.
int openForReading(const std::string& path) {
  int descriptor = -1;
  int waiting = O_NONBLOCK;
  for (;;) {
    descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | waiting);
    if (descriptor >= 0) return descriptor;
    if (errno == EWOULDBLOCK && waiting != 0) {
      waiting = 0;
    } else if (errno != EINTR) {
      return descriptor;
    }
  }
}

// Up to length bytes; fewer at the end of the file.
std::size_t readSome(const std::string& path, int descriptor, char* to, std::size_t length) {
  for (;;) {
    const ssize_t count = read(descriptor, to, length);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) failReading(path, lastError());
  }
}

// Everything up to the end, however long the file was when it was opened: it may be growing, and
// some files of the system tell no length.
std::string readToEnd(const std::string& path, int descriptor, std::size_t expected,
                      std::size_t limit) {
  constexpr std::size_t kPiece = std::size_t{1} << 16;
  std::string contents;
  std::size_t length = 0;
  for (;;) {
    if (length == contents.size()) {
      // One byte more than there should be, so that the end is seen without growing again.
      const std::size_t wanted = std::max({expected + 1, length + length / 2, kPiece});
      contents.resize(length < limit ? std::min(wanted, limit) : limit + 1);
    }
    const std::size_t count =
        readSome(path, descriptor, contents.data() + length, contents.size() - length);
    length += count;
    if (count == 0) break;
    if (length > limit) failReading(path, std::make_error_code(std::errc::file_too_large));
  }
  contents.resize(length);
  return contents;
}

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

std::string readWholeFile(const std::string& path, std::size_t limit) {
  if (path.find('\0') != std::string::npos) {
    failReading(path, std::make_error_code(std::errc::invalid_argument));
  }
  struct stat facts = {};
  if (stat(path.c_str(), &facts) != 0) failReading(path, lastError());
  checkKind(path, facts);
  const Descriptor file(openForReading(path));
  if (file.number() < 0 || fstat(file.number(), &facts) != 0) failReading(path, lastError());
  checkKind(path, facts);
  if (std::cmp_greater(facts.st_size, limit)) {
    failReading(path, std::make_error_code(std::errc::file_too_large));
  }
  try {
    return readToEnd(path, file.number(), static_cast<std::size_t>(facts.st_size), limit);
  } catch (const std::bad_alloc&) {
    failReading(path, std::make_error_code(std::errc::not_enough_memory));
  }
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
