#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/CellBoxes.h"
#include "platform/PictureBox.h"
#include "platform/pixel.h"

namespace platform {

// The memory of a surface of 32-bit pixels, with what is known of its rows: which are white, and
// which only count as white until somebody looks. So clearing costs nothing, and a transfer
// passes by rows without ink. Whoever writes or reads the memory itself asks for the rows first.
class PixelRows {
 public:
  PixelRows() = default;
  // Rows of that many pixels each, stride pixels apart; the whole counts as white.
  PixelRows(uint32_t* pixels, std::ptrdiff_t stride, int32_t width, int32_t height);

  int32_t width() const { return width_; }
  int32_t height() const { return height_; }
  bool empty() const { return pixels_ == nullptr; }

  void clear();
  void fill(const PixelBox& box, Colour colour);
  // Paints the cells as one box after another would. False when that is the only way; nothing
  // is painted then.
  bool paint(const CellBoxes& cells);
  // The rows that both have: each pixel becomes this AND source.
  void andFrom(const PixelRows& source);

  // A row for writing.
  uint32_t* row(int32_t y);
  // A row of a settled surface. Of a pixel only the lower 24 bits mean something.
  std::span<const uint32_t> row(int32_t y) const {
    return {start(y), static_cast<std::size_t>(width_)};
  }
  // Whether two rows of a settled surface look the same.
  bool sameRows(int32_t one, int32_t other) const;
  // Makes the rows first..last, as far as there are any, ready for somebody else's ink, to be
  // written from their starts on.
  void open(int32_t first, int32_t last);
  uint32_t* start(int32_t y) const { return pixels_ + stride_ * y; }
  // Makes the memory what it counts as, for somebody else's eyes.
  void settle() const;
  uint32_t pixel(int32_t x, int32_t y) const;

 private:
  enum class Row : uint8_t {
    White,
    Inked,
    Stale  // counts as white; the memory is not
  };
  friend class CellPainter;
  Row& state(int32_t y) const { return states_[static_cast<std::size_t>(y)]; }
  void whiten(int32_t y) const;

  uint32_t* pixels_ = nullptr;
  std::ptrdiff_t stride_ = 0;
  int32_t width_ = 0, height_ = 0;
  // Told by const members too: what a row counts as does not change when its memory follows.
  mutable std::vector<Row> states_;
};

}  // namespace platform
