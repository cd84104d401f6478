#pragma once

#include <cairo.h>

#include <memory>

namespace platform {

// Cairo's reference-counted objects, released at the end of their scope.
template <auto release>
struct CairoRelease {
  template <class Object>
  void operator()(Object* object) const noexcept {
    release(object);
  }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoRelease<cairo_surface_destroy>>;
using CairoContext = std::unique_ptr<cairo_t, CairoRelease<cairo_destroy>>;
using CairoFontFace = std::unique_ptr<cairo_font_face_t, CairoRelease<cairo_font_face_destroy>>;
using CairoFontOptions =
    std::unique_ptr<cairo_font_options_t, CairoRelease<cairo_font_options_destroy>>;
using CairoScaledFont =
    std::unique_ptr<cairo_scaled_font_t, CairoRelease<cairo_scaled_font_destroy>>;

}  // namespace platform
