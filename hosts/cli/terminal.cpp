#include "terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "failures.h"
#include "netcdf/remoteName.h"

namespace cli {
namespace {

constexpr std::size_t kHoldBack = 1 << 16;

// Writes everything; false, with errno set, when that fails.
bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

std::string_view variableOf(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

// The number of bytes of the character at the start of the text if it is one that steers a
// terminal, otherwise 0.
std::size_t steeringLength(std::string_view text) {
  const auto byte = [&](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
  };
  const auto within = [](int value, int first, int last) {
    return first <= value && value <= last;
  };
  if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
  if (byte(0) == 0xC2 && within(byte(1), 0x80, 0x9F)) return 2;  // U+0080 to U+009F
  if (byte(0) == 0xD8 && byte(1) == 0x9C) return 2;              // U+061C
  if (byte(0) != 0xE2) return 0;
  const bool direction = (byte(1) == 0x80 && (within(byte(2), 0x8E, 0x8F) ||    // U+200E, U+200F
                                              within(byte(2), 0xAA, 0xAE))) ||  // U+202A to U+202E
                         (byte(1) == 0x81 && within(byte(2), 0xA6, 0xA9));      // U+2066 to U+2069
  return direction ? 3 : 0;
}

bool isCapableTerminal(int descriptor) {
  const std::string_view kind = variableOf("TERM");
  return ::isatty(descriptor) == 1 && !kind.empty() && kind != "dumb";
}

}  // namespace

void Output::write(std::string_view text) {
  held_ += text;
  if (held_.size() >= kHoldBack) finish();
}

void Output::finish() {
  const bool written = writeAll(STDOUT_FILENO, held_);
  held_.clear();
  if (written) return;
  if (errno == EPIPE) throw ReaderGone();
  throw Failure(std::string("Standard output cannot be written: ") + std::strerror(errno));
}

void report(std::string_view text) {
  const std::string shown = ocxNetNc::withoutCredentials(std::string(text));
  writeToErrors("kelvane: " + printable(shown, LineFeeds::Keep) + "\n");
}

void writeToErrors(std::string_view text) {
  // Nobody is left to tell when this fails.
  static_cast<void>(writeAll(STDERR_FILENO, text));
}

bool errorsGoToATerminal() { return isCapableTerminal(STDERR_FILENO); }

int32_t errorsWidth() {
  constexpr int32_t kUsualWidth = 80;
  winsize size{};
  const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

bool outputTakesColours() {
  return isCapableTerminal(STDOUT_FILENO) && variableOf("NO_COLOR").empty();
}

std::string printable(std::string_view text, LineFeeds lineFeeds) {
  std::string result;
  while (!text.empty()) {
    const bool keep = text.front() == '\n' && lineFeeds == LineFeeds::Keep;
    const std::size_t steering = keep ? 0 : steeringLength(text);
    result += steering > 0 ? ' ' : text.front();
    text.remove_prefix(std::max<std::size_t>(steering, 1));
  }
  return result;
}

std::size_t columnsOf(std::string_view text) {
  // The bytes that continue a character in UTF-8 take no column.
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::string padded(std::string text, std::size_t columns) {
  const std::size_t taken = columnsOf(text);
  return taken < columns ? text.append(columns - taken, ' ') : text;
}

void prepareWriting() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) {
      // Opened for reading only: writing to what was closed stays an error.
      static_cast<void>(::open("/dev/null", O_RDONLY));
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace cli
