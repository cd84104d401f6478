#include "HostDriven.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "CliTest.h"
#include "support/sampleSets.h"

namespace cli_test {

HostDriven::HostDriven(const std::string& dataSet,
                       const std::vector<std::pair<float, float>>& path) {
  support::resetState();
  control_.Resize(400, 300);
  EXPECT_EQ(control_.NcFile(dataSet), 1);
  control_.NewSection();
  for (const auto& [lon, lat] : path) control_.AddSection(lon, lat);
  EXPECT_EQ(control_.EndSection(), 1);
}

std::string HostDriven::png(const std::string& folder) const {
  const std::string name = folder + "/host-driven.png";
  pictures_.savePng(name);
  std::string bytes = fileText(name);
  std::filesystem::remove(name);
  return bytes;
}

}  // namespace cli_test
