#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace support {

// A name in UTF-8 as the standard library wants it, and back.
std::filesystem::path pathOf(const std::string& name);
std::string nameOf(const std::filesystem::path& path);

// A folder of its own for one test, removed with everything in it at the end.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The name (UTF-8) of a file in the folder.
  std::string file(const std::string& name) const;
  const std::filesystem::path& path() const { return path_; }
  // The number of files and folders in it.
  std::ptrdiff_t entries() const;

 private:
  std::filesystem::path path_;
};

}  // namespace support
