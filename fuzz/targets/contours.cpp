// Contour lines of small fields of any values, marks and depths: the pieces lie in their cells, the
// joiner brings each out exactly once and as a plain search would, and a drawing ends.

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/Desktop.h"
#include "render/contourJoin.h"
#include "render/contourLevels.h"
#include "render/contourLines.h"
#include "render/contourPieces.h"
#include "render/plotFrame.h"
#include "support/sampleSets.h"
#include "targets/support/CheckedBox.h"
#include "targets/support/Input.h"
#include "targets/support/must.h"
#include "unit/render/contourPlainJoin.h"
#include "util/RuntimeError.h"
#include "util/rounding.h"

using namespace OcxContr;

namespace {

struct Grid {
  explicit Grid(fuzz::Input& input) : ncols(input.choice(10)), nlevels(input.choice(8)) {
    const auto points = static_cast<std::size_t>(ncols * nlevels);
    const bool whole = input.coin();
    for (std::size_t p = 0; p < points; ++p) {
      values.push_back(input.single());
      marks.push_back(whole ? int16_t{1} : static_cast<int16_t>(input.choice(10)));
    }
    const bool regular = input.coin();
    for (int32_t k = 0; k <= nlevels; ++k) depths.push_back(regular ? 10.0 * k : input.real());
  }
  ContourField field() const { return {ncols, nlevels, values, marks, depths}; }

  int32_t ncols, nlevels;
  std::vector<float> values;
  std::vector<int16_t> marks;
  std::vector<double> depths;
};

// A piece's end lies between the columns and the depths of its grid. Where a depth is no number
// that can be computed with there is nothing to hold it to.
void checkPieces(const Grid& grid, const std::vector<Piece>& pieces) {
  const auto cells = static_cast<std::size_t>(std::max(grid.ncols - 1, 0)) *
                     static_cast<std::size_t>(std::max(grid.nlevels - 1, 0));
  MUST(pieces.size() <= 4 * cells);
  if (pieces.empty()) return;
  double deepest = 0;
  for (const double depth : grid.depths) {
    if (!(std::fabs(depth) < 1E30)) return;
    deepest = std::max(deepest, std::fabs(depth));
  }
  for (const Piece& piece : pieces) {
    for (const double x : {piece.x1, piece.x2}) MUST(x >= 0.499 && x <= grid.ncols - 0.499);
    for (const double y : {piece.y1, piece.y2}) MUST(std::fabs(y) <= deepest * 1.001);
  }
}

void checkJoin(const std::vector<ScreenPiece>& pieces, double tolerance) {
  std::vector<int> seen(pieces.size());
  render_tests::Polylines lines;
  PieceJoiner joiner;
  joiner.join(pieces, tolerance, [&](std::span<const PieceEnd> line) {
    MUST(line.size() >= 2);
    lines.emplace_back(line.begin(), line.end());
    for (std::size_t p = 1; p < line.size(); ++p) {
      ++seen[static_cast<std::size_t>(line[p].piece)];
    }
  });
  // A line begins with both ends of its first piece; after that each is a piece of its own.
  MUST(std::ranges::all_of(seen, [](int times) { return times == 1; }));
  MUST(lines == render_tests::plainJoin(pieces, tolerance));
}

// The pieces of a level as a surface gets them.
std::vector<ScreenPiece> mapped(const std::vector<Piece>& pieces) {
  std::vector<ScreenPiece> screen;
  for (const Piece& piece : pieces) {
    const ScreenPiece one{
        static_cast<float>(piece.x1 * 40), static_cast<float>(piece.y1 * -0.5),
        static_cast<float>(piece.x2 * 40), static_cast<float>(piece.y2 * -0.5)};
    if (std::isfinite(one.x1 + one.y1 + one.x2 + one.y2)) screen.push_back(one);
  }
  return screen;
}

void trace(const Grid& grid, fuzz::Input& input) {
  const PieceTracer tracer(grid.field());
  std::vector<Piece> pieces;
  for (int32_t left = 1 + input.choice(4); left > 0; --left) {
    tracer.trace(input.single(), pieces);
    checkPieces(grid, pieces);
    checkJoin(mapped(pieces), input.coin() ? 41 * 41 : input.real());
  }
}

void scatter(fuzz::Input& input) {
  std::vector<ScreenPiece> pieces;
  for (int32_t left = input.choice(64); left > 0; --left) {
    const auto place = [&] { return static_cast<float>(input.byte()); };
    const float x = place(), y = place();
    pieces.push_back({x, y, input.coin() ? x : place(), place()});
  }
  checkJoin(pieces, input.real());
}

void draw(const Grid& grid, fuzz::Input& input) {
  KelvaneMain::plot = {};
  auto& plot = KelvaneMain::plot;
  plot.PlotHeightBase = 300;
  plot.WorldX2 = grid.ncols + 1.0;
  plot.WorldY1 = -10.0 * grid.nlevels;
  if (KelvaneMain::Cartesian(input.integer(), input.integer(), 0, 0) < 0) {
    KelvaneMain::Cartesian(400, 300, 0, 0);
  }
  fuzz::CheckedBox picture;
  picture.Move(0, 0, 400, 300);
  float interval = input.single();
  const float maximum = input.single();
  const float minimum = input.single();
  // Thousands of levels end too, but take seconds under the sanitizers.
  const ValueRange range = scanRange(grid.field());
  const double levels = (util::asDouble(range.largest) - util::asDouble(range.smallest)) /
                        std::fabs(util::asDouble(interval));
  if (!(levels <= 300)) return;
  const ContourStyle style{maximum, minimum, 0, 0, 0, 1, input.coin() ? 10.0 : input.real()};
  picture.ForeColor = 77;
  try {
    DrawContourLines(picture, grid.field(), interval, style);
  } catch (const util::RuntimeError& error) {
    MUST(error.number() == util::kOverflow);
  }
  MUST(picture.ForeColor == 77);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  if (input.choice(4) == 3) {
    scatter(input);
    return 0;
  }
  const Grid grid(input);
  trace(grid, input);
  draw(grid, input);
  return 0;
}
