#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Subprocess.h"
#include "support/TempFolder.h"

namespace cli_test {

// Runs kelvane in a folder of its own, which holds the small exact data set "small.nc".
class CliTest : public testing::Test {
 protected:
  CliTest();

  std::string file(const std::string& name) const { return folder.file(name); }
  bool exists(const std::string& name) const;
  std::string contents(const std::string& name) const;
  // Names in the folder, sorted.
  std::vector<std::string> listing() const;

  Result kelvane(const std::vector<std::string>& arguments, Surroundings surroundings = {}) const;

  support::TempFolder folder;
};

// A path through small.nc, as the option takes it.
inline constexpr const char* kSmallPath = "350.5,-0.9 358,0.4";

// The whole contents of a file; fails the test when there is no such file.
std::string fileText(const std::string& path);
bool contains(const std::string& text, const std::string& part);
int count(const std::string& text, const std::string& part);

}  // namespace cli_test
