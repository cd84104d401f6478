#include "Instructions.h"

#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "underCallgrind.h"

namespace cost {
namespace {

// Callgrind numbers its reports of a run from 1.
std::string nextReport() {
  static int reports = 0;
  const char* name = std::getenv(kReportName);
  if (name == nullptr) throw std::runtime_error("no name for callgrind's reports");
  return std::string(name) + "." + std::to_string(++reports);
}

}  // namespace

Instructions::Instructions() {
  if (RUNNING_ON_VALGRIND == 0) throw std::runtime_error("instructions are counted by callgrind");
  CALLGRIND_ZERO_STATS;
  CALLGRIND_START_INSTRUMENTATION;
}

int64_t Instructions::count() {
  CALLGRIND_STOP_INSTRUMENTATION;
  CALLGRIND_DUMP_STATS;
  std::ifstream report(nextReport());
  int64_t total = 0;
  for (std::string line; std::getline(report, line);) {
    constexpr std::string_view kTotals = "totals: ";
    if (line.starts_with(kTotals)) total = std::stoll(line.substr(kTotals.size()));
  }
  if (total <= 0) throw std::runtime_error("callgrind has counted nothing");
  return total;
}

double ratio(const char* what, int64_t cost, int64_t of) {
  const double found = static_cast<double>(cost) / static_cast<double>(of);
  std::printf("%s: %.3f (%.2f of %.2f million instructions)\n", what, found,
              static_cast<double>(cost) / 1e6, static_cast<double>(of) / 1e6);
  return found;
}

}  // namespace cost
