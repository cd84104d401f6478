#include <vector>

#include "render/SectionCells.h"
#include "render/axes.h"
#include "render/drawVSection.h"
#include "render/plotFrame.h"
#include "render/settings.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;

using platform::PictureBox;

// One world unit is one column, from 0 on.
constexpr double kColumnOrigin = 0.0;
constexpr double kColumnWidth = 1.0;

// The mapping of many edges, several at once as the processor can. It only rises or only falls, so
// that no edge is beyond the single range where the two at the ends are not.
std::vector<float> columnEdges(int32_t ncols) {
  for (const int32_t i : {0, ncols}) WorldToSurface(kColumnOrigin + i * kColumnWidth, plot.WorldY2);
  std::vector<float> edges(static_cast<std::size_t>(ncols) + 1);
  const PlotGeometry geometry = plot;
  for (int32_t i = 0; i <= ncols; ++i) {
    const double place = SurfaceX(geometry, kColumnOrigin + i * kColumnWidth);
    edges[static_cast<std::size_t>(i)] = static_cast<float>(place);
  }
  return edges;
}

// Column edges and level depths are mapped once for the whole grid, not once a cell.
void DrawCellBlocks(PictureBox& surface) {
  const SectionGrid& grid = section_values;
  const int32_t nlevels = grid.nlevels();
  const std::vector<float> edgeX = columnEdges(grid.ncols());
  std::vector<float> levelY;
  levelY.reserve(static_cast<std::size_t>(nlevels));
  for (int32_t k = 1; k <= nlevels; ++k) {
    levelY.push_back(WorldToSurface(plot.WorldX1, -grid.depth(k)).y);
  }
  surface.Cells(SectionCells(grid, edgeX, levelY));
}

void DrawAxes(PictureBox& surface) {
  const SurfacePoint topLeft = WorldToSurface(plot.WorldX1, plot.WorldY2);
  const SurfacePoint bottomRight = WorldToSurface(plot.WorldX2, plot.WorldY1);
  // A path without a column or a length (none was built, or the last one failed) has no distances
  // to show under the held blocks.
  if (settings.ShowDistanceAxis == 1 && section.ncols > 0 && section.section_length_km > 0.0) {
    const float length = util::storeSingle(section.section_length_km);
    const float unitsPerKm =
        util::storeSingle((asDouble(bottomRight.x) - asDouble(topLeft.x)) / asDouble(length));
    DrawDistanceAxis(surface, topLeft.x, bottomRight.y, unitsPerKm, length, 0.0F);
  }
  if (settings.ShowDepthAxis == 1) {
    const double deepest = section_values.depth(section_values.nlevels());
    const float unitsPerMetre =
        util::storeSingle((asDouble(bottomRight.y) - asDouble(topLeft.y)) / deepest);
    DrawDepthAxis(surface, topLeft.x, topLeft.y, unitsPerMetre, section_values.section_depth_max,
                  0.0F);
  }
}

}  // namespace

int DrawFrameAndAxes(PictureBox& surface) {
  const PlotArea area = SetMargins(surface);
  const int32_t status =
      Cartesian(area.width, area.height, util::roundToLong(asDouble(plot.LeftMargin)),
                util::roundToLong(asDouble(plot.BottomMargin)));
  if (status != 0) return status;
  DrawCellBlocks(surface);
  DrawAxes(surface);
  return 0;
}

}  // namespace KelvaneMain
