#include "platform/cairo/Lettering.h"

#include <algorithm>
#include <cmath>

#include "platform/cairo/letteringFace.h"

namespace platform {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;

// Any size a surface can be given, as one that letters can have.
double pixelSize(float points) {
  const double wanted = static_cast<double>(points);
  return kPixelsPerPoint * (std::isnan(wanted) ? 8.0 : std::clamp(wanted, 1.0, 1000.0));
}

}  // namespace

void setColour(cairo_t* context, Colour colour) {
  const auto bits = static_cast<uint32_t>(colour);
  cairo_set_source_rgb(context, (bits & 0xFFU) / 255.0, (bits >> 8U & 0xFFU) / 255.0,
                       (bits >> 16U & 0xFFU) / 255.0);
}

// Every choice is made here, so that the desktop's own settings for text do not reach a picture.
Lettering::Lettering(Grid grid, Edges edges)
    : grid_(grid), edges_(edges), options_(cairo_font_options_create()) {
  const bool pixels = grid == Grid::WholePixels;
  const bool hard = edges == Edges::Hard;
  cairo_font_options_set_antialias(options_.get(),
                                   hard ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_GRAY);
  // Letters without grey need the face's own instructions to be read at all.
  const cairo_hint_style_t pixelStyle = hard ? CAIRO_HINT_STYLE_FULL : CAIRO_HINT_STYLE_SLIGHT;
  cairo_font_options_set_hint_style(options_.get(), pixels ? pixelStyle : CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options_.get(),
                                      pixels ? CAIRO_HINT_METRICS_ON : CAIRO_HINT_METRICS_OFF);
}

const Lettering::Letters& Lettering::letters(const Font& font) const {
  const double size = pixelSize(font.Size);
  const auto [place, isNew] = cache_.try_emplace({size, font.Bold, font.Italic});
  Letters& found = place->second;
  if (!isNew) return found;
  found.size = size;
  found.face = letteringFace(font.Bold, font.Italic);
  cairo_matrix_t scale, unchanged;
  cairo_matrix_init_scale(&scale, size, size);
  cairo_matrix_init_identity(&unchanged);
  found.scaled.reset(
      cairo_scaled_font_create(found.face.get(), &scale, &unchanged, options_.get()));
  cairo_font_extents_t extents{};
  cairo_scaled_font_extents(found.scaled.get(), &extents);
  found.ascent = extents.ascent;
  found.descent = extents.descent;
  return found;
}

float Lettering::width(const std::string& drawable, const Font& font) const {
  cairo_text_extents_t extents{};
  cairo_scaled_font_text_extents(letters(font).scaled.get(), drawable.c_str(), &extents);
  return static_cast<float>(extents.x_advance);
}

float Lettering::height(const Font& font) const {
  const Letters& used = letters(font);
  return static_cast<float>(used.ascent + used.descent);
}

void Lettering::show(cairo_t* context, const std::string& drawable, double x, double y,
                     const Font& font, Colour colour) const {
  const Letters& used = letters(font);
  setColour(context, colour);
  cairo_set_font_face(context, used.face.get());
  cairo_set_font_size(context, used.size);
  cairo_set_font_options(context, options_.get());
  cairo_move_to(context, x, y + used.ascent);
  cairo_show_text(context, drawable.c_str());
  if (!font.Underline) return;
  double thickness = used.size / 14.0;
  double below = used.size / 10.0;
  if (grid_ == Grid::WholePixels) {
    thickness = std::max(1.0, std::floor(thickness + 0.5));
    below = std::max(1.0, std::floor(below + 0.5));
  }
  cairo_rectangle(context, x, y + used.ascent + below, static_cast<double>(width(drawable, font)),
                  thickness);
  cairo_fill(context);
}

}  // namespace platform
