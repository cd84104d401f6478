#include "platform/PictureBox.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "util/RuntimeError.h"
#include "util/rounding.h"

namespace platform {
namespace {

// First and last pixel covered along one direction.
std::pair<int32_t, int32_t> covered(float a, float b, int32_t size) {
  const int32_t first = nearestPixel(std::min(a, b), size);
  const int32_t last = nearestPixel(std::max(a, b), size);
  return {std::max(first, 0), std::min(last, size - 1)};
}

}  // namespace

void PictureBox::PrintAt(double x, double y, std::string_view text) {
  CurrentX = util::storeSingle(x);
  CurrentY = util::storeSingle(y);
  Print(text);
}

void PictureBox::TakeFrom(PictureBox& source) {
  Cls();
  AndFrom(source);
}

void PictureBox::Cells(const CellBoxes& cells) {
  const auto x = cells.x(), y = cells.y();
  for (int32_t level = 0; level < cells.levels(); ++level) {
    const auto k = static_cast<std::size_t>(level);
    for (int32_t column = 0; column < cells.columns(); ++column) {
      const auto c = static_cast<std::size_t>(column);
      if (const auto colour = cells.colour(column, level)) {
        Box(x[c], y[k], x[c + 1], y[k + 1], *colour);
      }
    }
  }
}

Colour basicPalette(int32_t entry) {
  static constexpr std::array<Colour, 16> kPalette = {
      rgb(0, 0, 0),       rgb(0, 0, 128),   rgb(0, 128, 0),   rgb(0, 128, 128),
      rgb(128, 0, 0),     rgb(128, 0, 128), rgb(128, 128, 0), rgb(192, 192, 192),
      rgb(128, 128, 128), rgb(0, 0, 255),   rgb(0, 255, 0),   rgb(0, 255, 255),
      rgb(255, 0, 0),     rgb(255, 0, 255), rgb(255, 255, 0), rgb(255, 255, 255)};
  if (entry < 0 || entry >= static_cast<int32_t>(kPalette.size())) util::raise(util::kSubscript);
  return kPalette[static_cast<std::size_t>(entry)];
}

// Clipping comes before rounding, so that a corner far outside cannot overflow an integer.
int32_t nearestPixel(float coordinate, int32_t size) {
  const double clipped = std::clamp(static_cast<double>(coordinate), -1.0, size + 1.0);
  return util::roundToLong(clipped);
}

// In steps that the processor can make of several places at once. Between the ends a single is
// exact with the pixel next to it taken away.
void nearestPixels(std::span<const float> coordinates, int32_t size, std::span<int32_t> pixels) {
  const float end = static_cast<float>(size) + 1.0F;
  for (std::size_t n = 0; n < coordinates.size(); ++n) {
    const float given = coordinates[n];
    const float notBelow = given > -1.0F ? given : -1.0F;
    const float place = notBelow < end ? notBelow : end;
    const auto whole = static_cast<int32_t>(place);
    const float rest = place - static_cast<float>(whole);
    const int32_t odd = whole & 1;  // halves go to the even one
    const int32_t up = int32_t{rest > 0.5F} | (int32_t{rest == 0.5F} & odd);
    const int32_t down = int32_t{rest < -0.5F} | (int32_t{rest == -0.5F} & odd);
    pixels[n] = whole + up - down;
  }
}

PixelBox pixelBox(float x1, float y1, float x2, float y2, int32_t width, int32_t height) {
  if (std::isnan(x1) || std::isnan(y1) || std::isnan(x2) || std::isnan(y2)) return {};
  if (width < 1 || height < 1) return {};
  const auto [left, right] = covered(x1, x2, width);
  const auto [top, bottom] = covered(y1, y2, height);
  if (right < left || bottom < top) return {};
  return {left, top, right, bottom};
}

}  // namespace platform
