#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/colour.h"

namespace platform {

// A grid of filled boxes that share their edges: cell (column, level), counted from 0, lies
// between x[column] and x[column + 1] and between y[level] and y[level + 1]. They are painted
// level by level, and the columns of a level in order; a later one covers an earlier one where
// both reach, so that a surface of pixels may leave out what nobody would see.
class CellBoxes {
 public:
  // Stands for no colour where colours are filled in.
  static constexpr Colour kUnset = -1;

  // The edges must outlive the grid, in surface units.
  CellBoxes(std::span<const float> x, std::span<const float> y) : x_(x), y_(y) {}
  virtual ~CellBoxes() = default;
  CellBoxes(const CellBoxes&) = delete;
  CellBoxes& operator=(const CellBoxes&) = delete;

  std::span<const float> x() const { return x_; }
  std::span<const float> y() const { return y_; }
  int32_t columns() const { return x_.empty() ? 0 : static_cast<int32_t>(x_.size()) - 1; }
  int32_t levels() const { return y_.empty() ? 0 : static_cast<int32_t>(y_.size()) - 1; }

  // The colour of a cell; nothing where none is painted. A run-time error ends the painting.
  virtual std::optional<Colour> colour(int32_t column, int32_t level) const = 0;

  // Whether colour() may end in a run-time error. Then the cells are painted one after another,
  // so that those before the error are there.
  virtual bool mayFail() const { return true; }

  // For the cells of a column from a level on: puts in the colours, 24 bits each, where kUnset
  // stands and the cell is painted. Only asked where nothing may fail.
  virtual void fillIn(int32_t column, int32_t level, std::span<Colour> colours) const {
    for (Colour& entry : colours) {
      if (entry == kUnset) {
        if (const auto found = colour(column, level)) entry = *found & 0xFFFFFF;
      }
      ++level;
    }
  }

 private:
  std::span<const float> x_, y_;
};

}  // namespace platform
