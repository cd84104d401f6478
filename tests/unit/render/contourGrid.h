#pragma once

#include <cstdint>
#include <vector>

#include "render/contourField.h"

namespace render_tests {

// A grid of values with marks and depths of its own, for tracing contour lines in.
struct ContourGrid {
  using Rows = std::vector<std::vector<float>>;
  using Marks = std::vector<std::vector<int16_t>>;

  // One row a level; depths 0, 10 and 30 for up to three levels, then 10 more a level. Every
  // point is marked 1 unless marks are given.
  explicit ContourGrid(const Rows& rows, const Marks& marks = {});
  ContourGrid(int32_t columns, int32_t levels);  // all 0 and marked 1

  float& value(int32_t c, int32_t k) { return values[place(c, k)]; }
  int16_t& mark(int32_t c, int32_t k) { return marks[place(c, k)]; }
  OcxContr::ContourField field() const { return {ncols, nlevels, values, marks, depths}; }

  int32_t ncols, nlevels;
  std::vector<float> values;
  std::vector<int16_t> marks;
  std::vector<double> depths;

 private:
  std::size_t place(int32_t c, int32_t k) const {
    return static_cast<std::size_t>((c - 1) * nlevels + k - 1);
  }
};

}  // namespace render_tests
