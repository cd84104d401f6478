#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "render/contourEnds.h"
#include "render/contourScreen.h"

namespace OcxContr {

// Joins the pieces of a level into polylines. Each is found in two walks from one end to the
// nearest next: the first, from the first undrawn piece, runs through free pieces to an end of
// the chain; the second runs back from there through all that are not drawn. What a first walk
// has passed is no longer free for the later ones of the level.
class PieceJoiner {
 public:
  // The points of a polyline in order, each an end of a piece; two or more.
  using TakePolyline = std::function<void(std::span<const PieceEnd>)>;

  // Ends are joined over a squared distance of at most the tolerance. Every piece comes out in
  // exactly one polyline. Coordinates must be finite numbers.
  void join(std::span<const ScreenPiece> pieces, double tolerance, const TakePolyline& take);

 private:
  PieceEnd walkToAnEnd(PieceEnd at, double tolerance);
  void walkBack(PieceEnd at, double tolerance);
  void draw(int32_t piece);

  EndIndex ends_;
  std::vector<bool> drawn_;
  std::vector<PieceEnd> polyline_;
};

}  // namespace OcxContr
