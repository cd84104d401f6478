#include "render/profileLayout.h"

#include "render/plotFrame.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;
using util::storeSingle;

// Margins as wide as the widest labels beside a graph: depths, or the half of a value label that
// stands out under a corner. The texts are templates and never printed.
void setGraphMargins(const platform::PictureBox& surface, LabelSide side) {
  plot.TopMargin = plot.BottomMargin = storeSingle(4.0 * asDouble(surface.TextHeight("A")));
  const auto margin = [&](LabelSide labels) {
    if (side == LabelSide::None) return surface.TextWidth("000");
    return surface.TextWidth(side == labels ? " -2000 " : "00");
  };
  plot.LeftMargin = margin(LabelSide::Left);
  plot.RightMargin = margin(LabelSide::Right);
}

// The size of each of count graphs in the free room, with the gaps between them.
float shareOf(float room, float gap, int32_t count) {
  return storeSingle((asDouble(room) - asDouble(gap) * (count - 1.0)) / count);
}

// The place of graph number index.
float placeOf(float first, float size, float gap, int32_t index) {
  return storeSingle((asDouble(size) + asDouble(gap)) * (index - 1.0) + asDouble(first));
}

}  // namespace

GraphArea GraphLayout::area(int32_t row, int32_t column) const {
  return {placeOf(left, width, gapX, column), placeOf(top, height, gapY, row), width, height};
}

GraphLayout LayoutGraphs(const platform::PictureBox& surface, int32_t rows, int32_t columns,
                         LabelSide side) {
  setGraphMargins(surface, side);
  const float freeHeight =
      storeSingle(asDouble(surface.ScaleHeight()) - asDouble(plot.TopMargin) -
                  asDouble(plot.BottomMargin));
  const float freeWidth =
      storeSingle(asDouble(surface.ScaleWidth()) - asDouble(plot.LeftMargin) -
                  asDouble(plot.RightMargin));
  GraphLayout layout;
  layout.left = plot.LeftMargin;
  layout.top = plot.TopMargin;
  layout.gapY = storeSingle(asDouble(freeHeight) / 20.0);
  layout.gapX = storeSingle(asDouble(freeWidth) / 20.0);
  layout.height = shareOf(freeHeight, layout.gapY, rows);
  layout.width = shareOf(freeWidth, layout.gapX, columns);
  return layout;
}

}  // namespace KelvaneMain
