#pragma once

#include <csignal>
#include <string>

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

// While one exists the three signals first remove a file, then end the program as they always do.
// One at a time.
class SignalsRemoveFile {
 public:
  explicit SignalsRemoveFile(const std::string& path);
  ~SignalsRemoveFile();
  SignalsRemoveFile(const SignalsRemoveFile&) = delete;
  SignalsRemoveFile& operator=(const SignalsRemoveFile&) = delete;

  // The file is finished: it stays.
  void forget();
};

// What clears the line that the cursor stands in.
inline constexpr char kClearLine[] = "\r\x1b[K";

}  // namespace cli
