#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// What every target defines: one run with an input.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

namespace fuzz {

[[noreturn]] inline void fail(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  std::abort();
}

}  // namespace fuzz

// Ends the process, which counts as a crash of the target, when what must hold does not.
#define MUST(...) \
  (static_cast<bool>(__VA_ARGS__) ? void() : fuzz::fail(#__VA_ARGS__, __FILE__, __LINE__))
