#include "targets/support/files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/TempFolder.h"
#include "targets/support/must.h"

namespace fuzz {
namespace {

const support::TempFolder& folder() {
  static const support::TempFolder scratch;
  return scratch;
}

}  // namespace

std::string scratchFile(const std::string& name) { return folder().file(name); }

std::string writeScratch(const std::string& name, std::string_view bytes) {
  std::string fileName = scratchFile(name);
  std::ofstream file(fileName, std::ios::binary);
  file << bytes;
  MUST(file.flush());
  return fileName;
}

std::string contentsOf(const std::string& fileName) {
  std::ostringstream contents;
  std::ifstream file(fileName, std::ios::binary);
  contents << file.rdbuf();
  return contents.str();
}

std::vector<std::string> scratchContents() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder().path())) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

void removeScratch(const std::string& name) { std::filesystem::remove(folder().path() / name); }

}  // namespace fuzz
