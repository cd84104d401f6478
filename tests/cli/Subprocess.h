#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace cli_test {

struct Result {
  int status = -1;  // exit status; 128 + signal number when a signal ended the program
  std::string out, err;
  long peakKilobytes = 0;  // the most memory it held at a time
};

struct Surroundings {
  std::string folder;                     // where the program starts; here when empty
  std::optional<std::string> stdoutFile;  // goes there instead of into Result::out
  bool stdoutClosed = false;
  bool stdoutReaderGone = false;  // a pipe whose reading end is closed
  // A terminal of so many columns takes the place of all three standard files; what appears on
  // it is Result::out. 0: pipes.
  unsigned short terminalColumns = 0;
  std::vector<std::pair<std::string, std::string>> environment;  // set besides what is set here
  std::optional<unsigned> fileSizeLimit;                         // bytes that a file may grow to
  // Called again and again with the process while it runs, until it returns true.
  std::function<bool(pid_t)> meanwhile;
};

// Runs a program to its end and collects what it says.
Result run(const std::vector<std::string>& command, const Surroundings& surroundings = {});

}  // namespace cli_test
