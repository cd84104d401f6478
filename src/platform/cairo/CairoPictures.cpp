#include "platform/cairo/CairoPictures.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/cairo/CairoPixelBox.h"
#include "platform/cairo/CairoVectorBox.h"
#include "platform/cairo/Lettering.h"
#include "platform/cairo/pngPicture.h"
#include "platform/drawableText.h"
#include "platform/files.h"
#include "util/rounding.h"

namespace platform {
namespace {

using util::asDouble;

constexpr double kPointsPerPixel = 72.0 / 96.0;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
  try {
    static_cast<std::string*>(bytes)->append(data, data + length);
    return CAIRO_STATUS_SUCCESS;
  } catch (...) {  // no exception may pass through Cairo
    return CAIRO_STATUS_NO_MEMORY;
  }
}

void check(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(std::string("The picture could not be made: ") +
                             cairo_status_to_string(status));
  }
}

[[noreturn]] void refuseEmpty() {
  throw std::runtime_error(
      "The picture is empty or too large: a picture has 1 to 32767 pixels a side, "
      "67108864 at most in all");
}

std::string escaped(const std::string& text) {
  std::string xml;
  for (const char c : text) {
    if (c == '&')
      xml += "&amp;";
    else if (c == '<')
      xml += "&lt;";
    else if (c == '>')
      xml += "&gt;";
    else
      xml += c;
  }
  return xml;
}

// Cairo has no call for the title of an SVG file: it goes behind the opening tag.
void insertTitle(std::string& svg, const std::string& title) {
  const std::size_t tag = svg.find("<svg");
  const std::size_t end = tag == std::string::npos ? tag : svg.find('>', tag);
  if (end == std::string::npos || title.empty()) return;
  svg.insert(end + 1, "\n<title>" + escaped(title) + "</title>");
}

// Draws a page on a surface that appends to bytes, and ends it.
void drawPage(CairoSurface surface, const CairoVectorBox& box, double unitsPerPixel) {
  CairoContext context(cairo_create(surface.get()));
  cairo_scale(context.get(), unitsPerPixel, unitsPerPixel);
  box.replay(context.get());
  cairo_show_page(context.get());
  check(cairo_status(context.get()));
  context.reset();
  cairo_surface_finish(surface.get());
  check(cairo_surface_status(surface.get()));
}

// A picture can be drawn again, and one of an animation has the next one waiting.
void writePicture(const std::string& path, std::string_view contents) {
  writeWholeFile(path, contents, NameForced::InTime);
}

template <class Box>
struct FourBoxes {
  // The contour lines cross coloured cells: they are combined with them bit by bit, so the edges
  // of pixels must be hard there. The other surfaces are combined on white only.
  FourBoxes(Lettering::Grid grid, Edges contourEdges)
      : lettering(grid), contourLettering(grid, contourEdges) {}
  Pictures pictures() { return {Picture1, picDateTime, picSection, picContours}; }

  Lettering lettering, contourLettering;
  Box Picture1{lettering}, picDateTime{lettering}, picSection{lettering};
  Box picContours{contourLettering};
};

}  // namespace

// One of the two is there, by the kind.
struct CairoPictures::Boxes {
  std::optional<FourBoxes<CairoPixelBox>> pixels;
  std::optional<FourBoxes<CairoVectorBox>> vectors;

  const CairoVectorBox& vectorPicture() const {
    if (!vectors) throw std::logic_error("a picture of pixels cannot be saved as vectors");
    const CairoVectorBox& picture = vectors->Picture1;
    if (picture.ScaleWidth() < 1.0F || picture.ScaleHeight() < 1.0F) refuseEmpty();
    return picture;
  }
};

CairoPictures::CairoPictures(Kind kind) : boxes_(std::make_unique<Boxes>()) {
  if (kind == Kind::Pixels) {
    boxes_->pixels.emplace(Lettering::Grid::WholePixels, Edges::Hard);
  } else {
    boxes_->vectors.emplace(Lettering::Grid::None, Edges::Soft);
  }
}

CairoPictures::~CairoPictures() = default;

Pictures CairoPictures::pictures() {
  return boxes_->pixels ? boxes_->pixels->pictures() : boxes_->vectors->pictures();
}

void CairoPictures::savePng(const std::string& path) const {
  if (!boxes_->pixels) throw std::logic_error("a picture of vectors cannot be saved as pixels");
  const PixelRows& pixels = boxes_->pixels->Picture1.pixels();
  if (pixels.empty()) refuseEmpty();
  writePicture(path, pngPicture(pixels));
}

void CairoPictures::saveSvg(const std::string& path, const std::string& title) const {
  const CairoVectorBox& picture = boxes_->vectorPicture();
  std::string svg;
  CairoSurface surface(cairo_svg_surface_create_for_stream(
      append, &svg, asDouble(picture.ScaleWidth()), asDouble(picture.ScaleHeight())));
  cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
  drawPage(std::move(surface), picture, 1.0);
  insertTitle(svg, drawableText(title));
  writePicture(path, svg);
}

void CairoPictures::savePdf(const std::string& path, const std::string& title) const {
  const CairoVectorBox& picture = boxes_->vectorPicture();
  std::string pdf;
  CairoSurface surface(cairo_pdf_surface_create_for_stream(
      append, &pdf, asDouble(picture.ScaleWidth()) * kPointsPerPixel,
      asDouble(picture.ScaleHeight()) * kPointsPerPixel));
  const std::string drawable = drawableText(title);
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, drawable.c_str());
  drawPage(std::move(surface), picture, kPointsPerPixel);
  writePicture(path, pdf);
}

}  // namespace platform
