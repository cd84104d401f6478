// Runs a target without libFuzzer: its seeds, then so many mutations of them, the same ones every
// time. An input that ends the process is left in the current folder, as fuzz_<target>.crash.
//
//     fuzz_<target> FOLDER COUNT

#include <sanitizer/common_interface_defs.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "targets/support/must.h"

namespace {

std::string current;
std::string crashFile;
constexpr std::size_t kLongest = 4096;

void keepCurrent() {
  std::FILE* file = std::fopen(crashFile.c_str(), "wb");
  if (file == nullptr) return;
  std::fwrite(current.data(), 1, current.size(), file);
  std::fclose(file);
  std::fprintf(stderr, "the input is in %s in the current folder\n", crashFile.c_str());
}

void aborted(int) {
  keepCurrent();
  std::signal(SIGABRT, SIG_DFL);
  std::abort();
}

void run(const std::string& input) {
  current = input;
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(current.data()), current.size());
}

std::vector<std::string> seedsOf(const char* folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  std::vector<std::string> seeds;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return seeds;
}

class Mutator {
 public:
  explicit Mutator(const std::vector<std::string>& seeds) : seeds_(seeds) {}

  std::string next() {
    std::string input = seed();
    for (std::size_t left = 1 + below(6); left > 0; --left) change(input);
    input.resize(std::min(input.size(), kLongest));
    return input;
  }

 private:
  std::size_t below(std::size_t count) { return generator_() % count; }
  const std::string& seed() { return seeds_[below(seeds_.size())]; }

  void change(std::string& input) {
    const std::size_t at = below(input.size() + 1);
    const auto letter = static_cast<char>(below(2) == 0 ? below(256) : ' ' + below(95));
    switch (below(6)) {
      case 0:
        input.insert(at, 1, letter);
        break;
      case 1:
        input.erase(at, 1 + below(8));
        break;
      case 2: {
        const std::string& other = seed();
        const std::size_t from = below(other.size() + 1);
        input.insert(at, other, from, below(32));
        break;
      }
      case 3:
        if (at < input.size()) input[at] = static_cast<char>(input[at] ^ (1 << below(8)));
        break;
      default:
        if (at < input.size()) input[at] = letter;
        break;
    }
  }

  const std::vector<std::string>& seeds_;
  std::mt19937 generator_{1};
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  crashFile = std::filesystem::path(arguments[0]).filename().string() + ".crash";
  std::signal(SIGABRT, aborted);
  __sanitizer_set_death_callback(keepCurrent);
  const std::vector<std::string> seeds = seedsOf(arguments[1]);
  if (seeds.empty()) return 2;
  for (const std::string& seed : seeds) run(seed);
  Mutator mutator(seeds);
  const int mutations = std::atoi(arguments[2]);
  for (int left = mutations; left > 0; --left) run(mutator.next());
  std::printf("%zu seeds, %d mutations\n", seeds.size(), mutations);
}
