// tourFiles SEEDS KIND FIRST COUNT SCRATCH: damages data sets and goes through each as a host
// would. SCRATCH is the file that each is written to. On the standard output, one line an input:
// its number before, what became of it (0 refused, 1 opened, 2 drawn) and the microseconds after.
// With COUNT 0 the file is left in SCRATCH and nothing is done with it.

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <string>

#include "Mutator.h"
#include "tour.h"

namespace {

uint64_t numberOf(const char* text) {
  uint64_t number = 0;
  const char* end = text + std::strlen(text);
  const auto [rest, problem] = std::from_chars(text, end, number);
  if (problem != std::errc() || rest != end) throw std::runtime_error("no number");
  return number;
}

void write(const std::string& name, const std::string& bytes) {
  std::FILE* file = std::fopen(name.c_str(), "wb");
  if (file == nullptr) throw std::runtime_error("cannot write " + name);
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  if (std::fclose(file) != 0 || !written) throw std::runtime_error("cannot write " + name);
}

void visit(const std::string& scratch, uint64_t number) {
  std::printf("%llu ", static_cast<unsigned long long>(number));
  std::fflush(stdout);
  const auto begin = std::chrono::steady_clock::now();
  const fuzz::Outcome outcome = fuzz::tour(scratch);
  const auto time = std::chrono::steady_clock::now() - begin;
  std::printf("%d %lld\n", static_cast<int>(outcome),
              static_cast<long long>(
                  std::chrono::duration_cast<std::chrono::microseconds>(time).count()));
  std::fflush(stdout);
}

void run(char** argv) {
  fuzz::Mutator mutator(argv[1], argv[2]);
  const uint64_t first = numberOf(argv[3]);
  const uint64_t count = numberOf(argv[4]);
  const std::string scratch = argv[5];
  if (count == 0) write(scratch, mutator.file(first));
  for (uint64_t number = first; number < first + count; ++number) {
    write(scratch, mutator.file(number));
    visit(scratch, number);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::fprintf(stderr, "usage: tourFiles SEEDS KIND FIRST COUNT SCRATCH\n");
    return 2;
  }
  try {
    run(argv);
    return 0;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "tourFiles: %s\n", problem.what());
    return 1;
  }
}
