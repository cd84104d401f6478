#include "platform/cairo/letteringFace.h"

#include <cairo-ft.h>

#include <array>
#include <memory>
#include <string>

namespace platform {
namespace {

constexpr char kFolder[] = "/usr/share/fonts/truetype/liberation/";

std::string fileOf(bool bold, bool italic) {
  const char* const style = bold ? (italic ? "BoldItalic" : "Bold") : italic ? "Italic" : "Regular";
  return std::string(kFolder) + "LiberationSans-" + style + ".ttf";
}

// Lives as long as the process, as the faces do.
FT_Library freeType() {
  static const FT_Library library = [] {
    FT_Library made = nullptr;
    return FT_Init_FreeType(&made) == 0 ? made : nullptr;
  }();
  return library;
}

struct DoneFace {
  void operator()(FT_Face face) const noexcept { FT_Done_Face(face); }
};

void doneFace(void* face) { FT_Done_Face(static_cast<FT_Face>(face)); }

// Null where there is no such file.
CairoFontFace fromFile(const std::string& file) {
  FT_Face opened = nullptr;
  if (freeType() == nullptr || FT_New_Face(freeType(), file.c_str(), 0, &opened) != 0) return {};
  std::unique_ptr<FT_FaceRec_, DoneFace> face(opened);
  CairoFontFace made(cairo_ft_font_face_create_for_ft_face(face.get(), 0));
  static const cairo_user_data_key_t kOwner = {};
  if (cairo_font_face_status(made.get()) != CAIRO_STATUS_SUCCESS ||
      cairo_font_face_set_user_data(made.get(), &kOwner, face.get(), doneFace) !=
          CAIRO_STATUS_SUCCESS) {
    return {};
  }
  (void)face.release();  // goes with Cairo's face now
  return made;
}

CairoFontFace make(bool bold, bool italic) {
  if (CairoFontFace found = fromFile(fileOf(bold, italic))) return found;
  return CairoFontFace(cairo_toy_font_face_create(
      "Liberation Sans", italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
      bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL));
}

}  // namespace

// One of each style for all, so that a document embeds it once.
CairoFontFace letteringFace(bool bold, bool italic) {
  static std::array<CairoFontFace, 4> faces;
  CairoFontFace& face = faces[(bold ? 2U : 0U) + (italic ? 1U : 0U)];
  if (!face) face = make(bold, italic);
  return CairoFontFace(cairo_font_face_reference(face.get()));
}

}  // namespace platform
