#pragma once

#include <functional>
#include <string>
#include <vector>

#include "header/header.h"

namespace cli {

// What to do with a status of the library: throw when it is none of success.
using Check = std::function<void(int status)>;

// Reads the header of an open data set or of one of its groups, by the library's number. What a
// group has is what can be named in it: its own, and what the groups around it have under other
// names. Names and texts are the bytes of the file. Throws Failure for a header that no program
// should follow.
Header readHeader(int id, const Check& check);

// The library's number of a group, "forecast/surface" or "/forecast/surface"; -1 for none.
int groupOf(int id, const std::string& path);

// Strings that the library allocated.
class Strings {
 public:
  explicit Strings(std::size_t count) : texts_(count, nullptr) {}
  ~Strings() { nc_free_string(texts_.size(), texts_.data()); }
  Strings(const Strings&) = delete;
  Strings& operator=(const Strings&) = delete;

  char** data() { return texts_.data(); }
  std::string_view operator[](std::size_t at) const {
    return texts_[at] == nullptr ? std::string_view() : texts_[at];
  }
  std::size_t size() const { return texts_.size(); }

 private:
  std::vector<char*> texts_;
};

}  // namespace cli
