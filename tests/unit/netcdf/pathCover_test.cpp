#include "netcdf/pathCover.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>

namespace {

using NetCDF::Box;
using NetCDF::Cover;
using NetCDF::coverPath;
using NetCDF::coverTiles;
using NetCDF::Place;
using NetCDF::ReadCost;
using Path = std::vector<Place>;

Path diagonal(std::size_t count) {
  Path path;
  for (std::size_t n = 0; n < count; ++n) path.push_back({n, n});
  return path;
}

// A walk that comes back to where it has been.
Path wandering(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  Path path = {{500, 500}};
  while (path.size() < count) {
    Place next = path.back();
    next.row += random() % 3;
    next.column += random() % 5;
    next.row -= std::min<std::size_t>(next.row, 1);
    next.column -= std::min<std::size_t>(next.column, 2);
    path.push_back(next);
  }
  return path;
}

double cells(const Cover& cover) {
  double all = 0;
  for (const Cover::Part& part : cover.parts) all += part.box.cells();
  return all;
}

// Every place once, in a part whose box is the least one around its places.
void expectCovered(const Cover& cover, const Path& path) {
  std::vector<uint32_t> all = cover.order;
  std::ranges::sort(all);
  std::vector<uint32_t> expected(path.size());
  std::iota(expected.begin(), expected.end(), 0U);
  ASSERT_EQ(all, expected);
  std::size_t next = 0;
  for (const Cover::Part& part : cover.parts) {
    EXPECT_EQ(part.first, next);
    ASSERT_GT(part.count, 0U);
    next += part.count;
    std::size_t top = std::numeric_limits<std::size_t>::max(), left = top, bottom = 0, right = 0;
    for (std::size_t n = part.first; n < next; ++n) {
      const Place place = path[cover.order[n]];
      EXPECT_TRUE(part.box.contains(place));
      top = std::min(top, place.row);
      left = std::min(left, place.column);
      bottom = std::max(bottom, place.row + 1);
      right = std::max(right, place.column + 1);
    }
    EXPECT_EQ(part.box, (Box{top, left, bottom - top, right - left}));
  }
  EXPECT_EQ(next, path.size());
}

TEST(PathCover, IsOneBoxWhereReadsCostMoreThanCells) {
  const Path path = diagonal(100);
  const Cover cover = coverPath(path, {.box = 1e6, .cell = 1});
  expectCovered(cover, path);
  EXPECT_EQ(cover.parts.size(), 1U);
}

TEST(PathCover, IsABoxForEachPlaceWhereReadsCostNothing) {
  const Path path = diagonal(100);
  const Cover cover = coverPath(path, {.cell = 1});
  expectCovered(cover, path);
  EXPECT_EQ(cover.parts.size(), 100U);
}

TEST(PathCover, FollowsADiagonal) {
  const Path path = diagonal(1024);
  const Cover cover = coverPath(path, {.box = 1000, .cell = 1}, {.mostBoxes = 8});
  expectCovered(cover, path);
  EXPECT_EQ(cover.parts.size(), 8U);
  EXPECT_EQ(cells(cover), 8 * 128 * 128);
}

TEST(PathCover, IsCutAtACorner) {
  Path path;
  for (std::size_t n = 0; n < 20; ++n) path.push_back({3, n});
  for (std::size_t n = 1; n < 400; ++n) path.push_back({3 + n, 19});
  const Cover cover = coverPath(path, {.box = 5, .cell = 1}, {.mostBoxes = 7});
  expectCovered(cover, path);
  EXPECT_EQ(cover.parts.size(), 2U);
  EXPECT_EQ(cells(cover), 20 + 399);
}

TEST(PathCover, HasNoBoxBeyondTheLimitWhateverTheirNumber) {
  const Path path = diagonal(1000);
  const Cover cover = coverPath(path, {.box = 1e9, .cell = 1}, {.mostBoxes = 2, .mostCells = 100});
  expectCovered(cover, path);
  for (const Cover::Part& part : cover.parts) EXPECT_LE(part.box.cells(), 100);
  // A place by itself cannot be cut.
  EXPECT_EQ(coverPath(path, {.box = 1, .cell = 1}, {.mostBoxes = 2, .mostCells = 0}).parts.size(),
            1000U);
}

TEST(PathCover, CoversAnyPath) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const Path path = wandering(1 + seed * 37, seed);
    for (const double box : {0.0, 3.0, 50.0, 5000.0}) {
      const ReadCost cost{.box = box, .window = 2, .row = 0.1, .cell = 1, .rowsPerWindow = 3};
      expectCovered(coverPath(path, cost), path);
      expectCovered(coverPath(path, cost, {.mostBoxes = 7, .mostCells = 400}), path);
    }
    expectCovered(coverTiles(path, 1 + seed % 7, 1 + seed), path);
  }
  EXPECT_TRUE(coverPath({}, {}).parts.empty());
  EXPECT_TRUE(coverTiles({}, 1, 1).parts.empty());
}

TEST(TileCover, HasABoxForEveryTileOnce) {
  const Path path = {{0, 0}, {1, 1}, {12, 3}, {13, 9}, {2, 4}, {11, 11}, {0, 19}};
  const Cover cover = coverTiles(path, 10, 10);
  expectCovered(cover, path);
  ASSERT_EQ(cover.parts.size(), 4U);
  EXPECT_EQ(cover.parts[0].box, (Box{0, 0, 3, 5}));
  EXPECT_EQ(cover.parts[1].box, (Box{12, 3, 2, 7}));
  EXPECT_EQ(cover.parts[2].box, (Box{11, 11, 1, 1}));
  EXPECT_EQ(cover.parts[3].box, (Box{0, 19, 1, 1}));
  EXPECT_EQ(cover.order, (std::vector<uint32_t>{0, 1, 4, 2, 3, 5, 6}));
}

TEST(ReadCostOfABox, SharesWindowsAmongNarrowRows) {
  const ReadCost wide{.box = 7, .window = 10, .row = 1, .cell = 0.5, .rowsPerWindow = 1};
  EXPECT_EQ(wide({0, 0, 4, 6}), 7 + 4 * 10 + 4 + 12);
  const ReadCost narrow{.box = 7, .window = 10, .row = 1, .cell = 0.5, .rowsPerWindow = 4};
  EXPECT_EQ(narrow({0, 0, 8, 6}), 7 + 3 * 10 + 8 + 24);
  EXPECT_EQ(narrow({0, 0, 1, 6}), 7 + 10 + 1 + 3);
}

}  // namespace
