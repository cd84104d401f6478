#include "render/plotFrame.h"

#include <cmath>
#include <string>

#include "platform/Desktop.h"
#include "section/sectionPath.h"
#include "util/RuntimeError.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace KelvaneMain {

PlotGeometry plot;

namespace {

using util::asDouble;

int32_t refuse(const std::string& text) {
  platform::desktop().ShowMessage("[Cartesian] " + text, "KelvaneCtl", platform::MessageIcon::None);
  return -1;
}

}  // namespace

int32_t sectionType() {
  switch (section.section_kind) {
    case kSameLatitude:
      return 2;
    case kSameLongitude:
      return 1;
    default:
      return 0;
  }
}

PlotArea SetMargins(const platform::PictureBox& surface) {
  const double textHeight = asDouble(surface.TextHeight("A"));
  plot.TopMargin = util::storeSingle(3.0 * textHeight);
  plot.BottomMargin = util::storeSingle((sectionType() > 0 ? 3.0 : 2.0) * textHeight);
  // Width templates of the widest depth label, never printed.
  plot.LeftMargin = surface.TextWidth("  -2000 ");
  plot.RightMargin = surface.TextWidth(" -2000 ");
  const PlotArea area{util::roundToLong(asDouble(surface.ScaleWidth()) - asDouble(plot.LeftMargin) -
                                        asDouble(plot.RightMargin)),
                      util::roundToLong(asDouble(surface.ScaleHeight()) - asDouble(plot.TopMargin) -
                                        asDouble(plot.BottomMargin))};
  plot.PlotHeightBase = util::storeSingle(asDouble(plot.TopMargin) + area.height);
  return area;
}

int32_t Cartesian(int32_t pwidth, int32_t phight, int32_t xoff, int32_t yoff) {
  const double spanX = plot.WorldX2 - plot.WorldX1;
  const double spanY = plot.WorldY2 - plot.WorldY1;
  if (std::fabs(spanY) < 1e-10) {
    return refuse("scale parameters out of rangexy4:x=" + util::generalText(plot.WorldX1) +
                  util::generalText(plot.WorldX2) + "xy4:y=" + util::generalText(plot.WorldY1) +
                  util::generalText(plot.WorldY2));
  }
  // One positive dimension is enough.
  if (pwidth <= 0 && phight <= 0) {
    return refuse("screen size out of rangepwidth, phight = " + util::generalText(pwidth) +
                  util::generalText(phight));
  }
  if (spanX == 0.0) util::raise(util::kDivisionByZero);
  plot.OffsetX = xoff;
  plot.OffsetY = yoff;
  plot.OriginX = plot.WorldX1;
  plot.OriginY = plot.WorldY1;
  plot.ScaleX = (pwidth - plot.OffsetX) / spanX;
  plot.ScaleY = (phight - plot.OffsetY) / spanY;
  return 0;
}

SurfacePoint WorldToSurface(double x, double y) {
  return {util::storeSingle(SurfaceX(plot, x)),
          util::storeSingle(asDouble(plot.PlotHeightBase) -
                            ((y - plot.OriginY) * plot.ScaleY + plot.OffsetY))};
}

}  // namespace KelvaneMain
