#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/PictureBox.h"
#include "platform/PixelRows.h"
#include "platform/gdi/handles.h"

namespace platform {

// A picture box on a 32-bit bitmap in memory. Boxes, cells and thin lines are written straight into
// its pixels, text and wide lines are drawn by GDI. A surface of more than 64 Mi pixels, or one
// there is no memory for, is empty: it measures 0 x 0, and drawing does nothing.
class GdiPictureBox final : public PictureBox {
 public:
  // show is called by Refresh, to bring the picture to where the user sees it.
  explicit GdiPictureBox(std::function<void()> show = {});
  ~GdiPictureBox() override;

  void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
  float ScaleWidth() const override { return static_cast<float>(width_); }
  float ScaleHeight() const override { return static_cast<float>(height_); }
  void Cls() override;
  void Refresh() override;
  void Line(float x1, float y1, float x2, float y2, Colour colour) override;
  void Box(float x1, float y1, float x2, float y2, Colour colour) override;
  void Cells(const CellBoxes& cells) override;
  void Print(std::string_view text) override;
  float TextWidth(std::string_view text) const override;
  float TextHeight(std::string_view text) const override;
  void AndFrom(const PictureBox& source) override;
  void TakeFrom(PictureBox& source) override;

  int32_t width() const { return width_; }
  int32_t height() const { return height_; }
  // The colour of a pixel; white outside the surface.
  Colour pixel(int32_t x, int32_t y) const;

  // Copies a part of the picture to the same place of a device context.
  void copyTo(HDC target, const RECT& part) const;
  // Draws the whole picture into a rectangle of any device context, stretched when the sizes
  // differ. False when the device refuses; an empty picture draws nothing and is no refusal.
  bool drawInto(HDC target, const RECT& rectangle) const;

 private:
  void selectFont() const;
  // GDI and direct writing take turns: GDI keeps back what it draws until it is told to be done.
  void beginWriting();
  // GDI will draw in the rows first..last.
  void drawWithGdi(int32_t first, int32_t last);

  std::function<void()> show_;
  int32_t width_ = 0, height_ = 0;
  uint32_t* pixels_ = nullptr;  // rows from the top
  PixelRows rows_;              // what is known of them
  BitmapHandle bitmap_;
  // The fonts asked for so far; few, since the routines only vary size, bold and underline.
  mutable std::vector<std::pair<platform::Font, FontHandle>> fonts_;
  MemoryDc dc_;
  HGDIOBJ stockBitmap_ = nullptr;
  HGDIOBJ stockFont_ = nullptr;
  bool gdiIsDrawing_ = false;
};

}  // namespace platform
