// Makes the data sets of the benchmarks in a folder; those that are there already are left alone.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "dataSets.h"
#include "writeSet.h"

int main(int count, char** arguments) {
  const bool tiny = count == 3 && std::string(arguments[1]) == "--tiny";
  if (count != 2 && !tiny) {
    std::fputs("usage: make_bench_data [--tiny] FOLDER\n", stderr);
    return 2;
  }
  try {
    const std::filesystem::path folder = arguments[count - 1];
    std::filesystem::create_directories(folder);
    for (const bench::DataSet& set : bench::dataSets(tiny)) {
      const std::filesystem::path file = folder / (set.name + ".nc");
      if (std::filesystem::exists(file)) continue;
      std::printf("%s\n", file.filename().c_str());
      std::fflush(stdout);
      bench::writeSet(set, file.string());
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_bench_data: %s\n", error.what());
    return 1;
  }
}
