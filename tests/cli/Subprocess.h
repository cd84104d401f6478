#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cli_test {

struct Result {
  int status = -1;  // exit status; 128 + signal number when a signal ended the program
  std::string out, err;
};

struct Surroundings {
  std::string folder;                     // where the program starts; here when empty
  std::optional<std::string> stdoutFile;  // goes there instead of into Result::out
  bool stdoutClosed = false;
  bool stdoutReaderGone = false;  // a pipe whose reading end is closed
};

// Runs a program to its end and collects what it says.
Result run(const std::vector<std::string>& command, const Surroundings& surroundings = {});

}  // namespace cli_test
