#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/TempFolder.h"

namespace opendap_test {

// The folders in which this program lives: a home, a folder for temporary files and a current one
// of its own. The library looks at them when it is first used, so they are made before.
class Place {
 public:
  static Place& here();

  std::string home() const { return root_.file("home"); }
  std::string temp() const { return root_.file("temp"); }
  std::string current() const { return root_.file("current"); }
  // What the tests write themselves.
  std::string own(const std::string& name) const { return root_.file("own/" + name); }
  // Every file of the first three folders, sorted.
  std::vector<std::string> files() const;

  // The standard error since the last call; the standard error itself shows nothing.
  std::string takeErrors();

 private:
  Place();

  support::TempFolder root_;
  int errors_ = -1;
};

}  // namespace opendap_test
