#include "support/TempFolder.h"

#include <random>

namespace support {

TempFolder::TempFolder() {
  std::random_device source;
  do {
    path_ = std::filesystem::temp_directory_path() / ("kelvane-" + std::to_string(source()));
  } while (!std::filesystem::create_directory(path_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::file(const std::string& name) const {
  return (path_ / std::filesystem::path(name)).string();
}

}  // namespace support
