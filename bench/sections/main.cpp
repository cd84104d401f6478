// section_bench: opening, reading and drawing sections of the benchmarks' data sets.
//   section_bench --data=FOLDER [options of the benchmark library]
#include <cstdio>
#include <string>
#include <string_view>

#include "measure.h"

namespace {

std::string folder;

std::string fileOf(const std::string& name) { return folder + "/" + name + ".nc"; }

// Takes --data=FOLDER out of the arguments.
int takeFolder(int count, char** arguments) {
  constexpr std::string_view kOption = "--data=";
  int kept = 0;
  for (int n = 0; n < count; ++n) {
    const std::string_view argument = arguments[n];
    if (argument.starts_with(kOption)) {
      folder = argument.substr(kOption.size());
    } else {
      arguments[kept++] = arguments[n];
    }
  }
  return kept;
}

}  // namespace

int main(int count, char** arguments) {
  count = takeFolder(count, arguments);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
  if (folder.empty()) {
    std::fputs("usage: section_bench --data=FOLDER [--benchmark_...]\n", stderr);
    return 2;
  }
  bench::addReading(fileOf);
  bench::addDrawing(fileOf);
  bench::addScaling(fileOf);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
