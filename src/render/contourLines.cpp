#include "render/contourLines.h"

#include <cmath>
#include <vector>

#include "platform/Desktop.h"
#include "render/contourJoin.h"
#include "render/contourLevels.h"
#include "render/contourPieces.h"
#include "render/plotFrame.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace OcxContr {
namespace {

using KelvaneMain::SurfacePoint;
using KelvaneMain::WorldToSurface;
using platform::PictureBox;
using util::asDouble;

// Fewer pieces than this are no line worth a place in the picture.
constexpr std::size_t kFewestPieces = 3;
// A line whose middle point has at most this number has no label.
constexpr int32_t kUnlabelledMiddle = 3;

class KeptForeColour {
 public:
  explicit KeptForeColour(PictureBox& picture) : picture_(picture), before_(picture.ForeColor) {}
  ~KeptForeColour() { picture_.ForeColor = before_; }
  KeptForeColour(const KeptForeColour&) = delete;
  KeptForeColour& operator=(const KeptForeColour&) = delete;

 private:
  PictureBox& picture_;
  platform::Colour before_;
};

// The lists of a drawing, kept from one to the next: they are as large again each time.
struct WorkingLists {
  std::vector<Piece> pieces;
  std::vector<ScreenPiece> screen;
  std::vector<SurfacePoint> points;
  PieceJoiner joiner;
};
WorkingLists lists;

double joiningTolerance(const ContourStyle& style) {
  const SurfacePoint from = WorldToSurface(style.xOrigin, style.yOrigin);
  const SurfacePoint to = WorldToSurface(style.xOrigin + style.xStep, style.yOrigin + style.yStep);
  return squaredDistance(from.x, from.y, to.x, to.y);
}

// Maps the pieces; one without a place on the surface (a level without a depth) is left out.
void mapPieces() {
  lists.screen.clear();
  std::size_t kept = 0;
  for (const Piece& piece : lists.pieces) {
    const SurfacePoint first = WorldToSurface(piece.x1, piece.y1);
    const SurfacePoint second = WorldToSurface(piece.x2, piece.y2);
    if (std::isnan(first.x + first.y + second.x + second.y)) continue;
    lists.screen.push_back({first.x, first.y, second.x, second.y});
    lists.pieces[kept++] = piece;
  }
  lists.pieces.resize(kept);
}

// The points of a line are kept in single precision and mapped again.
SurfacePoint pointOf(PieceEnd end) {
  const Piece& piece = lists.pieces[static_cast<std::size_t>(end.piece)];
  const float x = util::storeSingle(end.second ? piece.x2 : piece.x1);
  const float y = util::storeSingle(end.second ? piece.y2 : piece.y1);
  return WorldToSurface(asDouble(x), asDouble(y));
}

void drawLine(PictureBox& picture, std::span<const PieceEnd> line, float level) {
  std::vector<SurfacePoint>& points = lists.points;
  points.clear();
  for (const PieceEnd end : line) points.push_back(pointOf(end));
  for (std::size_t p = 1; p < points.size(); ++p) {
    picture.Line(points[p - 1].x, points[p - 1].y, points[p].x, points[p].y, picture.ForeColor);
  }
  const int32_t middle = util::roundToLong(static_cast<double>(points.size()) / 2.0);
  if (middle > kUnlabelledMiddle) {
    const SurfacePoint place = points[static_cast<std::size_t>(middle - 1)];
    picture.PrintAt(asDouble(place.x), asDouble(place.y), util::signReservingText(level));
  }
  picture.Refresh();
  platform::desktop().ShowProgress();
}

}  // namespace

void DrawContourLines(PictureBox& picture, const ContourField& field, float& interval,
                      const ContourStyle& style) {
  field.check();
  const KeptForeColour kept(picture);
  const double tolerance = joiningTolerance(style);
  ContourLevels levels(scanRange(field), interval, style.rangeMaximum, style.rangeMinimum);
  const PieceTracer tracer(field, {style.xOrigin, style.xStep});
  while (const std::optional<float> level = levels.next()) {
    picture.ForeColor = style.lineColour;
    tracer.trace(*level, lists.pieces);
    if (lists.pieces.size() < kFewestPieces) continue;
    mapPieces();
    lists.joiner.join(lists.screen, tolerance,
                      [&](std::span<const PieceEnd> line) { drawLine(picture, line, *level); });
  }
}

}  // namespace OcxContr
