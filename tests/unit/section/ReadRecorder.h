#pragma once

#include <cstddef>
#include <string>
#include <vector>

// Listens to the hyperslab reads that reach the netCDF library, for as long as it lives.
class ReadRecorder {
 public:
  struct Read {
    std::string variable;
    std::vector<std::size_t> start, count;
    bool operator==(const Read&) const = default;
  };

  ReadRecorder();
  ~ReadRecorder();
  ReadRecorder(const ReadRecorder&) = delete;
  ReadRecorder& operator=(const ReadRecorder&) = delete;

  const std::vector<Read>& reads() const;
  int opened() const;  // data sets opened, refusals included
  int closed() const;
};
