#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

// How the cells of a path through a grid are covered by a few boxes, each of which is one read.
namespace NetCDF {

// A cell by its indices (from 0) along the last two dimensions of a variable.
struct Place {
  std::size_t row = 0, column = 0;
  bool operator==(const Place&) const = default;
};

// A rectangle of cells.
struct Box {
  std::size_t row = 0, column = 0, rows = 0, columns = 0;
  bool operator==(const Box&) const = default;
  double cells() const { return static_cast<double>(rows) * static_cast<double>(columns); }
  bool contains(Place place) const {
    return place.row - row < rows && place.column - column < columns;
  }
};

// What reading a box takes, in any one unit. A storage fetches windows of neighbouring bytes, and
// rows that lie in one window share it.
struct ReadCost {
  double box = 0;     // a read
  double window = 0;  // a window fetched
  double row = 0;     // a row of the box
  double cell = 0;    // a cell of the box
  double rowsPerWindow = 1;

  double operator()(const Box& box) const;
};

// Boxes and the places in each.
struct Cover {
  struct Part {
    Box box;                      // the least one around its places
    std::size_t first, count;     // its places: order[first], order[first + 1], ...
  };
  std::vector<uint32_t> order;  // every place once, by its position in the list
  std::vector<Part> parts;
};

// Limits of coverPath: the most boxes, as long as none has more cells than mostCells.
struct CoverLimits {
  std::size_t mostBoxes = std::numeric_limits<std::size_t>::max();
  double mostCells = std::numeric_limits<double>::infinity();
};

// Covers a path by boxes of cells that follow each other along it; the path is cut wherever that
// makes the whole cheaper. A box of more than mostCells is cut further, unless it is a single
// place. The time grows with n log n; with limits, with n times the boxes.
Cover coverPath(std::span<const Place> path, const ReadCost& cost, const CoverLimits& limits = {});

// Covers the places by tiles of the grid: a box for every tile with places in it, in the order in
// which the path comes to them.
Cover coverTiles(std::span<const Place> path, std::size_t tileRows, std::size_t tileColumns);

}  // namespace NetCDF
