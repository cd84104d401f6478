#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "render/contourField.h"

namespace OcxContr {

// A straight piece of a contour line, in world coordinates: columns, and negated metres.
struct Piece {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const Piece&) const = default;
};

// Where the columns stand: the cell between columns i and i + 1 has its centre at
// i x step + origin.
struct ColumnPlace {
  double origin = 0, step = 1;
};

// Finds the pieces of a level by marching triangles: every cell of the grid, from the values of
// two columns and two levels, is four triangles that meet in its centre.
class PieceTracer {
 public:
  // The field's arrays must outlive the tracer.
  explicit PieceTracer(const ContourField& field, ColumnPlace place = {});

  // Replaces the list by the pieces of a level: cells level by level and column by column, the
  // triangles of a cell from the bottom to the right, the top and the left.
  void trace(float level, std::vector<Piece>& pieces) const;

 private:
  // The values at the corners of a cell, one that is absent replaced by the first.
  struct Corners {
    float leftBottom, rightBottom, rightTop, leftTop;
    float lowest, highest;
    bool crossed(float level) const { return lowest < level && level <= highest; }
  };
  // Nothing where the cell is left out.
  std::optional<Corners> cornersOf(int32_t column, int32_t levelIndex) const;
  void traceCell(int32_t column, int32_t levelIndex, const Corners& corners, float level,
                 std::vector<Piece>& pieces) const;

  // Neighbouring cells of one level index with the range of all their values, so that a level
  // passes by most of the grid without a look at its cells.
  struct Strip {
    float lowest, highest;
  };
  static constexpr int32_t kStripCells = 32;

  ContourField field_;
  ColumnPlace place_;
  int32_t stripsPerRow_ = 0;
  std::vector<Strip> strips_;
};

}  // namespace OcxContr
