#include "terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "failures.h"

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
  writeToErrors("kelvane: " + printable(text, LineFeeds::Keep) + "\n");
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
  for (std::size_t at = 0; at < text.size(); ++at) {
    const unsigned char c = static_cast<unsigned char>(text[at]);
    const bool lineFeed = c == '\n' && lineFeeds == LineFeeds::Keep;
    if ((c < 0x20 && !lineFeed) || c == 0x7F) {
      result += ' ';
    } else if (c == 0xC2 && at + 1 < text.size() &&
               static_cast<unsigned char>(text[at + 1]) < 0xA0) {
      result += ' ';  // a control character of two bytes
      ++at;
    } else {
      result += text[at];
    }
  }
  return result;
}

void prepareDescriptors() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) {
      // Opened for reading only: writing to what was closed stays an error.
      static_cast<void>(::open("/dev/null", O_RDONLY));
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace cli
