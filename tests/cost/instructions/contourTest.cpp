// Joining the pieces of contour lines, however they lie.
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "arrangedPieces.h"
#include "growth.h"
#include "render/contourJoin.h"

namespace cost {
namespace {

class Joining : public testing::TestWithParam<bench::Arrangement> {};

TEST_P(Joining, CostsWhatAnIndexOfThePiecesCosts) {
  OcxContr::PieceJoiner joiner;
  const double each = costOfEach("join", 1000, 8, [&](int32_t count) {
    const auto pieces = bench::arranged(GetParam(), count);
    std::size_t points = 0;
    const int64_t cost = instructions([&] {
      joiner.join(pieces, bench::tolerance(GetParam()),
                  [&](std::span<const OcxContr::PieceEnd> line) { points += line.size(); });
    });
    EXPECT_GT(points, pieces.size());
    return cost;
  });
  EXPECT_LE(each, kWithTrees);
}

std::string title(const testing::TestParamInfo<bench::Arrangement>& tested) {
  std::string name = bench::nameOf(tested.param);
  std::erase(name, ' ');
  return name;
}
INSTANTIATE_TEST_SUITE_P(, Joining, testing::ValuesIn(bench::kArrangements), title);

}  // namespace
}  // namespace cost
