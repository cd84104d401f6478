#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/pixel.h"

namespace platform {

// A grid of filled boxes that share their edges: cell (column, level), counted from 0, lies
// between x[column] and x[column + 1] and between y[level] and y[level + 1]. They are painted
// level by level, and the columns of a level in order; a later one covers an earlier one where
// both reach, so that a surface of pixels may leave out what nobody would see.
class CellBoxes {
 public:
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

  // The pixels of a column's cells from a level on, kNoPixel where none is painted. Gives how many
  // it has put in: no cell behind them is painted. Only asked where nothing may fail.
  virtual std::size_t pixels(int32_t column, int32_t level, std::span<uint32_t> pixels) const {
    for (uint32_t& pixel : pixels) {
      const auto found = colour(column, level++);
      pixel = found ? pixelOf(*found) : kNoPixel;
    }
    return pixels.size();
  }

  // A column that will soon be asked for: time to fetch what its colours are made of.
  virtual void expect(int32_t /*column*/) const {}

 private:
  std::span<const float> x_, y_;
};

}  // namespace platform
