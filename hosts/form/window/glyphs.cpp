#include "window/glyphs.h"

#include <cstdint>
#include <vector>

namespace form {
namespace {

// Signs are drawn in a square from 0 to 1.
struct Corner {
  double x, y;
};
using Shape = std::vector<Corner>;

Shape bar(double left, double right) {
  return {{left, 0.2}, {right, 0.2}, {right, 0.8}, {left, 0.8}};
}

Shape arrow(double from, double to) { return {{from, 0.2}, {to, 0.5}, {from, 0.8}}; }

std::vector<Shape> shapesOf(Glyph glyph) {
  switch (glyph) {
    case Glyph::First: return {bar(0.2, 0.3), arrow(0.78, 0.34)};
    case Glyph::Previous: return {arrow(0.7, 0.26)};
    case Glyph::Play: return {{{0.24, 0.12}, {0.84, 0.5}, {0.24, 0.88}}};
    case Glyph::Pause: return {bar(0.26, 0.43), bar(0.57, 0.74)};
    case Glyph::Next: return {arrow(0.3, 0.74)};
    case Glyph::Last: return {arrow(0.22, 0.66), bar(0.7, 0.8)};
  }
  return {};
}

// By the number of edges to the right of the place.
bool within(const Shape& shape, double x, double y) {
  bool inside = false;
  for (std::size_t k = 0; k < shape.size(); ++k) {
    const Corner &a = shape[k], &b = shape[(k + 1) % shape.size()];
    if ((a.y > y) != (b.y > y) && x < a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x)) {
      inside = !inside;
    }
  }
  return inside;
}

// How much of a pixel the sign covers, from 0 to 255.
std::uint32_t coverage(const std::vector<Shape>& shapes, int column, int row, int size) {
  constexpr int kSamples = 8;  // across and down
  int hits = 0;
  for (int k = 0; k < kSamples * kSamples; ++k) {
    const double x = (column + (k % kSamples + 0.5) / kSamples) / size;
    const double y = (row + (k / kSamples + 0.5) / kSamples) / size;
    for (const Shape& shape : shapes) {
      if (!within(shape, x, y)) continue;
      ++hits;
      break;
    }
  }
  return static_cast<std::uint32_t>(hits * 255 / (kSamples * kSamples));
}

// What the sign leaves free, for greyed buttons. Rows of a mask are whole words, the leftmost pixel
// in the highest bit of its byte.
HBITMAP makeMask(const std::vector<Shape>& shapes, int size) {
  const auto stride = static_cast<std::size_t>((size + 15) / 16 * 2);
  std::vector<std::uint8_t> bits(stride * static_cast<std::size_t>(size));
  for (int row = 0; row < size; ++row) {
    for (int column = 0; column < size; ++column) {
      if (coverage(shapes, column, row, size) >= 128) continue;
      bits[stride * static_cast<std::size_t>(row) + static_cast<std::size_t>(column / 8)] |=
          static_cast<std::uint8_t>(0x80 >> column % 8);
    }
  }
  return CreateBitmap(size, size, 1, 1, bits.data());
}

}  // namespace

HICON makeGlyph(Glyph glyph, int size) {
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP colour = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const std::vector<Shape> shapes = shapesOf(glyph);
  const HBITMAP mask = makeMask(shapes, size);
  HICON icon = nullptr;
  if (colour != nullptr && mask != nullptr) {
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    const std::uint32_t rgb = static_cast<std::uint32_t>(GetRValue(ink)) << 16 |
                              static_cast<std::uint32_t>(GetGValue(ink)) << 8 | GetBValue(ink);
    auto* pixel = static_cast<std::uint32_t*>(bits);
    for (int row = 0; row < size; ++row) {
      for (int column = 0; column < size; ++column) {
        *pixel++ = coverage(shapes, column, row, size) << 24 | rgb;
      }
    }
    ICONINFO parts = {TRUE, 0, 0, mask, colour};
    icon = CreateIconIndirect(&parts);
  }
  if (colour != nullptr) DeleteObject(colour);
  if (mask != nullptr) DeleteObject(mask);
  return icon;
}

}  // namespace form
