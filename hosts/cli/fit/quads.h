#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "fit/Plan.h"

namespace cli::fit {

// The rows and columns of points of an old grid, and the four-cornered cells between them.
class Quads {
 public:
  Quads(const Regridding& old, std::size_t columns);

  struct Corners {
    std::array<std::size_t, 4> points;  // numbers of the old points
    std::array<double, 4> weights;      // they sum to 1
  };
  // The corners around a place, looked for near the point that is nearest to it. Nothing for a
  // place outside of the grid.
  std::optional<Corners> around(double lon, double lat, std::size_t nearest) const;

  // The widest distance of a point to its neighbours, straight, in radii; 0 without neighbours.
  double spacing(std::size_t point) const;

 private:
  bool wrapsAround() const;
  // The number of a point; nothing outside of the grid.
  std::optional<std::size_t> at(std::ptrdiff_t row, std::ptrdiff_t column) const;
  bool isPlace(std::size_t point) const;

  const Regridding& old_;
  std::size_t columns_, rows_;
  bool wraps_ = false;
};

}  // namespace cli::fit
