#include "render/drawVSection.h"

#include "colorkey/colorKey.h"
#include "colorkey/legend.h"
#include "colorkey/rampColour.h"
#include "render/SurfaceState.h"
#include "render/contourLines.h"
#include "render/pictureSteps.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "util/RuntimeError.h"
#include "util/ocxMinmax.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

constexpr std::string_view kTag = "DrawVSection KelvaneMain";

using util::asDouble;

using platform::PictureBox;
using platform::Pictures;

void setWorldRectangle() {
  plot.WorldX1 = 0.0;
  plot.WorldX2 = section_values.ncols();
  plot.WorldY1 = 0.0 - asDouble(section_values.section_depth_max);
  plot.WorldY2 = 0.0;
}

// The kept plotting range, not the extremes of this step: colours stay comparable in time.
void setValueRange(const DrawItem& item) {
  ModColor::ValueMin = item.plot_min;
  ModColor::ValueSpan = util::storeSingle(asDouble(item.plot_max) - asDouble(item.plot_min));
}

void DrawLegend(PictureBox& surface) {
  const double width = 2.0 * asDouble(plot.RightMargin);
  const float x = util::storeSingle(asDouble(surface.ScaleWidth()) - width);
  const float height = util::storeSingle(asDouble(surface.ScaleHeight()) -
                                         asDouble(plot.TopMargin) - asDouble(plot.BottomMargin));
  const auto draw = ModColor::bUseKey >= 0 ? ModColor::DrawRampLegend : ModColor::DrawKeyLegend;
  draw(surface, x, plot.TopMargin, util::storeSingle(width), height);
}

// The lines follow the held grid and the mapping of the frame just drawn. The plotting interval
// stays as it is, whatever the lines make of theirs.
void DrawContours(PictureBox& surface, const DrawItem& item) {
  const SectionGrid& grid = section_values;
  // Raised as the levels' number has always been; the interval alone decides on the levels.
  settings.ContourLevels = ocxMinmax::MaxLong(settings.ContourLevels, 1);
  if (grid.nlevels() < 2) return;
  const OcxContr::ContourField field{grid.ncols(), grid.nlevels(), grid.values(), grid.marks(),
                                     grid.depths};
  OcxContr::ContourStyle style;
  style.rangeMaximum = item.plot_max;
  style.rangeMinimum = item.plot_min;
  style.lineColour = settings.ContourLineColor;
  style.yStep = -asDouble(grid.section_depth_max) / (grid.nlevels() - 1);
  float interval = item.plot_interval;
  surface.DrawWidth = 1;
  OcxContr::DrawContourLines(surface, field, interval, style);
}

void DrawSteps(Pictures& pictures) {
  PictureBox& surface = pictures.picSection;
  settings.ShowDistanceAxis = 1;
  settings.ShowDepthAxis = 1;
  surface.Font.Bold = true;
  if (settings.ShowTitles != 0) DrawTitles(pictures.picDateTime, surface);
  if (section_values.empty()) util::raise(util::kSubscript);  // nothing was ever read
  const DrawItem& item = DrawItems(Item_shown);
  setWorldRectangle();
  setValueRange(item);
  const int frame = DrawFrameAndAxes(surface);
  surface.Font.Bold = false;
  if (settings.ShowLegend == 1) DrawLegend(surface);
  // Without a mapping of this frame a line would have no place.
  if (settings.ViewStyle > 0 && frame == 0) DrawContours(pictures.picContours, item);
}

}  // namespace

void DrawVSection(Pictures& pictures) {
  {
    const SurfaceState sectionState(pictures.picSection);
    const SurfaceState contoursState(pictures.picContours);
    trapped(kTag, [&] {
      // All three, whatever is drawn on them: nothing old may come through the transfers.
      pictures.picSection.Cls();
      pictures.picContours.Cls();
      pictures.picDateTime.Cls();
      DrawSteps(pictures);
    });
  }
  trapped(kTag, [&] { CombinePictures(pictures, {&pictures.picContours, &pictures.picDateTime}); });
}

}  // namespace KelvaneMain
