#include "contourPlainJoin.h"

#include <algorithm>

namespace render_tests {
namespace {

using OcxContr::PieceEnd;
using OcxContr::ScreenPiece;

enum State : int { kDrawn = -1, kPassed = 0, kFree = 1 };

struct Nearest {
  PieceEnd end;
  double distance = 1E20;
};

double distanceBetween(float x1, float y1, float x2, float y2) {
  const double dx = static_cast<double>(x1) - static_cast<double>(x2);
  const double dy = static_cast<double>(y1) - static_cast<double>(y2);
  return dx * dx + dy * dy;
}

// The end nearest to (x, y) among the pieces whose state is at least the minimum, without the
// current piece.
Nearest nearestEnd(std::span<const ScreenPiece> pieces, const std::vector<int>& states, int minimum,
                   int32_t current, float x, float y) {
  Nearest best;
  for (int32_t p = 0; p < static_cast<int32_t>(pieces.size()); ++p) {
    const auto place = static_cast<std::size_t>(p);
    if (states[place] < minimum || p == current) continue;
    const double first = distanceBetween(x, y, pieces[place].x1, pieces[place].y1);
    const double second = distanceBetween(x, y, pieces[place].x2, pieces[place].y2);
    const bool isSecond = second <= first;
    const double nearer = isSecond ? second : first;
    if (nearer < best.distance) best = {{p, isSecond}, nearer};
  }
  return best;
}

}  // namespace

Polylines plainJoin(std::span<const ScreenPiece> pieces, double tolerance) {
  Polylines lines;
  std::vector<int> states(pieces.size(), kFree);
  const auto stateOf = [&](PieceEnd end) -> int& {
    return states[static_cast<std::size_t>(end.piece)];
  };
  const auto search = [&](PieceEnd at, int minimum) {
    const ScreenPiece& piece = pieces[static_cast<std::size_t>(at.piece)];
    return nearestEnd(pieces, states, minimum, at.piece, at.second ? piece.x2 : piece.x1,
                      at.second ? piece.y2 : piece.y1);
  };
  for (;;) {
    const auto seed = std::find_if(states.begin(), states.end(), [](int s) { return s != kDrawn; });
    if (seed == states.end()) return lines;
    PieceEnd at{static_cast<int32_t>(seed - states.begin()), true};
    for (;;) {
      const Nearest next = search(at, kFree);
      if (next.end.piece < 0 || !(next.distance <= tolerance)) break;
      stateOf(next.end) = kPassed;
      at = next.end.other();
    }
    stateOf(at) = kDrawn;
    std::vector<PieceEnd> line{at, at.other()};
    for (;;) {
      const Nearest next = search(line.back(), kPassed);
      if (next.end.piece < 0 || !(next.distance <= tolerance)) break;
      stateOf(next.end) = kDrawn;
      line.push_back(next.end.other());
    }
    lines.push_back(line);
  }
}

}  // namespace render_tests
