#include "contourPieceMaker.h"

#include <cmath>
#include <limits>
#include <utility>

#include "contourGrid.h"
#include "render/contourPieces.h"

namespace render_tests {
namespace {

ScreenPieces tracedOnScreen(const ContourGrid& grid, float level) {
  std::vector<OcxContr::Piece> pieces;
  OcxContr::PieceTracer(grid.field()).trace(level, pieces);
  ScreenPieces screen;
  const auto x = [](double column) { return static_cast<float>(48 + 7.3 * column); };
  const auto y = [](double depth) { return static_cast<float>(39 - 1.1 * depth); };
  for (const OcxContr::Piece& piece : pieces) {
    screen.push_back({x(piece.x1), y(piece.y1), x(piece.x2), y(piece.y2)});
  }
  return screen;
}

}  // namespace

float PieceMaker::within(float side) {
  return side * static_cast<float>(random_() >> 8U) / static_cast<float>(1U << 24U);
}

ScreenPieces PieceMaker::onLattice(int32_t count, int32_t side, float unit) {
  ScreenPieces pieces;
  const auto place = [&] { return unit * static_cast<float>(below(side) - side / 2); };
  while (std::cmp_less(pieces.size(), count)) {
    const float x1 = place(), y1 = place(), x2 = place(), y2 = place();
    pieces.push_back({x1, y1, x2, y2});
  }
  return pieces;
}

ScreenPieces PieceMaker::inSquare(int32_t count, float side, float reach) {
  ScreenPieces pieces;
  while (std::cmp_less(pieces.size(), count)) {
    const float x = within(side), y = within(side);
    const float dx = within(2 * reach) - reach, dy = within(2 * reach) - reach;
    pieces.push_back({x, y, x + dx, y + dy});
  }
  return pieces;
}

ScreenPieces PieceMaker::onLine(int32_t count, int32_t places) {
  ScreenPieces pieces;
  const int32_t direction = below(3);
  while (std::cmp_less(pieces.size(), count)) {
    const auto from = static_cast<float>(below(places)), to = static_cast<float>(below(places));
    if (direction == 0) pieces.push_back({from, 5, to, 5});
    if (direction == 1) pieces.push_back({-3, from, -3, to});
    if (direction == 2) pieces.push_back({from, from, to, to});
  }
  return pieces;
}

ScreenPieces PieceMaker::inClusters(int32_t count, int32_t clusters) {
  ScreenPieces pieces;
  const auto nudged = [&](float value) {
    for (int32_t n = below(4); n > 0; --n) {
      value = std::nextafter(value, std::numeric_limits<float>::infinity());
    }
    return value;
  };
  const auto centre = [&] { return static_cast<float>(100 * below(clusters)) + 0.1F; };
  while (std::cmp_less(pieces.size(), count)) {
    const float x = centre(), y = centre();
    const bool across = below(5) == 0;
    const float x2 = across ? centre() : x;
    const float a = nudged(x), b = nudged(y), c = nudged(x2), d = nudged(y);
    pieces.push_back({a, b, c, d});
  }
  return pieces;
}

ScreenPieces PieceMaker::withPoints(int32_t count, int32_t side) {
  ScreenPieces pieces = onLattice(count, side, 1);
  for (OcxContr::ScreenPiece& piece : pieces) {
    if (below(2) == 0) piece.x2 = piece.x1, piece.y2 = piece.y1;
  }
  return pieces;
}

ScreenPieces PieceMaker::ofField(int32_t columns, int32_t levels, int32_t values, float level) {
  ContourGrid grid(columns, levels);
  for (float& value : grid.values) value = static_cast<float>(below(values));
  for (int16_t& mark : grid.marks) mark = below(20) == 0 ? int16_t{0} : int16_t{1};
  return tracedOnScreen(grid, level);
}

ScreenPieces PieceMaker::ofCheckerboard(int32_t columns, int32_t levels) {
  ContourGrid grid(columns, levels);
  for (int32_t k = 1; k <= levels; ++k) {
    for (int32_t c = 1; c <= columns; ++c) grid.value(c, k) = static_cast<float>((c + k) % 2);
  }
  return tracedOnScreen(grid, 0.5F);
}

ScreenPieces PieceMaker::shuffled(ScreenPieces pieces) {
  for (std::size_t n = pieces.size(); n > 1; --n) {
    std::swap(pieces[n - 1], pieces[static_cast<std::size_t>(below(static_cast<int32_t>(n)))]);
  }
  for (OcxContr::ScreenPiece& piece : pieces) {
    if (below(2) == 0) piece = {piece.x2, piece.y2, piece.x1, piece.y1};
  }
  return pieces;
}

}  // namespace render_tests
