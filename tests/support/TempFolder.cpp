#include "support/TempFolder.h"

#include <iterator>
#include <random>

namespace support {

std::filesystem::path pathOf(const std::string& name) {
  return std::u8string(name.begin(), name.end());
}

std::string nameOf(const std::filesystem::path& path) {
  const std::u8string name = path.u8string();
  return {name.begin(), name.end()};
}

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

std::ptrdiff_t TempFolder::entries() const {
  return std::distance(std::filesystem::directory_iterator(path_),
                       std::filesystem::directory_iterator());
}

std::string TempFolder::file(const std::string& name) const { return nameOf(path_ / pathOf(name)); }

}  // namespace support
