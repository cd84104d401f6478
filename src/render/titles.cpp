#include <string>

#include "netcdf/title.h"
#include "render/drawVSection.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;

using platform::PictureBox;

void centre(PictureBox& surface, const std::string& text) {
  surface.CurrentX = util::storeSingle(asDouble(surface.ScaleWidth()) / 2.0 -
                                       asDouble(surface.TextWidth(text)) / 2.0);
}

// The name of what is shown: half as large again and underlined, at the bottom edge.
void printLargeTitle(PictureBox& surface, const std::string& text) {
  const platform::Font before = surface.Font;
  surface.Font.Size = util::storeSingle(util::roundToInteger(asDouble(before.Size)) * 1.5);
  surface.Font.Underline = true;
  centre(surface, text);
  surface.CurrentY =
      util::storeSingle(asDouble(surface.ScaleHeight()) - 1.5 * asDouble(surface.TextHeight("A")));
  surface.Print(text);
  surface.Font.Size = before.Size;
  surface.Font.Italic = before.Italic;
  surface.Font.Underline = before.Underline;
}

}  // namespace

void DrawTitles(PictureBox& titleSurface, PictureBox& surface) {
  const auto& lines = ocxNetNc::TitleLines;
  titleSurface.CurrentX = titleSurface.TextWidth("A");
  titleSurface.CurrentY = titleSurface.TextHeight("A") / 2.0F;
  titleSurface.Print("Date/Time: " + lines(2));

  // The measured text has one leading blank more than the printed one: a blank's width stays
  // free at the right edge.
  surface.CurrentX = util::storeSingle(asDouble(surface.ScaleWidth()) -
                                       asDouble(surface.TextWidth(" Data Set: " + lines(1))));
  surface.CurrentY = surface.TextHeight("A") / 2.0F;
  surface.Print("Data Set: " + lines(1));
  centre(surface, lines(3));
  surface.Print(lines(3));
  printLargeTitle(surface, lines(4));
}

}  // namespace KelvaneMain
