#pragma once

#include <benchmark/benchmark.h>

#include <exception>
#include <string>
#include <utility>

#include "Scene.h"
#include "allocations.h"

namespace bench {

// Registers a benchmark: body(state) makes what it needs and measures. What is thrown becomes the
// benchmark's error.
template <class Body>
benchmark::internal::Benchmark* add(const std::string& name, Body body) {
  const auto run = [body](benchmark::State& state) {
    try {
      body(state);
    } catch (const std::exception& error) {
      state.SkipWithError(error.what());
    }
  };
  return benchmark::RegisterBenchmark(name.c_str(), run)
      ->Unit(benchmark::kMillisecond)
      ->MeasureProcessCPUTime()
      ->UseRealTime();
}

// Measures what a function does. It runs twice before: once to warm every cache, once to count the
// allocations.
template <class Work>
void measure(benchmark::State& state, Work work) {
  work();
  const int64_t before = allocations();
  work();
  state.counters["allocations"] = static_cast<double>(allocations() - before);
  for (auto _ : state) work();
}

// Notes the size of what a scene draws.
inline void tellSize(benchmark::State& state, const Scene& scene) {
  state.counters["columns"] = scene.columns();
  state.counters["levels"] = scene.levels();
}

// The groups of benchmarks; file(name) is the path of a data set's file.
using Files = std::string (*)(const std::string& name);
void addReading(Files file);
void addDrawing(Files file);
void addScaling(Files file);

}  // namespace bench
