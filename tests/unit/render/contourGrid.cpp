#include "contourGrid.h"

namespace render_tests {

ContourGrid::ContourGrid(int32_t columns, int32_t levels)
    : ncols(columns),
      nlevels(levels),
      values(static_cast<std::size_t>(columns * levels)),
      marks(static_cast<std::size_t>(columns * levels), int16_t{1}),
      depths{0, 0, 10} {
  for (int32_t k = 3; k <= levels; ++k) depths.push_back(10.0 * k);
}

ContourGrid::ContourGrid(const Rows& rows, const Marks& given)
    : ContourGrid(static_cast<int32_t>(rows.at(0).size()), static_cast<int32_t>(rows.size())) {
  for (int32_t k = 1; k <= nlevels; ++k) {
    const auto row = static_cast<std::size_t>(k - 1);
    for (int32_t c = 1; c <= ncols; ++c) {
      const auto column = static_cast<std::size_t>(c - 1);
      value(c, k) = rows[row].at(column);
      if (!given.empty()) mark(c, k) = given.at(row).at(column);
    }
  }
}

}  // namespace render_tests
