#include "platform/wholeFile.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <stdexcept>

namespace platform {
namespace {

std::string readWithin(const std::string& path, std::size_t expected, std::size_t limit,
                       const std::function<std::size_t(char*, std::size_t)>& read) {
  constexpr std::size_t kPiece = std::size_t{1} << 16;
  std::string contents;
  std::size_t length = 0;
  for (;;) {
    if (length == contents.size()) {
      // One byte more than there should be, so that the end is seen without growing again.
      const std::size_t wanted = std::max({expected + 1, length + length / 2, kPiece});
      contents.resize(length < limit ? std::min(wanted, limit) : limit + 1);
    }
    const std::size_t count = read(contents.data() + length, contents.size() - length);
    if (count == 0) break;
    length += count;
    if (length > limit) failFile("read", path, kTooLarge);
  }
  contents.resize(length);
  return contents;
}

}  // namespace

void failFile(const char* action, const std::string& path, const std::string& reason) {
  throw std::runtime_error(std::string("Cannot ") + action + " \"" + path.c_str() +
                           "\": " + reason);
}

std::string readToEnd(const std::string& path, std::uint64_t expected, std::size_t limit,
                      const std::function<std::size_t(char* to, std::size_t length)>& read) {
  if (expected > limit) failFile("read", path, kTooLarge);
  try {
    return readWithin(path, static_cast<std::size_t>(expected), limit, read);
  } catch (const std::length_error&) {
    throw std::bad_alloc();
  }
}

std::string nameOfPart(unsigned long process) {
  static std::atomic<unsigned> counter{0};
  return ".kelvane-" + std::to_string(process) + "-" + std::to_string(counter++) + ".part";
}

}  // namespace platform
