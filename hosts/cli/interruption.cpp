#include "interruption.h"

#include <unistd.h>

#include <array>

namespace cli {
namespace {

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP};

using Handler = void (*)(int);

// Only calls that are safe in a handler. The signal raised here is held back until the handler
// returns, and then does what it does by default.
extern "C" void clearLineAndEnd(int number) {
  const ssize_t written = ::write(STDERR_FILENO, kClearLine, sizeof kClearLine - 1);
  static_cast<void>(written);
  static_cast<void>(std::signal(number, SIG_DFL));
  static_cast<void>(std::raise(number));
}

Handler handlerOf(int number) {
  struct sigaction action {};
  return ::sigaction(number, nullptr, &action) == 0 ? action.sa_handler : SIG_ERR;
}

// Exchanges one handler for another where it stands.
void replace(Handler present, Handler wanted) {
  for (const int number : kEnding) {
    if (handlerOf(number) != present) continue;
    struct sigaction action {};
    action.sa_handler = wanted;
    static_cast<void>(::sigaction(number, &action, nullptr));
  }
}

}  // namespace

SignalsWait::SignalsWait() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int number : kEnding) sigaddset(&ending, number);
  ::pthread_sigmask(SIG_BLOCK, &ending, &before_);
}

SignalsWait::~SignalsWait() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

SignalsClearLine::SignalsClearLine() { replace(SIG_DFL, clearLineAndEnd); }

SignalsClearLine::~SignalsClearLine() { replace(clearLineAndEnd, SIG_DFL); }

}  // namespace cli
