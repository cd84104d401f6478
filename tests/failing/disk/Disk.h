#pragma once

#include <string>
#include <vector>

namespace failing {

// What a disk does to the files that are written whole, from construction to the end of the scope:
// of the calls of the system for them (making, writing, forcing, giving permissions, closing,
// renaming) the n-th fails with an error; 0 for none.
class Disk {
 public:
  Disk(int n, int error);
  ~Disk();
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  // The calls made, in order.
  const std::vector<std::string>& calls() const;
};

}  // namespace failing
