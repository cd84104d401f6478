#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fit/Plan.h"
#include "fit/Request.h"

namespace cli::fit {

// Where the values of a new grid come from: for each of its nodes up to four points and weights.
class Regridder {
 public:
  // columns: of the old grid, or 0 when its points are no rows and columns. Points are taken to
  // fill their cells: a node further from the nearest point than three quarters of a cell has no
  // value. Bilinear takes the four points around a node; where there are none, at the edge of the
  // old grid, the nearest one.
  Regridder(const Regridding& old, std::size_t columns, const std::vector<double>& lons,
            const std::vector<double>& lats, Method method);

  // Values of all old points to those of all nodes, row by row. NaN is a missing value; a node
  // has one when less than half of its weights are on values.
  void apply(const std::vector<double>& values, std::vector<double>& nodes) const;

 private:
  struct Source {
    std::array<std::uint32_t, 4> points{};
    std::array<float, 4> weights{};  // all 0: no value
  };

  std::vector<Source> sources_;
};

}  // namespace cli::fit
