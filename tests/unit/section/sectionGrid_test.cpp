#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "section/sectionValues.h"
#include "util/RuntimeError.h"

using namespace KelvaneMain;

namespace {

template <class Call>
int errorOf(Call call) {
  try {
    call();
  } catch (const util::RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(SectionGrid, StartsEmpty) {
  const SectionGrid grid;
  EXPECT_TRUE(grid.empty());
  EXPECT_EQ(grid.ncols(), 0);
  EXPECT_EQ(grid.nlevels(), 0);
  EXPECT_EQ(errorOf([&] { grid.value(1, 1); }), util::kSubscript);
  EXPECT_EQ(errorOf([&] { grid.depth(1); }), util::kSubscript);
}

TEST(SectionGrid, IsSizedAfreshWithoutMarks) {
  SectionGrid grid;
  grid.size(2, 3);
  grid.store(2, 3, 7);
  grid.size(3, 3);
  for (int32_t c = 1; c <= 3; ++c) {
    for (int32_t k = 1; k <= 3; ++k) {
      EXPECT_EQ(grid.value(c, k), 0);
      EXPECT_EQ(grid.mark(c, k), 0);
    }
  }
}

TEST(SectionGrid, MarksValuesOnly) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  struct Row {
    float value;
    int16_t mark;
  };
  const Row rows[] = {{0, 1},       {-9.9e34F, 1},  {1e36F, 1}, {kMissingValue, 0},
                      {-2e35F, 0},  {nan, 0},       {std::nextafter(kMissingValue, 0.0F), 1}};
  SectionGrid grid;
  grid.size(1, 1);
  for (const Row& row : rows) {
    grid.store(1, 1, row.value);
    EXPECT_EQ(grid.mark(1, 1), row.mark) << row.value;
  }
}

TEST(SectionGrid, StoresWholeColumns) {
  SectionGrid grid;
  grid.size(2, 3);
  const std::vector<float> column = {7, kMissingValue, 9};
  grid.storeColumn(2, column);
  for (int32_t k = 1; k <= 3; ++k) {
    EXPECT_EQ(grid.value(1, k), 0);
    EXPECT_EQ(grid.mark(1, k), 0);
    EXPECT_EQ(grid.value(2, k), column[static_cast<std::size_t>(k - 1)]);
    EXPECT_EQ(grid.mark(2, k), k == 2 ? 0 : 1);
  }
  EXPECT_TRUE(std::ranges::equal(grid.column(2), column));
  EXPECT_EQ(errorOf([&] { grid.storeColumn(3, column); }), util::kSubscript);
  EXPECT_EQ(errorOf([&] { grid.storeColumn(1, std::span(column).first(2)); }), util::kSubscript);
  EXPECT_EQ(errorOf([&] { grid.column(0); }), util::kSubscript);
}

TEST(SectionGrid, StoresLevelAfterLevel) {
  SectionGrid grid;
  for (const int32_t ncols : {1, 15, 16, 17, 50}) {
    for (const int32_t nlevels : {1, 4, 33}) {
      grid.size(ncols, nlevels);
      std::vector<float> values(static_cast<std::size_t>(ncols * nlevels));
      for (std::size_t n = 0; n < values.size(); ++n) {
        values[n] = n % 5 == 3 ? kMissingValue : static_cast<float>(n);
      }
      grid.storeLevels(values);
      for (int32_t c = 1; c <= ncols; ++c) {
        for (int32_t k = 1; k <= nlevels; ++k) {
          const float expected = values[static_cast<std::size_t>((k - 1) * ncols + c - 1)];
          ASSERT_EQ(grid.value(c, k), expected);
          ASSERT_EQ(grid.mark(c, k), expected == kMissingValue ? 0 : 1);
        }
      }
      EXPECT_EQ(errorOf([&] { grid.storeLevels(std::span(values).subspan(1)); }),
                util::kSubscript);
    }
  }
}

TEST(SectionGrid, HasNothingButWhatWasStoredSinceItWasBegun) {
  for (const int32_t nlevels : {3, 4}) {  // as large as before, and not
    for (int32_t stored = 0; stored <= 5; ++stored) {
      SectionGrid grid;
      grid.size(5, 3);
      grid.storeLevels(std::vector<float>(15, 7.0F));
      EXPECT_EQ(grid.deepestValues()[4], 3);
      grid.beginStoring(5, nlevels);
      const std::vector<float> column(static_cast<std::size_t>(nlevels), 8.0F);
      for (int32_t c = 1; c <= stored; ++c) grid.storeColumn(c, column);
      EXPECT_EQ(grid.storedValues().size(), static_cast<std::size_t>(stored * nlevels));
      grid.clearRest();
      for (int32_t c = 1; c <= 5; ++c) {
        EXPECT_EQ(grid.value(c, nlevels), c <= stored ? 8 : 0);
        EXPECT_EQ(grid.mark(c, nlevels), c <= stored ? 1 : 0);
        EXPECT_EQ(grid.deepestValues()[static_cast<std::size_t>(c - 1)], c <= stored ? nlevels : 0);
      }
    }
  }
}

TEST(SectionGrid, IsStoredWholeByLevels) {
  SectionGrid grid;
  grid.beginStoring(2, 2);
  grid.storeLevels(std::vector<float>{1, 2, 3, 4});
  EXPECT_EQ(grid.storedValues().size(), 4U);
  grid.clearRest();
  EXPECT_EQ(grid.value(2, 2), 4);
}

TEST(SectionGrid, ChecksEveryIndex) {
  SectionGrid grid;
  grid.size(2, 3);
  grid.store(1, 3, 13);
  grid.store(2, 1, 21);
  EXPECT_EQ(grid.value(1, 3), 13);
  EXPECT_EQ(grid.value(2, 1), 21);
  for (const auto& [c, k] : {std::pair{0, 1}, {3, 1}, {1, 0}, {1, 4}, {-1, -1}}) {
    EXPECT_EQ(errorOf([&] { grid.value(c, k); }), util::kSubscript) << c << ", " << k;
    EXPECT_EQ(errorOf([&] { grid.mark(c, k); }), util::kSubscript) << c << ", " << k;
    EXPECT_EQ(errorOf([&] { grid.store(c, k, 1); }), util::kSubscript) << c << ", " << k;
  }
}

TEST(SectionGrid, DepthsCountFromOne) {
  SectionGrid grid;
  grid.depths = {0, 10, 30};
  EXPECT_EQ(grid.depth(1), 10);
  EXPECT_EQ(grid.depth(2), 30);
  EXPECT_EQ(errorOf([&] { grid.depth(0); }), util::kSubscript) << "the top is never drawn";
  EXPECT_EQ(errorOf([&] { grid.depth(3); }), util::kSubscript);
}

TEST(SectionGrid, KnowsTheDeepestValueOfEveryColumn) {
  SectionGrid grid;
  EXPECT_TRUE(grid.deepestValues().empty());
  grid.size(3, 4);
  const auto deepest = [&grid] {
    const auto found = grid.deepestValues();
    return std::vector<int32_t>(found.begin(), found.end());
  };
  EXPECT_EQ(deepest(), (std::vector<int32_t>{0, 0, 0}));
  grid.store(1, 3, 7);
  grid.store(3, 4, 7);
  EXPECT_EQ(deepest(), (std::vector<int32_t>{3, 0, 4}));
  grid.store(3, 4, kMissingValue);
  grid.storeColumn(2, std::vector<float>{1, 2, kMissingValue, kMissingValue});
  EXPECT_EQ(deepest(), (std::vector<int32_t>{3, 2, 0}));
  grid.storeLevels(std::vector<float>(12, 1.0F));
  EXPECT_EQ(deepest(), (std::vector<int32_t>{4, 4, 4}));
  grid.size(1, 1);
  EXPECT_EQ(deepest(), (std::vector<int32_t>{0}));
}

TEST(SectionGrid, CountsTheValuesOfEveryColumn) {
  SectionGrid grid;
  EXPECT_TRUE(grid.filledLevels().empty());
  const auto filled = [&grid] {
    const auto found = grid.filledLevels();
    return std::vector<int32_t>(found.begin(), found.end());
  };
  grid.size(3, 4);
  EXPECT_EQ(filled(), (std::vector<int32_t>{0, 0, 0}));
  for (int turn = 0; turn < 2; ++turn) grid.store(1, 3, 7);  // one value all the same
  grid.store(3, 4, 7);
  EXPECT_EQ(filled(), (std::vector<int32_t>{1, 0, 1}));
  grid.store(3, 4, kMissingValue);
  grid.storeColumn(2, std::vector<float>{1, kMissingValue, 3, kMissingValue});
  EXPECT_EQ(filled(), (std::vector<int32_t>{1, 2, 0}));
  std::vector<float> levels(12, 1.0F);
  levels[1] = levels[10] = kMissingValue;
  grid.storeLevels(levels);
  EXPECT_EQ(filled(), (std::vector<int32_t>{4, 2, 4}));
  grid.beginStoring(4, 3);  // as large as before
  grid.storeColumn(1, std::vector<float>{1, 2, kMissingValue});
  grid.clearRest();
  EXPECT_EQ(filled(), (std::vector<int32_t>{2, 0, 0, 0}));
}

TEST(SectionGrid, KeepsWhatItHoldsWhenItCannotBeSized) {
  SectionGrid grid;
  grid.size(2, 2);
  grid.store(2, 2, 5);
  EXPECT_EQ(errorOf([&] { grid.size(0, 2); }), util::kSubscript);
  EXPECT_EQ(errorOf([&] { grid.size(2, 0); }), util::kSubscript);
  EXPECT_EQ(errorOf([&] { grid.size(-1, -1); }), util::kSubscript);
  EXPECT_EQ(errorOf([&] { grid.size(65536, 65536); }), util::kOverflow);
  EXPECT_EQ(grid.value(2, 2), 5);
}

}  // namespace
