#include "targets/support/CheckedBox.h"

#include <algorithm>
#include <cmath>

#include "platform/clipLine.h"
#include "platform/drawableText.h"
#include "targets/support/must.h"

namespace fuzz {
namespace {

// The small sections of the targets have some hundred cells; axes and legends have ticks and
// divisions in 16-bit counts.
constexpr int32_t kMostOperations = 2'000'000;

}  // namespace

void CheckedBox::Move(int32_t, int32_t, int32_t width, int32_t height) {
  width_ = std::max(width, 0);
  height_ = std::max(height, 0);
}

void CheckedBox::Cls() {
  CurrentX = CurrentY = 0;
  operations_ = 0;
}

void CheckedBox::Line(float x1, float y1, float x2, float y2, platform::Colour) {
  count();
  MUST(DrawWidth >= 1 && DrawWidth <= 100);
  const double reach = DrawWidth + 3.0;
  const auto piece = platform::clipLine({static_cast<double>(x1), static_cast<double>(y1),
                                         static_cast<double>(x2), static_cast<double>(y2)},
                                        width_, height_, DrawWidth);
  if (!piece) return;
  // What a device rounds to its integers.
  for (const double x : {piece->x1, piece->x2}) MUST(x >= -reach && x <= width_ + reach);
  for (const double y : {piece->y1, piece->y2}) MUST(y >= -reach && y <= height_ + reach);
}

void CheckedBox::Box(float x1, float y1, float x2, float y2, platform::Colour) {
  count();
  const platform::PixelBox box = platform::pixelBox(x1, y1, x2, y2, width_, height_);
  if (box.empty()) return;
  MUST(box.left >= 0 && box.top >= 0 && box.right < width_ && box.bottom < height_);
}

void CheckedBox::Print(std::string_view text) {
  count();
  const std::string drawn = platform::drawableText(text);
  MUST(std::ranges::none_of(drawn, [](char letter) { return letter >= 0 && letter < ' '; }));
  MUST(platform::drawableText(drawn) == drawn);
  CurrentX = 0;
  CurrentY += TextHeight(text);
}

float CheckedBox::TextWidth(std::string_view text) const {
  return 0.75F * Font.Size * static_cast<float>(text.size());
}

float CheckedBox::TextHeight(std::string_view) const { return 1.625F * Font.Size; }

void CheckedBox::AndFrom(const platform::PictureBox& source) {
  MUST(&source != this && source.ScaleWidth() == ScaleWidth());
}

void CheckedBox::count() { MUST(++operations_ <= kMostOperations); }

}  // namespace fuzz
