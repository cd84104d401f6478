// Compares the pictures of two folders by the rules of the README beside this file.
//
// Usage: compare_pictures EXPECTED-FOLDER ACTUAL-FOLDER DIFFERENCES-FOLDER
// Exit status 0 when every picture of either folder is in both and the same.
#include <filesystem>
#include <iostream>
#include <set>
#include <string>

#include "Picture.h"

namespace {

namespace fs = std::filesystem;
using pictures::Picture;

std::set<std::string> picturesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".png") names.insert(entry.path().stem().string());
  }
  return names;
}

void keep(const fs::path& from, const fs::path& to) {
  std::error_code ignored;  // one of the two may be what is missing
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, ignored);
}

int run(const fs::path& expected, const fs::path& actual, const fs::path& differences) {
  std::set<std::string> names = picturesIn(expected);
  names.merge(picturesIn(actual));
  if (names.empty()) {
    std::cerr << "no pictures\n";
    return 1;
  }
  int failures = 0;
  for (const std::string& name : names) {
    const std::string file = name + ".png";
    Picture marks;
    const std::string failure =
        differenceOf(Picture::load(expected / file), Picture::load(actual / file), marks);
    if (failure.empty()) continue;
    ++failures;
    std::cerr << name << ": " << failure << '\n';
    if (!marks.empty()) marks.save(differences / (name + "-difference.png"));
    keep(expected / file, differences / (name + "-expected.png"));
    keep(actual / file, differences / (name + "-actual.png"));
  }
  std::cout << names.size() << " pictures, " << failures << " differ\n";
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: compare_pictures EXPECTED-FOLDER ACTUAL-FOLDER DIFFERENCES-FOLDER\n";
    return 2;
  }
  return run(argv[1], argv[2], argv[3]);
}
