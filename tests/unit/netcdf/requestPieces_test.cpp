#include "netcdf/requestPieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

using ocxNetNc::forEachPiece;
using ocxNetNc::Hyperslab;
using Sizes = std::vector<std::size_t>;
using Pieces = std::vector<std::pair<Sizes, Sizes>>;  // start and count of each

Hyperslab slabOf(const Sizes& start, const Sizes& count,
                 const std::vector<std::ptrdiff_t>& stride) {
  Hyperslab slab;
  slab.rank = count.size();
  std::ranges::copy(start, slab.start.begin());
  std::ranges::copy(count, slab.count.begin());
  std::ranges::copy(stride, slab.stride.begin());
  return slab;
}
// As many of a list's entries as there are dimensions.
template <class List>
Sizes listed(const List& list, std::size_t rank) {
  return {list.begin(), list.begin() + static_cast<std::ptrdiff_t>(rank)};
}
Hyperslab slabOf(const Sizes& count) {
  return slabOf(Sizes(count.size(), 0), count, std::vector<std::ptrdiff_t>(count.size(), 1));
}

Pieces piecesOf(const Hyperslab& slab, int64_t most) {
  Pieces pieces;
  forEachPiece(slab, most, [&](const Hyperslab& piece, int64_t elements) {
    int64_t product = 1;
    for (const std::size_t count : listed(piece.count, piece.rank)) {
      product *= static_cast<int64_t>(count);
    }
    EXPECT_EQ(product, elements);
    EXPECT_LE(elements, most);
    EXPECT_EQ(piece.stride, slab.stride);
    pieces.emplace_back(listed(piece.start, piece.rank), listed(piece.count, piece.rank));
  });
  return pieces;
}

TEST(RequestPieces, LeaveASmallRequestWhole) {
  EXPECT_EQ(piecesOf(slabOf({2, 3, 4}), 24), (Pieces{{{0, 0, 0}, {2, 3, 4}}}));
}

TEST(RequestPieces, AreRunsAlongTheFirstDimensionThatFits) {
  EXPECT_EQ(piecesOf(slabOf({5, 4}), 8),
            (Pieces{{{0, 0}, {2, 4}}, {{2, 0}, {2, 4}}, {{4, 0}, {1, 4}}}));
  EXPECT_EQ(piecesOf(slabOf({2, 5}), 3), (Pieces{{{0, 0}, {1, 3}},
                                                 {{0, 3}, {1, 2}},
                                                 {{1, 0}, {1, 3}},
                                                 {{1, 3}, {1, 2}}}));
}

TEST(RequestPieces, StepByTheStride) {
  EXPECT_EQ(piecesOf(slabOf({7, 1}, {4, 2}, {3, 2}), 4),
            (Pieces{{{7, 1}, {2, 2}}, {{13, 1}, {2, 2}}}));
}

TEST(RequestPieces, HaveOneElementForAScalar) {
  EXPECT_EQ(piecesOf(slabOf({}), 1), (Pieces{{{}, {}}}));
}

// What must hold of every split: the pieces together are all elements, in their order.
TEST(RequestPieces, FollowTheOrderOfTheValues) {
  const std::vector<Sizes> shapes = {{1}, {9}, {1, 7}, {3, 1, 4}, {2, 3, 5}, {4, 1, 1, 6},
                                     {2, 2, 2, 2, 3}};
  for (const Sizes& shape : shapes) {
    for (int64_t most = 1; most <= 50; ++most) {
      std::vector<std::size_t> order;
      forEachPiece(slabOf(shape), most, [&](const Hyperslab& piece, int64_t elements) {
        for (int64_t n = 0; n < elements; ++n) {
          std::size_t place = 0;
          auto rest = static_cast<std::size_t>(n);
          std::size_t weight = 1;
          for (std::size_t d = shape.size(); d-- > 0;) {
            place += weight * (piece.start[d] + rest % piece.count[d]);
            rest /= piece.count[d];
            weight *= shape[d];
          }
          order.push_back(place);
        }
      });
      std::size_t all = 1;
      for (const std::size_t count : shape) all *= count;
      ASSERT_EQ(order.size(), all);
      for (std::size_t n = 0; n < all; ++n) ASSERT_EQ(order[n], n);
    }
  }
}

TEST(RequestPieces, CountWithoutOverflow) {
  int64_t pieces = 0;
  const std::size_t large = std::size_t{1} << 30;
  try {
    forEachPiece(slabOf({large, large, 4}), 1 << 20, [&](const Hyperslab& piece, int64_t elements) {
      EXPECT_EQ(listed(piece.count, 3), (Sizes{1, std::size_t{1} << 18, 4}));
      EXPECT_EQ(elements, 1 << 20);
      if (++pieces == 3) throw pieces;
    });
  } catch (const int64_t&) {
  }
  EXPECT_EQ(pieces, 3);
}

}  // namespace
