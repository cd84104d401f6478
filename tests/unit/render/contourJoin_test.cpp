#include "render/contourJoin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "contourPieceMaker.h"
#include "contourPlainJoin.h"

namespace OcxContr {
void PrintTo(const PieceEnd& end, std::ostream* out) {
  *out << end.piece << (end.second ? "b" : "a");
}
}  // namespace OcxContr

namespace {

using OcxContr::PieceEnd;
using OcxContr::PieceJoiner;
using render_tests::PieceMaker;
using render_tests::plainJoin;
using render_tests::Polylines;
using render_tests::ScreenPieces;

// First and second end of a piece.
PieceEnd a(int32_t piece) { return {piece, false}; }
PieceEnd b(int32_t piece) { return {piece, true}; }

class ContourJoinTest : public testing::Test {
 protected:
  Polylines joined(const ScreenPieces& pieces, double tolerance) {
    Polylines lines;
    joiner.join(pieces, tolerance, [&](std::span<const PieceEnd> line) {
      lines.emplace_back(line.begin(), line.end());
    });
    return lines;
  }
  void expectPlain(const ScreenPieces& pieces, double tolerance) {
    ASSERT_EQ(joined(pieces, tolerance), plainJoin(pieces, tolerance))
        << pieces.size() << " pieces, tolerance " << tolerance;
  }
  // With tolerances from nothing to everything.
  void expectPlainAtAny(const ScreenPieces& pieces) {
    for (const double tolerance : {0.0, 1.0, 2.0, 30.0, 1e4, 1e19, 1e300}) {
      ASSERT_NO_FATAL_FAILURE(expectPlain(pieces, tolerance));
    }
  }
  // Every piece comes out once.
  void expectAllDrawn(const ScreenPieces& pieces, double tolerance) {
    std::vector<int32_t> times(pieces.size(), 0);
    joiner.join(pieces, tolerance, [&](std::span<const PieceEnd> line) {
      ++times[static_cast<std::size_t>(line[0].piece)];
      for (std::size_t p = 2; p < line.size(); ++p) {
        ++times[static_cast<std::size_t>(line[p].piece)];
      }
    });
    EXPECT_EQ(std::count(times.begin(), times.end(), 1), std::ssize(pieces));
  }

  PieceJoiner joiner;  // its lists are used again and again, as in a drawing
};

TEST_F(ContourJoinTest, WalksToAnEndAndBack) {
  // 0: 1-2, 1: 0-1, 2: 3-2, in a row.
  EXPECT_EQ(joined({{1, 0, 2, 0}, {0, 0, 1, 0}, {3, 0, 2, 0}}, 0),
            (Polylines{{a(2), b(2), a(0), a(1)}}));
}

TEST_F(ContourJoinTest, GapsUpToTheToleranceAreBridged) {
  const ScreenPieces pieces = {{0, 0, 1, 0}, {3, 0, 4, 0}};
  EXPECT_EQ(joined(pieces, 4), (Polylines{{b(1), a(1), a(0)}}));
  EXPECT_EQ(joined(pieces, 3.999), (Polylines{{b(0), a(0)}, {b(1), a(1)}}));
}

TEST_F(ContourJoinTest, DistancesFrom1E20OnAreTooFar) {
  const ScreenPieces pieces = {{0, 0, 0, 0}, {1e10F, 0, 1e10F, 0}};
  EXPECT_EQ(joined(pieces, 1e300).size(), 2U);  // 1e10 as a single, squared: exactly 1E20
  EXPECT_EQ(joined({{0, 0, 0, 0}, {9.9e9F, 0, 9.9e9F, 0}}, 1e300).size(), 1U);
}

TEST_F(ContourJoinTest, TheFirstOfEquallyNearPiecesAndTheSecondOfItsEnds) {
  // From (0, 0): pieces 2 and 1 begin equally near, 1 comes first in the list.
  EXPECT_EQ(joined({{-9, 0, 0, 0}, {0, 1, 0, 5}, {1, 0, 5, 0}}, 1),
            (Polylines{{b(1), a(1), a(0)}, {b(2), a(2)}}));
  // Both ends of piece 1 are equally near: its second is entered, its first comes out.
  EXPECT_EQ(joined({{-9, 0, 0, 0}, {0, 2, 2, 0}}, 4), (Polylines{{a(0), b(0), a(1)}}));
  // A piece without a length goes on from its first end.
  EXPECT_EQ(joined({{-9, 0, 0, 0}, {0, 0, 0, 0}}, 0), (Polylines{{a(0), b(0), a(1)}}));
}

TEST_F(ContourJoinTest, TheSeedCanBeMetAgain) {
  // A triangle: the first walk comes back to its seed and passes through it.
  const ScreenPieces ring = {{0, 0, 4, 0}, {4, 0, 2, 3}, {2, 3, 0, 0}};
  EXPECT_EQ(joined(ring, 0), (Polylines{{b(0), a(0), a(2), a(1)}}));
  ASSERT_NO_FATAL_FAILURE(expectPlain(ring, 0));
}

TEST_F(ContourJoinTest, PassedPiecesStayPassedForLaterLines) {
  // The first walk goes from the seed up a branch; what it has passed and the way back leaves out
  // is a seed of its own, which later first walks do not enter.
  PieceMaker maker(20);
  bool found = false;
  for (int32_t round = 0; round < 200 && !found; ++round) {
    const ScreenPieces pieces = maker.onLattice(12, 4, 1);
    const Polylines lines = joined(pieces, 1);
    ASSERT_EQ(lines, plainJoin(pieces, 1));
    found = lines.size() > 2;
  }
  EXPECT_TRUE(found);
}

TEST_F(ContourJoinTest, NothingGivesNothing) {
  EXPECT_TRUE(joined({}, 1).empty());
  EXPECT_EQ(joined({{1, 2, 3, 4}}, 1e30), (Polylines{{b(0), a(0)}}));
}

TEST_F(ContourJoinTest, LatticesAreJoinedAsByAPlainSearch) {
  PieceMaker maker(1);
  for (int32_t round = 0; round < 600; ++round) {
    const int32_t count = 1 + maker.below(50), side = 1 + maker.below(12);
    const float unit = round % 3 == 0 ? 1e12F : round % 3 == 1 ? 1.0F : 1e-30F;
    const ScreenPieces pieces = maker.onLattice(count, side, unit);
    const double scale = static_cast<double>(unit) * static_cast<double>(unit);
    for (const double steps : {0.0, 1.0, 2.0, 5.0, 1e6}) {
      ASSERT_NO_FATAL_FAILURE(expectPlain(pieces, steps * scale)) << "round " << round;
    }
  }
}

TEST_F(ContourJoinTest, PointsAreJoinedAsByAPlainSearch) {
  PieceMaker maker(2);
  for (int32_t round = 0; round < 300; ++round) {
    const ScreenPieces pieces = maker.withPoints(1 + maker.below(40), 1 + maker.below(8));
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(pieces)) << "round " << round;
  }
  for (const int32_t count : {1, 2, 3, 50}) {
    const ScreenPieces equal(static_cast<std::size_t>(count), {7, 7, 7, 7});
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(equal));
  }
}

TEST_F(ContourJoinTest, LinesClustersAndSoupsAreJoinedAsByAPlainSearch) {
  PieceMaker maker(3);
  for (int32_t round = 0; round < 200; ++round) {
    const int32_t count = 1 + maker.below(60);
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(maker.onLine(count, 1 + maker.below(30))));
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(maker.inClusters(count, 1 + maker.below(4))));
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(maker.inSquare(count, 100, 10)));
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(maker.inSquare(count, 1e18F, 1e18F)));
  }
}

TEST_F(ContourJoinTest, FieldsAreJoinedAsByAPlainSearch) {
  PieceMaker maker(4);
  for (int32_t round = 0; round < 300; ++round) {
    const int32_t columns = 2 + maker.below(9), levels = 2 + maker.below(5);
    const int32_t values = 2 + maker.below(5);
    const float level = static_cast<float>(1 + maker.below(values)) - (round % 2 == 0 ? 0.5F : 0);
    const ScreenPieces pieces = maker.ofField(columns, levels, values, level);
    for (const double tolerance : {0.0, 60.0, 174.29, 1e5}) {
      ASSERT_NO_FATAL_FAILURE(expectPlain(pieces, tolerance)) << "round " << round;
      ASSERT_NO_FATAL_FAILURE(expectPlain(maker.shuffled(pieces), tolerance));
    }
  }
  for (const int32_t side : {2, 3, 4, 9, 14}) {
    const ScreenPieces board = PieceMaker::ofCheckerboard(side, side);
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(board));
    ASSERT_NO_FATAL_FAILURE(expectPlainAtAny(maker.shuffled(board)));
  }
}

TEST_F(ContourJoinTest, LargerSetsAreJoinedAsByAPlainSearch) {
  PieceMaker maker(5);
  ASSERT_NO_FATAL_FAILURE(expectPlain(maker.inSquare(2000, 500, 12), 40));
  ASSERT_NO_FATAL_FAILURE(expectPlain(maker.onLattice(2000, 30, 1), 2));
  ASSERT_NO_FATAL_FAILURE(expectPlain(maker.inClusters(1500, 6), 1));
  ASSERT_NO_FATAL_FAILURE(expectPlain(maker.ofField(60, 20, 6, 2.5F), 174.29));
}

// A search through the list at every step would take hours for each of these.
TEST_F(ContourJoinTest, TwoHundredThousandPiecesAreNoTrouble) {
  constexpr int32_t kMany = 200'000;
  PieceMaker maker(6);
  expectAllDrawn(ScreenPieces(kMany, {7, 7, 7, 7}), 1);
  expectAllDrawn(ScreenPieces(kMany, {7, 7, 8, 8}), 1);
  expectAllDrawn(maker.onLine(kMany, 1000), 30);
  expectAllDrawn(maker.onLine(kMany, kMany), 30);
  expectAllDrawn(maker.inClusters(kMany, 5), 1e6);
  expectAllDrawn(maker.inSquare(kMany, 3000, 5), 1e30);
  expectAllDrawn(maker.inSquare(kMany, 1, 1), 1e4);  // all ends within the tolerance
  expectAllDrawn(maker.inSquare(kMany, 3000, 3000), 1e30);
  expectAllDrawn(maker.onLattice(kMany, 100, 1), 1);
  expectAllDrawn(PieceMaker::ofCheckerboard(225, 225), 174);
  expectAllDrawn(maker.withPoints(kMany, 20), 1e30);
}

}  // namespace
