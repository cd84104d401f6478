#pragma once

#include <map>
#include <string>
#include <tuple>

#include "platform/PictureBox.h"
#include "platform/cairo/cairoHandles.h"

namespace platform {

// Red, green and blue of a colour as the source of the drawing that follows.
void setColour(cairo_t* context, Colour colour);

// Whether the edges of letters and slanted lines on pixels are blended with what is below. Hard
// ones are for surfaces that are combined with others bit by bit, which turns grey into stains.
enum class Edges { Soft, Hard };

// Text in the one face of the pictures, at 96 dots per inch. Pixels are lettered with whole
// advances, so that what is measured is what is drawn; vectors with the face's own.
class Lettering {
 public:
  enum class Grid { WholePixels, None };
  explicit Lettering(Grid grid, Edges edges = Edges::Soft);
  Edges edges() const { return edges_; }

  float width(const std::string& drawable, const Font& font) const;
  // The full line: ascent and descent.
  float height(const Font& font) const;
  // Draws one line with its top left at (x, y), underlined where the font says so.
  void show(cairo_t* context, const std::string& drawable, double x, double y, const Font& font,
            Colour colour) const;

 private:
  // A face at a size, with its measures.
  struct Letters {
    CairoFontFace face;
    CairoScaledFont scaled;
    double size = 0, ascent = 0, descent = 0;
  };
  const Letters& letters(const Font& font) const;

  Grid grid_;
  Edges edges_;
  CairoFontOptions options_;
  mutable std::map<std::tuple<double, bool, bool>, Letters> cache_;
};

}  // namespace platform
