#pragma once

#include <gtest/gtest.h>

#include <string>

#include "childProcess.h"
#include "support/TempFolder.h"

namespace winetest {

// Runs the samples that are given to users as a start, as their users do.
class SampleTest : public testing::Test {
 protected:
  // A file of hosts/scripts, copied beside the tests.
  static std::wstring sample(const std::wstring& name);
  // A command line in which every argument is quoted.
  static Outcome run(const std::wstring& program, const std::vector<std::wstring>& arguments);
  static Outcome cscript(const std::wstring& script, const std::vector<std::wstring>& arguments);

  std::wstring file(const std::string& name) const;
  // A data set of whole degrees around the path that the samples draw, with three time steps and
  // the items "temp" and "salt"; its full name.
  std::wstring makeGulfSet() const;
  // One that lies elsewhere in the world.
  std::wstring makeElsewhereSet() const;

  support::TempFolder folder;
};

// What every sample writes about the gulf set.
inline constexpr const char* kGulfStory =
    "1 temp\n2 salt\ntime step 1\ntime step 2\ntime step 3\n";
// Why no section can be made in the set from elsewhere.
inline constexpr const char* kTooShort =
    "[MakeKelvane] Section distance is too short, or input error";

}  // namespace winetest
