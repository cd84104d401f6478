#include "interruption.h"

#include <unistd.h>

#include <array>
#include <climits>

namespace cli {
namespace {

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP};

using Handler = void (*)(int);

// What a signal does before it ends the program.
volatile std::sig_atomic_t clearsLine = 0;
volatile std::sig_atomic_t removesFile = 0;
std::array<char, PATH_MAX> fileToRemove{};
// How many guards want the handler.
int guards = 0;

// Only calls that are safe in a handler. The signal raised here is held back until the handler
// returns, and then does what it does by default.
extern "C" void tidyAndEnd(int number) {
  if (removesFile != 0) ::unlink(fileToRemove.data());
  if (clearsLine != 0) {
    const ssize_t written = ::write(STDERR_FILENO, kClearLine, sizeof kClearLine - 1);
    static_cast<void>(written);
  }
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

void addGuard() {
  if (guards++ == 0) replace(SIG_DFL, tidyAndEnd);
}

void removeGuard() {
  if (--guards == 0) replace(tidyAndEnd, SIG_DFL);
}

}  // namespace

SignalsWait::SignalsWait() {
  sigset_t ending;
  sigemptyset(&ending);
  for (const int number : kEnding) sigaddset(&ending, number);
  ::pthread_sigmask(SIG_BLOCK, &ending, &before_);
}

SignalsWait::~SignalsWait() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

SignalsClearLine::SignalsClearLine() {
  clearsLine = 1;
  addGuard();
}

SignalsClearLine::~SignalsClearLine() {
  removeGuard();
  clearsLine = 0;
}

SignalsRemoveFile::SignalsRemoveFile(const std::string& path) {
  // A longer path cannot be opened either.
  if (path.size() < fileToRemove.size()) {
    path.copy(fileToRemove.data(), path.size());
    fileToRemove[path.size()] = '\0';
    removesFile = 1;
  }
  addGuard();
}

SignalsRemoveFile::~SignalsRemoveFile() {
  removeGuard();
  forget();
}

void SignalsRemoveFile::forget() { removesFile = 0; }

}  // namespace cli
