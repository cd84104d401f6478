#pragma once

#include <cstddef>
#include <vector>

#include "fit/Input.h"
#include "fit/Plan.h"

namespace cli::fit {

// Reads blocks of a variable of the copy from the input, turned, cut and reordered as the plan
// wants it. New dimensions repeat what is there.
class BlockReader {
 public:
  BlockReader(const Input& input, const Plan& plan, const PlanVar& variable);

  // As the input has them. start and count have a number for each dimension of the copy's
  // variable; along dimensions that the input's variable does not have the count must be 1.
  void read(const std::vector<std::size_t>& start, const std::vector<std::size_t>& count,
            std::vector<double>& values);
  // Dimension number `at` of the copy's variable is one of the input's.
  bool isOfInput(std::size_t at) const;

 private:
  // Neighbouring indices of the input, in order or turned.
  struct Run {
    std::size_t first = 0, length = 0;  // in the input, upward
    std::size_t place = 0;              // in the block, of the first
    bool turned = false;
  };

  static std::vector<Run> runsOf(const std::vector<std::size_t>& index, std::size_t start,
                                 std::size_t count);
  void scatter(const std::vector<Run>& runs, std::vector<double>& values) const;

  const Input& input_;
  const Plan& plan_;
  const PlanVar& variable_;
  std::vector<int> positions_;           // of the input's dimensions in the copy; below 0: none
  std::vector<std::ptrdiff_t> strides_;  // of the input's dimensions in the block
  std::vector<double> buffer_;
};

}  // namespace cli::fit
