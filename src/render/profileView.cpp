#include "render/profileView.h"

#include <string>

#include "render/SurfaceState.h"
#include "render/drawVSection.h"
#include "render/pictureSteps.h"
#include "render/plotFrame.h"
#include "render/profileGraph.h"
#include "render/profileLayout.h"
#include "render/settings.h"
#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

constexpr std::string_view kTag = "DrawProfile KelvaneMain";

using util::asDouble;

using platform::PictureBox;
using platform::Pictures;

constexpr int32_t kSingleGraph = 1;   // ProfileStyle
constexpr int32_t kFirstColour = 9;   // bright blue
constexpr int32_t kColoursOnce = 7;   // up to white
constexpr int32_t kColoursAgain = 6;  // white would not be seen

// The colour of profile p of a shared graph.
platform::Colour profileColour(int32_t p) {
  const int32_t entry = p <= kColoursOnce ? p - 1 : (p - kColoursOnce - 1) % kColoursAgain;
  return platform::basicPalette(kFirstColour + entry);
}

void printGraphTitle(PictureBox& surface, const GraphArea& area, const std::string& label) {
  surface.Font.Bold = true;
  const double middle = asDouble(area.x) + asDouble(area.width) / 2.0;
  surface.PrintAt(middle - asDouble(surface.TextWidth(label)) / 2.0,
                  asDouble(area.y) - asDouble(surface.TextHeight(label)), label);
}

// A line of the list in the top left corner of a shared graph.
void printInList(PictureBox& surface, const GraphArea& area, int32_t p, const std::string& label) {
  surface.PrintAt(asDouble(area.x) + asDouble(surface.TextWidth("AB")),
                  asDouble(area.y) + p * asDouble(surface.TextHeight(label)), label);
}

void drawShared(PictureBox& surface, const GraphLayout& layout, const DrawItem& item) {
  const GraphArea area = layout.area(1, 1);
  const ProfileGraph graph(area, item, section_values.section_depth_max);
  surface.ForeColor = platform::basicPalette(0);
  ValueLabels valueLabels;
  if (layout.hasRoom()) graph.drawFrame(surface, DepthLabels::Printed, valueLabels);
  surface.Font.Bold = false;
  for (int32_t p = 1; p <= section.npts; ++p) {
    surface.ForeColor = profileColour(p);
    printInList(surface, area, p, section.point_label(p));
    if (layout.hasRoom()) graph.drawProfile(surface, CollectProfile(section.point_column(p)));
  }
}

void drawSeparate(PictureBox& surface, const GraphLayout& layout, const DrawItem& item) {
  ValueLabels valueLabels;
  for (int32_t g = 1; g <= section.npts; ++g) {
    const GraphArea area = layout.area(1, g);
    surface.ForeColor = platform::basicPalette(0);
    printGraphTitle(surface, area, section.point_label(g));
    if (!layout.hasRoom()) continue;
    const ProfileGraph graph(area, item, section_values.section_depth_max);
    graph.drawFrame(surface, g == 1 ? DepthLabels::Printed : DepthLabels::LeftOut, valueLabels);
    surface.ForeColor = platform::basicPalette(kFirstColour);
    graph.drawProfile(surface, CollectProfile(section.point_column(g)));
  }
}

void DrawSteps(Pictures& pictures) {
  PictureBox& surface = pictures.picSection;
  surface.DrawWidth = 1;
  surface.Font.Bold = true;
  if (settings.ShowTitles != 0) DrawTitles(pictures.picDateTime, surface);
  const bool shared = settings.ProfileStyle == kSingleGraph;
  // Labels on the left in every layout, so that the graphs of a row are equally wide.
  const GraphLayout layout = LayoutGraphs(surface, 1, shared ? 1 : section.npts, LabelSide::Left);
  (shared ? drawShared : drawSeparate)(surface, layout, DrawItems(Item_shown));
}

}  // namespace

void DrawProfileView(Pictures& pictures) {
  if (Item_shown < 1 || section.npts < 1 || section.ncols < 1 || section_values.empty()) return;
  {
    const SurfaceState sectionState(pictures.picSection);
    trapped(kTag, [&] {
      // Both, whatever is drawn on them: nothing old may come through the transfers.
      pictures.picSection.Cls();
      pictures.picDateTime.Cls();
      DrawSteps(pictures);
    });
  }
  trapped(kTag, [&] { CombinePictures(pictures, {&pictures.picDateTime}); });
}

}  // namespace KelvaneMain
