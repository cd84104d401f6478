#include "platform/clipLine.h"

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

// The part of the way 0..1 along a line that is inside.
struct Way {
  double from = 0, to = 1;
  bool empty() const { return !(from <= to); }
};

void clipDirection(Way& way, double start, double advance, double low, double high) {
  if (advance == 0.0) {
    if (!(low <= start && start <= high)) way = {1, 0};
    return;
  }
  const double a = (low - start) / advance;
  const double b = (high - start) / advance;
  way.from = std::max(way.from, std::min(a, b));
  way.to = std::min(way.to, std::max(a, b));
}

}  // namespace

std::optional<LinePiece> clipLine(const LinePiece& line, double width, double height,
                                  double thickness) {
  const double border = thickness + 2.0;
  const auto inside = [border](double place, double size) {
    return -border <= place && place <= size + border;
  };
  // Most lines are inside all along.
  if (inside(line.x1, width) && inside(line.x2, width) && inside(line.y1, height) &&
      inside(line.y2, height)) {
    return line;
  }
  const double dx = line.x2 - line.x1;
  const double dy = line.y2 - line.y1;
  if (!std::isfinite(dx) || !std::isfinite(dy)) return std::nullopt;
  Way way;
  clipDirection(way, line.x1, dx, -border, width + border);
  clipDirection(way, line.y1, dy, -border, height + border);
  if (way.empty()) return std::nullopt;
  LinePiece piece = line;
  if (way.from > 0.0) {
    piece.x1 = line.x1 + way.from * dx;
    piece.y1 = line.y1 + way.from * dy;
  }
  if (way.to < 1.0) {
    piece.x2 = line.x1 + way.to * dx;
    piece.y2 = line.y1 + way.to * dy;
  }
  // On a line that comes from very far away a place has rounding errors as large as the surface or
  // larger, and so has the decision which of its ends are inside.
  for (double* const x : {&piece.x1, &piece.x2}) *x = std::clamp(*x, -border, width + border);
  for (double* const y : {&piece.y1, &piece.y2}) *y = std::clamp(*y, -border, height + border);
  return piece;
}

}  // namespace platform
