#include "render/contourPieces.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "contourGrid.h"
#include "util/RuntimeError.h"

namespace {

using OcxContr::Piece;
using OcxContr::PieceTracer;
using render_tests::ContourGrid;

std::vector<Piece> traced(const ContourGrid& grid, float level) {
  std::vector<Piece> pieces{{9, 9, 9, 9}};  // what an earlier level left
  PieceTracer(grid.field()).trace(level, pieces);
  return pieces;
}

void expectPieces(const std::vector<Piece>& found, const std::vector<Piece>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t p = 0; p < found.size(); ++p) {
    SCOPED_TRACE("piece " + std::to_string(p));
    EXPECT_NEAR(found[p].x1, expected[p].x1, 1e-13);
    EXPECT_NEAR(found[p].y1, expected[p].y1, 1e-12);
    EXPECT_NEAR(found[p].x2, expected[p].x2, 1e-13);
    EXPECT_NEAR(found[p].y2, expected[p].y2, 1e-12);
  }
}

TEST(ContourPiecesTest, OfSmallGrids) {
  struct Row {
    ContourGrid::Rows values;
    ContourGrid::Marks marks;
    float level;
    std::vector<Piece> pieces;
  };
  const double sixth = 1.0 / 6;
  const Row rows[] = {
      {{{0, 1}, {0, 1}}, {}, 0.5F, {{1, -5, 1, 0}, {1, -10, 1, -5}, {1, -5, 1, -5}}},
      {{{0, 0}, {1, 1}}, {}, 0.5F, {{1, -5, 1, -5}, {1, -5, 1.5, -5}, {0.5, -5, 1, -5}}},
      {{{0, 1}, {1, 0}},
       {},
       0.5F,
       {{1, -5, 1, 0}, {1.5, -5, 1, -5}, {1, -5, 1, -10}, {0.5, -5, 1, -5}}},
      // A corner that equals the level is crossed as the greater value, never as the smaller.
      {{{0, 4}, {8, 4}}, {}, 4, {{1, -5, 1.5, 0}, {0.5, -5, 1, -5}}},
      {{{0, 4}, {8, 4}}, {}, 8, {{0.5, -10, 0.5, -10}, {0.5, -10, 0.5, -10}}},
      {{{0, 4}, {8, 4}}, {}, 0, {}},
      // An absent corner takes the first corner's value; two of them leave the cell out, and so
      // does an absent first corner.
      {{{0, 99}, {8, 4}},
       {{1, 0}, {1, 1}},
       3,
       {{1, -5, 1, -5}, {1, -5, 1.5, -7.5}, {0.5, -3.75, 1, -5}}},
      {{{0, 99}, {99, 4}}, {{1, 0}, {0, 1}}, 3, {}},
      {{{0, 4}, {8, 4}}, {{0, 1}, {1, 1}}, 3, {}},
      {{{0, 4}, {8, 4}}, {{9, 1}, {1, 1}}, 3, {}},
      {{{0, 4}, {8, 4}},
       {{1, 1}, {9, 1}},
       3,
       {{1.25, 0, 1.25, -2.5}, {1.25, -7.5, 1.25, -2.5}, {1.25, -7.5, 1.25, -10}}},
      {{{0, 4}, {8, 4}},
       {{8, 1}, {1, 1}},
       3,
       {{0.875, -3.75, 1.25, 0}, {0.5, -3.75, 0.875, -3.75}}},
      {{{0, 0, 0}, {0, 4, 0}, {0, 0, 0}},
       {},
       2,
       {{1.5, -5, 1 + sixth, -40 * sixth},
        {1 + sixth, -40 * sixth, 1, -10},
        {2, -10, 2 - sixth, -40 * sixth},
        {2 - sixth, -40 * sixth, 1.5, -5},
        {1, -10, 1 + sixth, -100 * sixth},
        {1 + sixth, -100 * sixth, 1.5, -20},
        {2 - sixth, -100 * sixth, 2, -10},
        {1.5, -20, 2 - sixth, -100 * sixth}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    expectPieces(traced(ContourGrid(row.values, row.marks), row.level), row.pieces);
  }
}

TEST(ContourPiecesTest, MarksOneToEightAreValuesAndNineIsAbsentAsALaterCorner) {
  const ContourGrid::Rows values = {{0, 4}, {8, 4}};
  const auto whole = traced(ContourGrid(values), 3);
  for (int16_t mark = 2; mark <= 8; ++mark) {
    for (int32_t corner = 0; corner < 4; ++corner) {
      ContourGrid grid(values);
      grid.mark(1 + corner % 2, 1 + corner / 2) = mark;
      EXPECT_EQ(traced(grid, 3), whole) << mark << " at " << corner;
    }
  }
  for (int32_t corner = 1; corner < 4; ++corner) {
    ContourGrid nine(values), zero(values);
    nine.mark(1 + corner % 2, 1 + corner / 2) = 9;
    zero.mark(1 + corner % 2, 1 + corner / 2) = 0;
    EXPECT_EQ(traced(nine, 3), traced(zero, 3)) << corner;
    EXPECT_NE(traced(nine, 3), whole) << corner;
  }
  const ContourGrid two(values, {{1, 9}, {1, 0}});
  EXPECT_TRUE(traced(two, 3).empty());
}

TEST(ContourPiecesTest, ColumnsStandWhereTheCallerPlacesThem) {
  const ContourGrid grid({{0, 1}, {0, 1}});
  std::vector<Piece> pieces;
  PieceTracer(grid.field(), {100, 4}).trace(0.5F, pieces);
  expectPieces(pieces, {{104, -5, 104, 0}, {104, -10, 104, -5}, {104, -5, 104, -5}});
}

// What lies beside a line in the same strip of cells, or strips away, is found or passed by just
// the same.
TEST(ContourPiecesTest, WideGridsAreTracedInCellOrder) {
  for (const int32_t columns : {2, 31, 32, 33, 34, 64, 65, 66, 100, 1000}) {
    ContourGrid grid(columns, 4);
    for (int32_t k = 1; k <= 4; ++k) {
      for (int32_t c = 1; c <= columns; ++c) {
        grid.value(c, k) = static_cast<float>((c * 7919 + k * 104729) % 101);
        if (c % 13 == 0) grid.mark(c, k) = 0;
      }
    }
    const auto pieces = traced(grid, 50);
    // Cell by cell, each as a grid of its own.
    std::vector<Piece> expected;
    for (int32_t k = 1; k < 4; ++k) {
      for (int32_t c = 1; c < columns; ++c) {
        ContourGrid cell(2, 2);
        cell.depths = {0, grid.depths[static_cast<std::size_t>(k)],
                       grid.depths[static_cast<std::size_t>(k + 1)]};
        for (int32_t corner = 0; corner < 4; ++corner) {
          const int32_t dc = corner % 2, dk = corner / 2;
          cell.value(1 + dc, 1 + dk) = grid.value(c + dc, k + dk);
          cell.mark(1 + dc, 1 + dk) = grid.mark(c + dc, k + dk);
        }
        std::vector<Piece> own;
        PieceTracer(cell.field(), {static_cast<double>(c - 1), 1}).trace(50, own);
        expected.insert(expected.end(), own.begin(), own.end());
      }
    }
    EXPECT_EQ(pieces, expected) << columns;
    EXPECT_FALSE(pieces.empty()) << columns;
  }
}

TEST(ContourPiecesTest, HugeValuesHaveAPlaceAndInfiniteOnesNone) {
  const float huge = std::numeric_limits<float>::max();
  expectPieces(traced(ContourGrid({{-huge, huge}, {-huge, huge}}), 1),
               {{1, 0, 1, -5}, {1, -5, 1, -5}, {1, -5, 1, -10}});
  for (const float bad :
       {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    for (int32_t corner = 0; corner < 4; ++corner) {
      ContourGrid grid({{0, 1}, {0, 1}});
      grid.value(1 + corner % 2, 1 + corner / 2) = bad;
      EXPECT_TRUE(traced(grid, 0.5F).empty()) << bad << " at " << corner;
    }
  }
}

TEST(ContourPiecesTest, OneColumnOrOneLevelHasNoCell) {
  EXPECT_TRUE(traced(ContourGrid({{1, 2, 3}}), 2).empty());
  EXPECT_TRUE(traced(ContourGrid({{1}, {2}, {3}}), 2).empty());
  EXPECT_TRUE(traced(ContourGrid(1, 1), 0).empty());
  const OcxContr::ContourField nothing;
  EXPECT_THROW(PieceTracer{nothing}, util::RuntimeError);  // not even depths
}

TEST(ContourPiecesTest, ArraysSmallerThanTheCountsAreRefused) {
  const ContourGrid grid({{0, 1}, {0, 1}});
  for (int32_t what = 0; what < 5; ++what) {
    OcxContr::ContourField field = grid.field();
    if (what == 0) field.values = field.values.first(3);
    if (what == 1) field.marks = field.marks.first(3);
    if (what == 2) field.depths = field.depths.first(2);
    if (what == 3) field.ncols = 3;
    if (what == 4) field.nlevels = -1;
    EXPECT_THROW(PieceTracer{field}, util::RuntimeError) << what;
  }
}

}  // namespace
