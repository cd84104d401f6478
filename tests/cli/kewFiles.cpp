#include "kewFiles.h"

#include <gtest/gtest.h>

#include <fstream>

namespace cli_test {

void writeFile(const std::string& path, const std::string& text) {
  std::ofstream stream(path, std::ios::binary);
  stream << text;
  stream.close();
  EXPECT_TRUE(stream.good()) << path;
}

std::string kewDivision(const std::string& low, const std::string& high, const std::string& color) {
  return "<division><low>" + low + "</low><high>" + high + "</high><color>" + color +
         "</color></division>";
}

std::string kewVariable(const std::string& name, const std::string& divisions) {
  return "<variable name=\"" + name + "\">" + divisions + "</variable>";
}

std::string kewFile(const std::string& variables) {
  return "<?xml version=\"1.0\"?>\n<section>" + variables + "</section>";
}

}  // namespace cli_test
