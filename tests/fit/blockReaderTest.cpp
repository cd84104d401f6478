#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "fit/BlockReader.h"
#include "fit/blocks.h"

// Blocks of a copy, against what each value must be by its indices.
namespace fit_test {
namespace {

using cli::Header;
using cli::fit::BlockReader;
using cli::fit::Blocks;
using cli::fit::Plan;
using cli::fit::PlanVar;

// A variable whose values are their places in the array.
class CountingInput : public cli::fit::Input {
 public:
  explicit CountingInput(const std::vector<std::size_t>& lengths) {
    cli::Variable variable;
    variable.name = "v";
    for (std::size_t at = 0; at < lengths.size(); ++at) {
      header_.dims.push_back({"d" + std::to_string(at), lengths[at], false});
      variable.dims.push_back(static_cast<int>(at));
    }
    header_.vars.push_back(variable);
  }
  const Header& header() const override { return header_; }
  double place(const std::vector<std::size_t>& index) const {
    std::size_t place = 0;
    for (std::size_t at = 0; at < index.size(); ++at) {
      place = place * header_.dims[at].length + index[at];
    }
    return static_cast<double>(place);
  }
  void read(int, const std::vector<std::size_t>& start, const std::vector<std::size_t>& count,
            double* values) const override {
    std::vector<std::size_t> index = start;
    for (;;) {
      *values++ = place(index);
      std::size_t at = index.size();
      for (;;) {
        if (at == 0) return;
        --at;
        ASSERT_LT(index[at], header_.dims[at].length);
        if (++index[at] < start[at] + count[at]) break;
        index[at] = start[at];
      }
    }
  }

 private:
  Header header_;
};

// Some indices of a dimension: all, turned, a part, two parts in another order, or one.
std::vector<std::size_t> someOf(std::size_t length, std::mt19937& random) {
  std::vector<std::size_t> index(length);
  for (std::size_t at = 0; at < length; ++at) index[at] = at;
  switch (random() % 5) {
    case 0:
      std::ranges::reverse(index);
      break;
    case 1:
      std::ranges::rotate(index, index.begin() + static_cast<std::ptrdiff_t>(length / 2));
      break;
    case 2:
      index.resize(1 + random() % length);
      break;
    case 3:
      std::ranges::shuffle(index, random);
      break;
    default:
      break;
  }
  return index;
}

TEST(FitBlocks, HoldWhatTheirIndicesSay) {
  std::mt19937 random(20000101);
  for (int round = 0; round < 500; ++round) {
    const std::size_t rank = random() % 6;
    std::vector<std::size_t> lengths(rank);
    for (std::size_t& length : lengths) length = 1 + random() % 5;
    const CountingInput input(lengths);
    Plan plan;
    PlanVar variable;
    variable.source = 0;
    for (std::size_t at = 0; at < rank; ++at) {
      cli::fit::PlanDim dim;
      dim.index = someOf(lengths[at], random);
      plan.dims.push_back(dim);
      if (random() % 4 != 0) {
        variable.dims.push_back(static_cast<int>(at));
      } else {
        plan.dims[at].index.resize(1);
      }
    }
    std::ranges::shuffle(variable.dims, random);
    BlockReader reader(input, plan, variable);
    std::vector<std::size_t> start, count;
    std::size_t all = 1;
    for (const int dim : variable.dims) {
      const std::size_t length = plan.dims[static_cast<std::size_t>(dim)].length();
      start.push_back(random() % length);
      count.push_back(1 + random() % (length - start.back()));
      all *= count.back();
    }
    std::vector<double> values;
    reader.read(start, count, values);
    ASSERT_EQ(values.size(), all);
    for (std::size_t at = 0; at < all; ++at) {
      std::vector<std::size_t> index(rank);
      for (std::size_t d = 0; d < rank; ++d) index[d] = plan.dims[d].index[0];
      std::size_t rest = at;
      for (std::size_t p = variable.dims.size(); p-- > 0;) {
        const auto dim = static_cast<std::size_t>(variable.dims[p]);
        index[dim] = plan.dims[dim].index[start[p] + rest % count[p]];
        rest /= count[p];
      }
      ASSERT_EQ(values[at], input.place(index)) << round;
    }
  }
}

TEST(FitBlocks, CoverEverythingOnceAndStayBelowTheirBound) {
  std::mt19937 random(20000102);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::size_t> lengths(1 + random() % 4);
    std::vector<bool> divided(lengths.size());
    for (std::size_t at = 0; at < lengths.size(); ++at) {
      lengths[at] = random() % 3 == 0 ? 1 + random() % 3000 : 1 + random() % 20;
      divided[at] = random() % 4 == 0;
    }
    std::size_t values = 0, blocks = 0, all = 1;
    for (const std::size_t length : lengths) all *= length;
    if (all > 50000000) continue;
    Blocks walk(lengths, divided, false);
    const std::size_t expected = walk.count();
    for (; !walk.atEnd(); walk.next()) {
      std::size_t size = 1;
      const std::vector<std::size_t> count = walk.lengths();
      for (std::size_t at = 0; at < count.size(); ++at) {
        size *= count[at];
        ASSERT_TRUE(!divided[at] || count[at] == 1);
        ASSERT_LE(walk.start()[at] + count[at], lengths[at]);
      }
      ASSERT_LE(size, cli::fit::kBlock);
      values += size;
      ++blocks;
    }
    EXPECT_EQ(values, all);
    EXPECT_EQ(blocks, expected);
  }
}

TEST(FitBlocks, OfNothingAreNone) {
  EXPECT_TRUE(Blocks({3, 0, 2}, {false, false, false}, false).atEnd());
  Blocks one({}, {}, false);
  EXPECT_FALSE(one.atEnd());
  one.next();
  EXPECT_TRUE(one.atEnd());
}

}  // namespace
}  // namespace fit_test
