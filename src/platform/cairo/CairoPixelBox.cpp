#include "platform/cairo/CairoPixelBox.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/clipLine.h"
#include "platform/drawableText.h"
#include "platform/thinLine.h"
#include "util/rounding.h"

namespace platform {
namespace {

using util::asDouble;

int32_t placeOf(float coordinate) {
  return util::roundToLong(std::clamp(asDouble(coordinate), -1e6, 1e6));
}

}  // namespace

void CairoPixelBox::Move(int32_t, int32_t, int32_t width, int32_t height) {
  const int32_t newWidth = std::clamp(width, 0, kLargestSide);
  const int32_t newHeight = std::clamp(height, 0, kLargestSide);
  if (newWidth != width_ || newHeight != height_) makeSurface(newWidth, newHeight);
}

// The box is empty until everything is there.
void CairoPixelBox::makeSurface(int32_t width, int32_t height) {
  width_ = height_ = 0;
  rows_ = {};
  context_.reset();
  surface_.reset();
  if (width < 1 || height < 1 || int64_t{width} * height > kMostPixels) return;
  CairoSurface made(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
  if (cairo_surface_status(made.get()) != CAIRO_STATUS_SUCCESS) return;
  // Rows of this format are aligned to their 32-bit pixels.
  void* start = cairo_image_surface_get_data(made.get());
  const int stride = cairo_image_surface_get_stride(made.get());
  rows_ = PixelRows(static_cast<uint32_t*>(start), stride / 4, width, height);
  context_.reset(cairo_create(made.get()));
  surface_ = std::move(made);
  width_ = width;
  height_ = height;
  Cls();
}

cairo_t* CairoPixelBox::drawWithCairo(int32_t first, int32_t last) {
  rows_.open(first, last);
  if (writtenDirectly_) cairo_surface_mark_dirty(surface_.get());
  writtenDirectly_ = false;
  return context_.get();
}

void CairoPixelBox::beginWriting() {
  if (!writtenDirectly_) cairo_surface_flush(surface_.get());
  writtenDirectly_ = true;
}

void CairoPixelBox::fill(const PixelBox& box, Colour colour) {
  if (!surface_ || box.empty()) return;
  beginWriting();
  rows_.fill(box, colour);
}

void CairoPixelBox::Cls() {
  CurrentX = CurrentY = 0.0F;
  if (!surface_) return;
  beginWriting();
  rows_.clear();
}

void CairoPixelBox::Cells(const CellBoxes& cells) {
  if (!surface_) return;
  beginWriting();
  if (!rows_.paint(cells)) PictureBox::Cells(cells);
}

void CairoPixelBox::Box(float x1, float y1, float x2, float y2, Colour colour) {
  fill(pixelBox(x1, y1, x2, y2, width_, height_), colour);
}

void CairoPixelBox::Line(float x1, float y1, float x2, float y2, Colour colour) {
  if (!surface_ || std::isnan(x1 + y1 + x2 + y2)) return;
  const int32_t thickness = std::clamp(DrawWidth, 1, 1000);
  // The pixels beside the line that its thickness takes in.
  const auto before = static_cast<float>(thickness / 2);
  const auto after = static_cast<float>((thickness - 1) / 2);
  if (y1 == y2) {
    const auto y = static_cast<float>(placeOf(y1));
    fill(pixelBox(x1, y - before, x2, y + after, width_, height_), colour);
  } else if (x1 == x2) {
    const auto x = static_cast<float>(placeOf(x1));
    fill(pixelBox(x - before, y1, x + after, y2, width_, height_), colour);
  } else if (const auto line = clipLine({asDouble(x1), asDouble(y1), asDouble(x2), asDouble(y2)},
                                        width_, height_, thickness)) {
    drawSlanted(*line, thickness, colour);
  }
}

void CairoPixelBox::drawSlanted(const LinePiece& line, int32_t thickness, Colour colour) {
  const bool hard = lettering_.edges() == Edges::Hard;
  if (hard && thickness == 1) {
    beginWriting();
    drawThinLine(rows_, line, colour);
    return;
  }
  const auto [top, bottom] = std::minmax(line.y1, line.y2);
  cairo_t* context = drawWithCairo(util::roundToLong(top) - thickness - 1,
                                   util::roundToLong(bottom) + thickness + 1);
  setColour(context, colour);
  cairo_set_antialias(context, hard ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
  cairo_set_line_width(context, thickness);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  // Centred as the lines along the axes are: in a pixel, or between two of them.
  const double centre = thickness % 2 == 0 ? 0.0 : 0.5;
  cairo_move_to(context, line.x1 + centre, line.y1 + centre);
  cairo_line_to(context, line.x2 + centre, line.y2 + centre);
  cairo_stroke(context);
}

void CairoPixelBox::Print(std::string_view text) {
  const float height = TextHeight(text);
  if (surface_ && !std::isnan(CurrentX) && !std::isnan(CurrentY)) {
    const int32_t top = placeOf(CurrentY);
    // Letters may reach out of their line, but not by another one.
    const int32_t reach = util::roundToLong(asDouble(height)) + 1;
    lettering_.show(drawWithCairo(top - reach, top + 2 * reach), drawableText(text),
                    placeOf(CurrentX), top, Font, ForeColor);
  }
  CurrentX = 0.0F;
  CurrentY += height;
}

float CairoPixelBox::TextWidth(std::string_view text) const {
  return lettering_.width(drawableText(text), Font);
}

float CairoPixelBox::TextHeight(std::string_view) const { return lettering_.height(Font); }

void CairoPixelBox::AndFrom(const PictureBox& source) {
  const auto& from = dynamic_cast<const CairoPixelBox&>(source);
  if (!surface_ || !from.surface_) return;
  cairo_surface_flush(from.surface_.get());
  beginWriting();
  rows_.andFrom(from.rows_);
}

void CairoPixelBox::TakeFrom(PictureBox& source) {
  auto& from = dynamic_cast<CairoPixelBox&>(source);
  if (from.width_ != width_ || from.height_ != height_) {
    PictureBox::TakeFrom(source);
    return;
  }
  Cls();
  std::swap(rows_, from.rows_);
  surface_.swap(from.surface_);
  context_.swap(from.context_);
  std::swap(writtenDirectly_, from.writtenDirectly_);
}

Colour CairoPixelBox::pixel(int32_t x, int32_t y) const {
  cairo_surface_flush(surface_.get());
  return colourOf(rows_.pixel(x, y));
}

const PixelRows& CairoPixelBox::pixels() const {
  if (surface_) cairo_surface_flush(surface_.get());
  rows_.settle();
  return rows_;
}

}  // namespace platform
