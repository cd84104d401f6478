#include "platform/cairo/CairoVectorBox.h"

#include <algorithm>
#include <cmath>

#include "platform/clipLine.h"
#include "platform/drawableText.h"
#include "util/rounding.h"

namespace platform {

using util::asDouble;

void CairoVectorBox::Move(int32_t, int32_t, int32_t width, int32_t height) {
  const int32_t newWidth = std::clamp(width, 0, kLargestSide);
  const int32_t newHeight = std::clamp(height, 0, kLargestSide);
  if (newWidth == width_ && newHeight == height_) return;
  width_ = newWidth;
  height_ = newHeight;
  Cls();
}

void CairoVectorBox::Cls() {
  inks_.clear();
  texts_.clear();
  CurrentX = CurrentY = 0.0F;
}

void CairoVectorBox::Line(float x1, float y1, float x2, float y2, Colour colour) {
  const int32_t thickness = std::clamp(DrawWidth, 1, 1000);
  const auto piece = clipLine({asDouble(x1), asDouble(y1), asDouble(x2), asDouble(y2)}, width_,
                              height_, thickness);
  if (!piece) return;
  inks_.push_back({Ink::Kind::Line, static_cast<float>(piece->x1), static_cast<float>(piece->y1),
                   static_cast<float>(piece->x2), static_cast<float>(piece->y2), colour,
                   thickness});
}

void CairoVectorBox::Box(float x1, float y1, float x2, float y2, Colour colour) {
  if (std::isnan(x1) || std::isnan(y1) || std::isnan(x2) || std::isnan(y2)) return;
  const auto inside = [](float a, int32_t size) {
    return std::clamp(a, -1.0F, static_cast<float>(size) + 1.0F);
  };
  const float left = inside(std::min(x1, x2), width_);
  const float right = inside(std::max(x1, x2), width_);
  const float top = inside(std::min(y1, y2), height_);
  const float bottom = inside(std::max(y1, y2), height_);
  // Neighbouring cells of one colour are one box.
  if (!inks_.empty()) {
    Ink& last = inks_.back();
    if (last.kind == Ink::Kind::Box && last.colour == colour && last.y1 == top &&
        last.y2 == bottom && last.x2 == left) {
      last.x2 = right;
      return;
    }
  }
  inks_.push_back({Ink::Kind::Box, left, top, right, bottom, colour, 0});
}

void CairoVectorBox::Print(std::string_view text) {
  constexpr float kFar = 1e6F;
  if (std::fabs(CurrentX) <= kFar && std::fabs(CurrentY) <= kFar) {
    inks_.push_back({Ink::Kind::Text, CurrentX, CurrentY, 0, 0, ForeColor,
                     static_cast<int32_t>(texts_.size())});
    texts_.push_back({drawableText(text), Font});
  }
  CurrentX = 0.0F;
  CurrentY += TextHeight(text);
}

float CairoVectorBox::TextWidth(std::string_view text) const {
  return lettering_.width(drawableText(text), Font);
}

float CairoVectorBox::TextHeight(std::string_view) const { return lettering_.height(Font); }

void CairoVectorBox::AndFrom(const PictureBox& source) {
  const auto& from = dynamic_cast<const CairoVectorBox&>(source);
  const auto shift = static_cast<int32_t>(texts_.size());
  for (Ink ink : from.inks_) {
    if (ink.kind == Ink::Kind::Text) ink.detail += shift;
    inks_.push_back(ink);
  }
  texts_.insert(texts_.end(), from.texts_.begin(), from.texts_.end());
}

void CairoVectorBox::replay(cairo_t* context) const {
  setColour(context, rgb(255, 255, 255));
  cairo_paint(context);
  for (std::size_t n = 0; n < inks_.size(); ++n) {
    const Ink& ink = inks_[n];
    const double x = asDouble(ink.x1);
    const double y = asDouble(ink.y1);
    if (ink.kind == Ink::Kind::Text) {
      const Text& text = texts_[static_cast<std::size_t>(ink.detail)];
      lettering_.show(context, text.drawable, x, y, text.font, ink.colour);
    } else if (ink.kind == Ink::Kind::Line) {
      n = replayLines(context, n);
    } else {
      // Both corners included, as with pixels; the unit by which neighbours overlap keeps
      // viewers from showing seams between them.
      setColour(context, ink.colour);
      cairo_rectangle(context, x, y, asDouble(ink.x2) - x + 1.0, asDouble(ink.y2) - y + 1.0);
      cairo_fill(context);
    }
  }
}

// Strokes that each cover a joint would darken it, so a line that goes on where the one before it
// ended belongs to the same stroke.
std::size_t CairoVectorBox::replayLines(cairo_t* context, std::size_t first) const {
  const Ink& start = inks_[first];
  setColour(context, start.colour);
  cairo_set_line_width(context, start.detail);
  cairo_move_to(context, asDouble(start.x1) + 0.5, asDouble(start.y1) + 0.5);
  cairo_line_to(context, asDouble(start.x2) + 0.5, asDouble(start.y2) + 0.5);
  std::size_t last = first;
  for (; last + 1 < inks_.size(); ++last) {
    const Ink& ended = inks_[last];
    const Ink& next = inks_[last + 1];
    if (next.kind != Ink::Kind::Line || next.x1 != ended.x2 || next.y1 != ended.y2 ||
        next.colour != ended.colour || next.detail != ended.detail) {
      break;
    }
    cairo_line_to(context, asDouble(next.x2) + 0.5, asDouble(next.y2) + 0.5);
  }
  const bool straight = last == first && (start.x1 == start.x2 || start.y1 == start.y2);
  cairo_set_line_cap(context, straight ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(context);
  return last;
}

}  // namespace platform
