#pragma once

#include <cstdint>

namespace OcxContr {

// A piece between its two ends in surface coordinates.
struct ScreenPiece {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

// One end of a piece; pieces count from 0 in list order.
struct PieceEnd {
  int32_t piece = -1;
  bool second = false;
  bool operator==(const PieceEnd&) const = default;
  PieceEnd other() const { return {piece, !second}; }
};

// Squared distance of two surface points: singles, taken in double.
inline double squaredDistance(float x1, float y1, float x2, float y2) {
  const double dx = static_cast<double>(x2) - static_cast<double>(x1);
  const double dy = static_cast<double>(y2) - static_cast<double>(y1);
  return dx * dx + dy * dy;
}

}  // namespace OcxContr
