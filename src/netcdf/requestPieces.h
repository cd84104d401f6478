#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "netcdf/ncf.h"

// Splitting of large requests to the library.
namespace ocxNetNc {

// The most elements of one request. The client for data sets on servers keeps a whole answer in
// memory, twice while it grows, and a 32-bit process has room for a few hundred megabytes only;
// servers refuse large requests too.
inline constexpr int64_t kMostPerRequest = int64_t{1} << 20;

// A hyperslab as the library takes it; the first `rank` entries of the lists count, one for each
// dimension.
struct Hyperslab {
  template <class Number>
  using List = std::array<Number, kDimensionLimit>;

  std::size_t rank = 0;
  List<std::size_t> start{}, count{};
  List<std::ptrdiff_t> stride{};
};

// Calls read(piece, elements) for pieces of the hyperslab, whose counts are all at least 1, of
// at most `most` elements each. The pieces follow each other in the order of the values (the last
// dimension varies fastest), so that each one's values stand behind those of the one before.
template <class Read>
void forEachPiece(const Hyperslab& slab, int64_t most, const Read& read) {
  // A piece is a run along the first dimension of which a single step is not too large; the
  // dimensions before it are taken step by step.
  std::size_t along = slab.rank;
  int64_t step = 1;  // elements of a single step along that dimension
  while (along > 0) {
    --along;
    const auto length = static_cast<int64_t>(slab.count[along]);
    if (along == 0 || length > most / step) break;
    step *= length;
  }

  Hyperslab piece = slab;
  if (slab.rank == 0) {
    read(piece, int64_t{1});
    return;
  }
  Hyperslab::List<std::size_t> at{};
  const auto run = static_cast<std::size_t>(std::max<int64_t>(most / step, 1));
  for (;;) {
    for (std::size_t d = 0; d <= along; ++d) {
      piece.start[d] = slab.start[d] + at[d] * static_cast<std::size_t>(slab.stride[d]);
      piece.count[d] = 1;
    }
    piece.count[along] = std::min(run, slab.count[along] - at[along]);
    read(piece, step * static_cast<int64_t>(piece.count[along]));
    at[along] += piece.count[along];
    std::size_t d = along;
    while (at[d] >= slab.count[d]) {
      if (d == 0) return;
      at[d] = 0;
      ++at[--d];
    }
  }
}

}  // namespace ocxNetNc
