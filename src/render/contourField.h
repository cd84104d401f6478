#pragma once

#include <cstdint>
#include <span>

#include "util/RuntimeError.h"

namespace OcxContr {

// The grid that contour lines are traced in, columns 1..ncols by levels 1..nlevels. It looks at
// arrays of its caller's.
struct ContourField {
  int32_t ncols = 0, nlevels = 0;
  std::span<const float> values;   // levels of a column side by side, ncols x nlevels
  std::span<const int16_t> marks;  // of the same shape: 0 no value, 1..8 a value, 9 excluded
  std::span<const double> depths;  // depth of level k at [k], positive downwards; [0] is unused

  // Arrays that are smaller than the counts say are run-time error 9.
  void check() const {
    if (ncols < 0 || nlevels < 0) util::raise(util::kSubscript);
    const auto points = static_cast<std::size_t>(ncols) * static_cast<std::size_t>(nlevels);
    if (values.size() < points || marks.size() < points ||
        depths.size() <= static_cast<std::size_t>(nlevels)) {
      util::raise(util::kSubscript);
    }
  }

  // Column c and level k inside the counts, of a field that check() let through.
  float value(int32_t c, int32_t k) const { return values[place(c, k)]; }
  int16_t mark(int32_t c, int32_t k) const { return marks[place(c, k)]; }
  double depth(int32_t k) const { return depths[static_cast<std::size_t>(k)]; }
  // A value that takes part in the range and can be the first corner of a cell.
  bool counts(int32_t c, int32_t k) const {
    const int16_t m = mark(c, k);
    return m >= 1 && m <= 8;
  }

 private:
  std::size_t place(int32_t c, int32_t k) const {
    return static_cast<std::size_t>(c - 1) * static_cast<std::size_t>(nlevels) +
           static_cast<std::size_t>(k - 1);
  }
};

}  // namespace OcxContr
