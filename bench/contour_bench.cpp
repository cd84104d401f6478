// Contour lines: finding and joining the pieces of all levels of a field, and joining alone.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

#include "arrangedPieces.h"
#include "render/contourField.h"
#include "render/contourJoin.h"
#include "render/contourLevels.h"
#include "render/contourPieces.h"
#include "util/exactMath.h"

namespace {

using OcxContr::ContourField;
using OcxContr::Piece;
using OcxContr::PieceEnd;
using OcxContr::ScreenPiece;

constexpr double kTurn = 6.283185307179586;

// Temperatures of 2 to 30 degrees with fronts and eddies, and a little noise.
struct Ocean {
  Ocean(int32_t columns, int32_t levels) : ncols(columns), nlevels(levels), depths{0} {
    std::mt19937 random(1);
    for (int32_t c = 0; c < columns; ++c) {
      const double along = static_cast<double>(c) / columns;
      for (int32_t k = 0; k < levels; ++k) {
        const double down = static_cast<double>(k) / levels;
        const double eddies = util::cosine(kTurn * (9 * along + 2 * down)) *
                              util::cosine(kTurn * (3 * down - 2 * along));
        const double noise = static_cast<double>(random() % 1000) / 4000.0;
        values.push_back(static_cast<float>(2 + 24 * (1 - down) + 4 * eddies + noise));
        marks.push_back(down > 0.8 + 0.2 * util::cosine(kTurn * 2 * along) ? 0 : 1);
      }
    }
    for (int32_t k = 0; k < levels; ++k) depths.push_back(4000.0 * k / levels);
  }
  ContourField field() const { return {ncols, nlevels, values, marks, depths}; }

  int32_t ncols, nlevels;
  std::vector<float> values;
  std::vector<int16_t> marks;
  std::vector<double> depths;
};

// A picture of 1000 x 600 pixels around the field.
std::vector<ScreenPiece> onScreen(const std::vector<Piece>& pieces, const Ocean& ocean) {
  const double scaleX = 900.0 / ocean.ncols, scaleY = -500.0 / 4000.0;
  std::vector<ScreenPiece> screen;
  for (const Piece& piece : pieces) {
    screen.push_back(
        {static_cast<float>(48 + piece.x1 * scaleX), static_cast<float>(39 + piece.y1 * scaleY),
         static_cast<float>(48 + piece.x2 * scaleX), static_cast<float>(39 + piece.y2 * scaleY)});
  }
  return screen;
}

double tolerance(const Ocean& ocean) {
  const double x = 900.0 / ocean.ncols, y = 500.0 / (ocean.nlevels - 1);
  return x * x + y * y;
}

// All levels of a field, as a drawing makes them, without the drawing.
void traceAndJoin(benchmark::State& state) {
  const Ocean ocean(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
  OcxContr::PieceJoiner joiner;
  std::vector<Piece> pieces;
  int64_t count = 0, lines = 0, levels = 0;
  for (auto _ : state) {
    count = lines = levels = 0;
    float interval = 2;
    OcxContr::ContourLevels all(OcxContr::scanRange(ocean.field()), interval, 30, 2);
    const OcxContr::PieceTracer tracer(ocean.field());
    while (const auto level = all.next()) {
      tracer.trace(*level, pieces);
      count += std::ssize(pieces);
      ++levels;
      joiner.join(onScreen(pieces, ocean), tolerance(ocean),
                  [&](std::span<const PieceEnd>) { ++lines; });
    }
  }
  state.counters["levels"] = static_cast<double>(levels);
  state.counters["pieces"] = static_cast<double>(count);
  state.counters["lines"] = static_cast<double>(lines);
}
BENCHMARK(traceAndJoin)
    ->Args({100, 50})
    ->Args({1000, 100})
    ->Args({4000, 400})
    ->Unit(benchmark::kMillisecond);

void traceOnly(benchmark::State& state) {
  const Ocean ocean(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
  std::vector<Piece> pieces;
  for (auto _ : state) {
    float interval = 2;
    OcxContr::ContourLevels all(OcxContr::scanRange(ocean.field()), interval, 30, 2);
    const OcxContr::PieceTracer tracer(ocean.field());
    while (const auto level = all.next()) tracer.trace(*level, pieces);
    benchmark::DoNotOptimize(pieces.data());
  }
}
BENCHMARK(traceOnly)->Args({4000, 400})->Unit(benchmark::kMillisecond);

// So many pieces of one level in kind and hostile arrangements.
void join(benchmark::State& state) {
  const bench::Arrangement arrangement =
      bench::kArrangements[static_cast<std::size_t>(state.range(0))];
  const std::vector<ScreenPiece> pieces =
      bench::arranged(arrangement, static_cast<int32_t>(state.range(1)));
  OcxContr::PieceJoiner joiner;
  int64_t lines = 0;
  for (auto _ : state) {
    lines = 0;
    joiner.join(pieces, bench::tolerance(arrangement), [&](std::span<const PieceEnd>) { ++lines; });
  }
  state.SetLabel(bench::nameOf(arrangement));
  state.counters["lines"] = static_cast<double>(lines);
}
BENCHMARK(join)
    ->ArgsProduct({benchmark::CreateDenseRange(0, std::ssize(bench::kArrangements) - 1, 1),
                   {62'500, 250'000, 1'000'000}})
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
