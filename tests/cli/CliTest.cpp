#include "CliTest.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "support/sampleSets.h"

namespace cli_test {

CliTest::CliTest() {
  support::makeTinySet(file("small.nc"));
}

bool CliTest::exists(const std::string& name) const {
  return std::filesystem::exists(file(name));
}

std::string CliTest::contents(const std::string& name) const {
  return fileText(file(name));
}

std::vector<std::string> CliTest::listing() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

Result CliTest::kelvane(const std::vector<std::string>& arguments,
                        Surroundings surroundings) const {
  std::vector<std::string> command = {KELVANE_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  if (surroundings.folder.empty()) surroundings.folder = folder.path().string();
  return run(command, surroundings);
}

std::string fileText(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << path;
  std::string text;
  std::array<char, 65536> buffer{};
  while (stream.read(buffer.data(), buffer.size()) || stream.gcount() > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(stream.gcount()));
  }
  return text;
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

int count(const std::string& text, const std::string& part) {
  int found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos;
       at = text.find(part, at + part.size())) {
    ++found;
  }
  return found;
}

}  // namespace cli_test
