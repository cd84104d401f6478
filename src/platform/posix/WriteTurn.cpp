#include "platform/WriteTurn.h"

#include <fcntl.h>
#include <sys/file.h>

#include <filesystem>
#include <thread>

#include "platform/posix/descriptor.h"
#include "platform/wholeFile.h"

namespace platform {
namespace {

constexpr std::intptr_t kNoTurn = -1;

// The folder in which the file is, or will be, behind all links.
std::filesystem::path folderOf(const std::string& path) {
  std::error_code failure;
  return std::filesystem::weakly_canonical(path, failure).parent_path();
}

}  // namespace

// The folder is locked and not the file, which is replaced by another one; and there may be none
// yet.
WriteTurn::WriteTurn(const std::string& path, std::chrono::milliseconds patience)
    : handle_(kNoTurn) {
  using std::chrono::steady_clock;
  const std::filesystem::path folder = folderOf(path);
  if (folder.empty()) return;
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  const auto end = steady_clock::now() + patience;
  while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    const int error = errno;
    const bool wait = error == EWOULDBLOCK || error == EINTR;
    if (wait && steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      continue;
    }
    ::close(descriptor);
    if (wait) failFile("write", path, kBusy);
    return;
  }
  handle_ = descriptor;
}

WriteTurn::~WriteTurn() {
  if (handle_ != kNoTurn) ::close(static_cast<int>(handle_));
}

}  // namespace platform
