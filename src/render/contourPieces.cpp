#include "render/contourPieces.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "util/ocxMinmax.h"
#include "util/rounding.h"

namespace OcxContr {
namespace {

using util::asDouble;

struct Vertex {
  double x, y, z;
};

// Where a level crosses an edge; the marker in x stands for nowhere.
struct Crossing {
  double x = -999.9, y = 0;
  bool present() const { return x >= -900.0; }
};

// An edge whose two values are equal is never crossed, so nothing is divided by zero.
Crossing crossing(const Vertex& a, const Vertex& b, double level) {
  if (!(std::min(a.z, b.z) < level && level <= std::max(a.z, b.z))) return {};
  return {(level - a.z) * (b.x - a.x) / (b.z - a.z) + a.x,
          (level - a.z) * (b.y - a.y) / (b.z - a.z) + a.y};
}

void traceTriangle(const Vertex& v0, const Vertex& v1, const Vertex& v2, double level,
                   std::vector<Piece>& pieces) {
  const double lowest = std::min({v0.z, v1.z, v2.z});
  const double highest = std::max({v0.z, v1.z, v2.z});
  if (!(lowest < level && level <= highest)) return;
  const Crossing on01 = crossing(v0, v1, level);
  const Crossing on12 = crossing(v1, v2, level);
  const Crossing on20 = crossing(v2, v0, level);
  const auto append = [&](const Crossing& from, const Crossing& to) {
    pieces.push_back({from.x, from.y, to.x, to.y});
  };
  if (on01.present() && !on12.present()) {
    append(on20, on01);
  } else if (on01.present() && on12.present() && !on20.present()) {
    append(on01, on12);
  } else {
    append(on12, on20);
  }
}

}  // namespace

PieceTracer::PieceTracer(const ContourField& field, ColumnPlace place)
    : field_(field), place_(place) {
  field_.check();
  if (field_.ncols < 2 || field_.nlevels < 2) return;
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  stripsPerRow_ = (field_.ncols - 2) / kStripCells + 1;
  const auto count =
      static_cast<std::size_t>(stripsPerRow_) * static_cast<std::size_t>(field_.nlevels - 1);
  strips_.assign(count, {kInfinity, -kInfinity});
  for (int32_t i = 1; i < field_.ncols; ++i) {
    for (int32_t j = 1; j < field_.nlevels; ++j) {
      const std::optional<Corners> corners = cornersOf(i, j);
      if (!corners) continue;
      Strip& strip =
          strips_[static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(stripsPerRow_) +
                  static_cast<std::size_t>((i - 1) / kStripCells)];
      if (corners->lowest < strip.lowest) strip.lowest = corners->lowest;
      if (corners->highest > strip.highest) strip.highest = corners->highest;
    }
  }
}

std::optional<PieceTracer::Corners> PieceTracer::cornersOf(int32_t i, int32_t j) const {
  if (!field_.counts(i, j)) return std::nullopt;
  Corners corners{};
  corners.leftBottom = field_.value(i, j);
  int absent = 0;
  const auto corner = [&](int32_t column, int32_t levelIndex) {
    const int16_t mark = field_.mark(column, levelIndex);
    if (mark != 0 && mark != 9) return field_.value(column, levelIndex);
    ++absent;
    return corners.leftBottom;
  };
  corners.rightBottom = corner(i + 1, j);
  corners.rightTop = corner(i + 1, j + 1);
  corners.leftTop = corner(i, j + 1);
  if (absent >= 2) return std::nullopt;
  corners.lowest =
      ocxMinmax::Min4(corners.leftBottom, corners.rightBottom, corners.rightTop, corners.leftTop);
  corners.highest =
      ocxMinmax::Max4(corners.leftBottom, corners.rightBottom, corners.rightTop, corners.leftTop);
  // Between values that are not finite a line has no place.
  const bool finite = std::isfinite(corners.leftBottom) && std::isfinite(corners.rightBottom) &&
                      std::isfinite(corners.rightTop) && std::isfinite(corners.leftTop);
  if (!finite) return std::nullopt;
  return corners;
}

void PieceTracer::traceCell(int32_t i, int32_t j, const Corners& corners, float level,
                            std::vector<Piece>& pieces) const {
  const double halfWidth = place_.step / 2.0;
  const double centreX = i * place_.step + place_.origin;
  const double left = centreX - halfWidth;
  const double right = centreX + halfWidth;
  const double bottom = -field_.depth(j);
  const double top = -field_.depth(j + 1);
  const double lb = asDouble(corners.leftBottom), rb = asDouble(corners.rightBottom);
  const double rt = asDouble(corners.rightTop), lt = asDouble(corners.leftTop);

  const Vertex leftBottom{left, bottom, lb}, rightBottom{right, bottom, rb};
  const Vertex rightTop{right, top, rt}, leftTop{left, top, lt};
  const Vertex centre{centreX, (bottom + top) / 2.0, (rb + lb + rt + lt) / 4.0};
  const double z = asDouble(level);
  traceTriangle(leftBottom, rightBottom, centre, z, pieces);
  traceTriangle(rightBottom, rightTop, centre, z, pieces);
  traceTriangle(rightTop, leftTop, centre, z, pieces);
  traceTriangle(leftTop, leftBottom, centre, z, pieces);
}

void PieceTracer::trace(float level, std::vector<Piece>& pieces) const {
  pieces.clear();
  const int32_t lastColumn = field_.ncols - 1;
  std::size_t strip = 0;
  for (int32_t j = 1; j < field_.nlevels; ++j) {
    for (int32_t first = 1; first <= lastColumn; first += kStripCells, ++strip) {
      if (!(strips_[strip].lowest < level && level <= strips_[strip].highest)) continue;
      const int32_t last = std::min(lastColumn, first + kStripCells - 1);
      for (int32_t i = first; i <= last; ++i) {
        const std::optional<Corners> corners = cornersOf(i, j);
        if (corners && corners->crossed(level)) traceCell(i, j, *corners, level, pieces);
      }
    }
  }
}

}  // namespace OcxContr
