#pragma once

#include <csignal>

namespace cli {

// While one exists SIGINT, SIGTERM and SIGHUP wait: for the writing of a file, which is either
// not begun or finished when a signal ends the program.
class SignalsWait {
 public:
  SignalsWait();
  ~SignalsWait();
  SignalsWait(const SignalsWait&) = delete;
  SignalsWait& operator=(const SignalsWait&) = delete;

 private:
  sigset_t before_;
};

// While one exists the three signals first clear the line that the cursor stands in on the
// terminal of standard error, then end the program as they always do. A signal that was ignored
// stays ignored.
class SignalsClearLine {
 public:
  SignalsClearLine();
  ~SignalsClearLine();
  SignalsClearLine(const SignalsClearLine&) = delete;
  SignalsClearLine& operator=(const SignalsClearLine&) = delete;
};

// What clears the line that the cursor stands in.
inline constexpr char kClearLine[] = "\r\x1b[K";

}  // namespace cli
