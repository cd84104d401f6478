#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/CellBoxes.h"
#include "platform/colour.h"

namespace platform {

// The 16-colour basic palette of the drawing surface, entries 0..15; 0 is black, 15 white.
// An entry outside is run-time error 9.
Colour basicPalette(int32_t entry);

enum class FillStyle : int32_t { Solid = 0, Transparent = 1 };

struct Font {
  float Size = 8.0F;  // points
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool operator==(const Font&) const = default;
};

// A picture box: a drawing surface in scale units of one pixel, origin at the top left, white
// background, its contents kept in memory so that a repaint of the window needs no redrawing.
// What a drawing routine sets (text position, font, colours) is plain state of the surface.
class PictureBox {
 public:
  virtual ~PictureBox() = default;
  PictureBox(const PictureBox&) = delete;
  PictureBox& operator=(const PictureBox&) = delete;

  // Places the box in its container, in pixels; sizes below 0 count as 0. A change of size
  // gives a new white surface.
  virtual void Move(int32_t left, int32_t top, int32_t width, int32_t height) = 0;
  virtual float ScaleWidth() const = 0;
  virtual float ScaleHeight() const = 0;

  virtual void Cls() = 0;      // all white; CurrentX = CurrentY = 0
  virtual void Refresh() = 0;  // shows what was drawn

  // A straight line, DrawWidth units wide, both end points included.
  virtual void Line(float x1, float y1, float x2, float y2, Colour colour) = 0;
  // A filled box, border and fill in the colour, both corners included.
  virtual void Box(float x1, float y1, float x2, float y2, Colour colour) = 0;
  // The boxes of a grid of cells, painted in the grid's order. Surfaces of pixels need not paint
  // each of them to look the same.
  virtual void Cells(const CellBoxes& cells);

  // Prints one line of text (UTF-8) in ForeColor, its top left at (CurrentX, CurrentY); then
  // CurrentX = 0 and CurrentY is one text height lower.
  virtual void Print(std::string_view text) = 0;
  virtual float TextWidth(std::string_view text) const = 0;
  virtual float TextHeight(std::string_view text) const = 0;

  // Prints at a place computed in double; beyond the single range is run-time error 6.
  void PrintAt(double x, double y, std::string_view text);

  // Combines the whole of another surface of the same kind into this one from (0, 0): each
  // pixel becomes this AND source, so that white is neutral.
  virtual void AndFrom(const PictureBox& source) = 0;
  // Becomes what Cls and AndFrom would make of it. The source may be all white afterwards:
  // surfaces of one size just exchange their memory.
  virtual void TakeFrom(PictureBox& source);

  float CurrentX = 0.0F;
  float CurrentY = 0.0F;
  int32_t DrawWidth = 1;
  Colour ForeColor = 0;
  platform::FillStyle FillStyle = platform::FillStyle::Transparent;
  platform::Font Font;

 protected:
  PictureBox() = default;
};

// The four pictures of a control, one on top of the other; Picture1 is what the user sees, the
// others are drawn behind it and reach it by transfers.
struct Pictures {
  PictureBox& Picture1;
  PictureBox& picDateTime;
  PictureBox& picSection;
  PictureBox& picContours;
};

// The pixel next to a coordinate, halves to even; -1 or size + 1 for all that lie farther
// outside of a surface of size pixels. NaN is run-time error 6.
int32_t nearestPixel(float coordinate, int32_t size);
// The same of many, into as many places; of a NaN it is any number.
void nearestPixels(std::span<const float> coordinates, int32_t size, std::span<int32_t> pixels);

// The pixels that a box between two corners covers, both corners included: corners rounded to
// the nearest pixel (halves to even) and clipped to a surface of width x height. Every surface
// with pixels fills by this rule, so that cells have no seams and are the same everywhere.
struct PixelBox {
  int32_t left = 0, top = 0, right = -1, bottom = -1;  // inclusive; right < left when empty
  bool empty() const { return right < left || bottom < top; }
};
PixelBox pixelBox(float x1, float y1, float x2, float y2, int32_t width, int32_t height);

}  // namespace platform
