#include "Place.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>

namespace opendap_test {

Place& Place::here() {
  static Place place;
  return place;
}

Place::Place() {
  for (const char* name : {"home", "temp", "current", "own"}) {
    std::filesystem::create_directory(root_.path() / name);
  }
  for (const char* name : {"TMPDIR", "TEMP", "TMP"}) ::setenv(name, temp().c_str(), 1);
  ::setenv("HOME", home().c_str(), 1);
  for (const char* name : {"http_proxy", "https_proxy", "all_proxy", "HTTP_PROXY", "HTTPS_PROXY",
                           "ALL_PROXY", "NCRCENV_RC", "NCRCENV_HOME", "NCRCENV_IGNORE"}) {
    ::unsetenv(name);
  }
  std::filesystem::current_path(current());
  errors_ = ::open(own("errors").c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (errors_ < 0 || ::dup2(errors_, STDERR_FILENO) < 0) throw std::runtime_error("no file");
}

std::vector<std::string> Place::files() const {
  std::vector<std::string> names;
  for (const std::string& folder : {home(), temp(), current()}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      names.push_back(entry.path().string());
    }
  }
  std::ranges::sort(names);
  return names;
}

std::string Place::takeErrors() {
  std::string text;
  std::array<char, 4096> buffer{};
  ::lseek(errors_, 0, SEEK_SET);
  for (ssize_t n = 0; (n = ::read(errors_, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(n));
  }
  if (::ftruncate(errors_, 0) != 0) throw std::runtime_error("the file cannot be emptied");
  return text;
}

}  // namespace opendap_test
