#include "platform/PixelRows.h"

#include <algorithm>

#include "platform/CellPainter.h"

namespace platform {

PixelRows::PixelRows(uint32_t* pixels, std::ptrdiff_t stride, int32_t width, int32_t height)
    : pixels_(pixels),
      stride_(stride),
      width_(width),
      height_(height),
      states_(static_cast<std::size_t>(height), Row::Stale) {}

void PixelRows::clear() {
  for (Row& state : states_) {
    if (state == Row::Inked) state = Row::Stale;
  }
}

void PixelRows::whiten(int32_t y) const {
  if (state(y) != Row::Stale) return;
  std::fill_n(start(y), width_, kWhitePixel);
  state(y) = Row::White;
}

uint32_t* PixelRows::row(int32_t y) {
  whiten(y);
  state(y) = Row::Inked;
  return start(y);
}

void PixelRows::open(int32_t first, int32_t last) {
  for (int32_t y = std::max(first, 0); y <= std::min(last, height_ - 1); ++y) row(y);
}

void PixelRows::settle() const {
  for (int32_t y = 0; y < height_; ++y) whiten(y);
}

uint32_t PixelRows::pixel(int32_t x, int32_t y) const {
  return state(y) == Row::Stale ? kWhitePixel : start(y)[x] & 0x00FFFFFFU;
}

bool PixelRows::sameRows(int32_t one, int32_t other) const {
  return std::ranges::equal(row(one), row(other));
}

void PixelRows::fill(const PixelBox& box, Colour colour) {
  if (empty() || box.empty()) return;
  const uint32_t pixel = pixelOf(colour);
  for (int32_t y = box.top; y <= box.bottom; ++y) {
    std::fill_n(row(y) + box.left, box.right - box.left + 1, pixel);
  }
}

bool PixelRows::paint(const CellBoxes& cells) {
  if (empty()) return true;
  if (cells.mayFail()) return false;
  CellPainter painter(cells, *this);
  return painter.paint();
}

void PixelRows::andFrom(const PixelRows& source) {
  const int32_t width = std::min(width_, source.width_);
  for (int32_t y = 0; y < std::min(height_, source.height_); ++y) {
    if (source.state(y) != Row::Inked) continue;
    const uint32_t* from = source.start(y);
    if (state(y) == Row::Inked) {
      uint32_t* to = start(y);
      for (int32_t x = 0; x < width; ++x) to[x] &= from[x];
      continue;
    }
    std::copy_n(from, width, start(y));
    if (state(y) == Row::Stale) std::fill_n(start(y) + width, width_ - width, kWhitePixel);
    state(y) = Row::Inked;
  }
}

}  // namespace platform
