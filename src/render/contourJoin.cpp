#include "render/contourJoin.h"

namespace OcxContr {

using Among = EndIndex::Among;

void PieceJoiner::join(std::span<const ScreenPiece> pieces, double tolerance,
                       const TakePolyline& take) {
  ends_.build(pieces);
  drawn_.assign(pieces.size(), false);
  const auto count = static_cast<int32_t>(pieces.size());
  for (int32_t seed = 0; seed < count; ++seed) {
    // A polyline may leave its own seed out, and begins again with it then.
    while (!drawn_[static_cast<std::size_t>(seed)]) {
      walkBack(walkToAnEnd({seed, true}, tolerance), tolerance);
      take(polyline_);
    }
  }
}

// The seed is not passed by starting from it: it can be met again like any free piece.
PieceEnd PieceJoiner::walkToAnEnd(PieceEnd at, double tolerance) {
  for (;;) {
    const PieceEnd next = ends_.nearest(at, tolerance, Among::Free);
    if (next.piece < 0) return at;
    ends_.pass(next.piece);
    at = next.other();
  }
}

void PieceJoiner::walkBack(PieceEnd at, double tolerance) {
  draw(at.piece);
  polyline_.assign({at, at.other()});
  for (;;) {
    const PieceEnd next = ends_.nearest(polyline_.back(), tolerance, Among::Undrawn);
    if (next.piece < 0) return;
    draw(next.piece);
    polyline_.push_back(next.other());
  }
}

void PieceJoiner::draw(int32_t piece) {
  ends_.draw(piece);
  drawn_[static_cast<std::size_t>(piece)] = true;
}

}  // namespace OcxContr
