#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "render/contourScreen.h"

namespace render_tests {

using ScreenPieces = std::vector<OcxContr::ScreenPiece>;

// Random pieces for joining, the same on every platform for a seed.
class PieceMaker {
 public:
  explicit PieceMaker(uint32_t seed) : random_(seed) {}

  int32_t below(int32_t count) {
    return static_cast<int32_t>(random_() % static_cast<uint32_t>(count));
  }
  // Ends on a lattice of side x side points, a unit apart: many ties and many equal ends.
  ScreenPieces onLattice(int32_t count, int32_t side, float unit);
  // Ends anywhere in a square, pieces at most reach long.
  ScreenPieces inSquare(int32_t count, float side, float reach);
  // Ends on one line, in either direction or along the diagonal.
  ScreenPieces onLine(int32_t count, int32_t places);
  // Tight groups far apart, with ends a rounding error from each other.
  ScreenPieces inClusters(int32_t count, int32_t clusters);
  // Some pieces without a length, some of them on top of each other.
  ScreenPieces withPoints(int32_t count, int32_t side);
  // The lines of a field of whole numbers 0..values-1 at one level, as traced: ties and plateaus.
  ScreenPieces ofField(int32_t columns, int32_t levels, int32_t values, float level);
  // The lines of a checkerboard.
  static ScreenPieces ofCheckerboard(int32_t columns, int32_t levels);
  // The same pieces in another order, some turned round.
  ScreenPieces shuffled(ScreenPieces pieces);

 private:
  float within(float side);
  std::mt19937 random_;
};

}  // namespace render_tests
