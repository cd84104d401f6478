#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace platform {

// A turn at a file for somebody who reads it, changes it and replaces it: from construction to
// destruction no other thread or program of this machine has one for the same file, or, on POSIX
// systems, for a file of the same folder. It leaves nothing behind, also when the program is
// killed. When the patience is over, waiting ends with std::runtime_error, a text for the user. Where
// the system has no means for it (a folder that cannot be read, some file systems of other machines)
// the turn is empty; whoever replaces such a file last wins.
class WriteTurn {
 public:
  explicit WriteTurn(const std::string& path,
                     std::chrono::milliseconds patience = std::chrono::seconds(5));
  ~WriteTurn();
  WriteTurn(const WriteTurn&) = delete;
  WriteTurn& operator=(const WriteTurn&) = delete;

 private:
  std::intptr_t handle_;  // of the system's
};

}  // namespace platform
