#pragma once

#include <cstdint>

#include "platform/PictureBox.h"
#include "platform/PixelRows.h"
#include "platform/cairo/Lettering.h"
#include "platform/cairo/cairoHandles.h"
#include "platform/clipLine.h"

namespace platform {

// A picture box of pixels in memory. Boxes, the lines along the axes and the thin lines of hard
// edges are written straight into the pixels; text and other slanted lines are drawn by Cairo.
// The edges are those of the lettering.
class CairoPixelBox : public PictureBox {
 public:
  static constexpr int32_t kLargestSide = 32767;
  static constexpr int64_t kMostPixels = int64_t{64} * 1024 * 1024;

  explicit CairoPixelBox(const Lettering& lettering) : lettering_(lettering) {}

  // A side above kLargestSide is cut to it. A surface of more than kMostPixels, or one there
  // is no memory for, is empty: it measures 0 x 0 and takes no ink.
  void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
  float ScaleWidth() const override { return static_cast<float>(width_); }
  float ScaleHeight() const override { return static_cast<float>(height_); }
  void Cls() override;
  void Refresh() override {}
  void Line(float x1, float y1, float x2, float y2, Colour colour) override;
  void Box(float x1, float y1, float x2, float y2, Colour colour) override;
  void Cells(const CellBoxes& cells) override;
  void Print(std::string_view text) override;
  float TextWidth(std::string_view text) const override;
  float TextHeight(std::string_view text) const override;
  void AndFrom(const PictureBox& source) override;
  void TakeFrom(PictureBox& source) override;

  // Red, green and blue of a pixel inside the surface.
  Colour pixel(int32_t x, int32_t y) const;
  // The finished pixels, empty while the surface is.
  const PixelRows& pixels() const;

 private:
  void makeSurface(int32_t width, int32_t height);
  void fill(const PixelBox& box, Colour colour);
  void drawSlanted(const LinePiece& line, int32_t thickness, Colour colour);
  void beginWriting();
  // Cairo and direct writing take turns: each side is told of the other's work. Cairo will draw
  // in the rows first..last.
  cairo_t* drawWithCairo(int32_t first, int32_t last);

  const Lettering& lettering_;
  int32_t width_ = 0, height_ = 0;
  PixelRows rows_;  // the memory of the surface
  CairoSurface surface_;
  CairoContext context_;
  bool writtenDirectly_ = false;
};

}  // namespace platform
