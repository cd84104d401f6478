#include "render/axes.h"

#include <string>

#include "render/BoldLettering.h"
#include "render/degreeTicks.h"
#include "render/plotFrame.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;

using platform::PictureBox;
using util::storeSingle;

// Calls draw(value, first) for 0, step, 2 step, .. up to and with range. The value is
// accumulated in single precision; more ticks than a 16-bit counter holds are an overflow.
template <class Draw>
void forEachTick(float range, float step, Draw draw) {
  if (!(step > 0.0F) || !(range > 0.0F)) return;
  int16_t counter = 0;
  for (float value = 0.0F; value <= range; value = storeSingle(asDouble(value) + asDouble(step))) {
    counter = util::addInteger(counter, 1);
    draw(value, counter == 1);
  }
}

// A tick below the bottom edge with its label centred under it.
void drawBottomTick(PictureBox& surface, double x, float bottomY, float tickEnd,
                    const std::string& label) {
  const float tickX = storeSingle(x);
  surface.Line(tickX, bottomY, tickX, tickEnd, surface.ForeColor);
  surface.PrintAt(asDouble(tickX) - asDouble(surface.TextWidth(label)) / 2.0, asDouble(tickEnd),
                  label);
}

}  // namespace

void DrawDistanceAxis(PictureBox& surface, float axisLeftX, float axisBottomY, float unitsPerWorld,
                      float axisLength, float axisStart) {
  const BoldLettering bold(surface);
  const double textHeight = asDouble(surface.TextHeight("A"));
  const float tickEnd = storeSingle(asDouble(axisBottomY) + textHeight / 2.0);
  const double left = asDouble(axisLeftX);
  const int32_t type = sectionType();
  if (type == 0) {
    forEachTick(axisLength, DistanceStep(axisLength), [&](float value, bool first) {
      const double x = (asDouble(value) - asDouble(axisStart)) * asDouble(unitsPerWorld) + left;
      drawBottomTick(surface, x, axisBottomY, tickEnd,
                     util::generalText(value) + (first ? " km" : ""));
    });
    return;
  }
  const DegreeAxis axis = degreeAxis(type);
  const double axisWidth = asDouble(unitsPerWorld) * asDouble(axisLength);
  const double slots = axisWidth / asDouble(surface.TextWidth(" 100.25E "));
  for (const DegreeTick& tick : degreeTicks(axis, slots)) {
    drawBottomTick(surface, left + tick.fraction * axisWidth, axisBottomY, tickEnd,
                   degreeText(axis, tick.value));
  }
  const std::string title = degreeAxisTitle(axis);
  surface.PrintAt(left + axisWidth / 2.0 - asDouble(surface.TextWidth(title)) / 2.0,
                  asDouble(tickEnd) + 1.5 * textHeight, title);
}

void DrawDepthAxis(PictureBox& surface, float axisX, float axisTopY, float unitsPerMetre,
                   float maxDepth, float depthStart, DepthLabels labels) {
  const BoldLettering bold(surface);
  const bool leftHalf = asDouble(surface.ScaleWidth()) / 2.0 > asDouble(axisX);
  const double outwards = leftHalf ? -1.0 : 1.0;
  const double textHeight = asDouble(surface.TextHeight("A"));
  const float tickEnd =
      storeSingle(asDouble(axisX) + outwards * asDouble(surface.TextWidth("0")) / 2.0);
  forEachTick(maxDepth, DepthStep(maxDepth), [&](float value, bool first) {
    const float y = storeSingle((asDouble(value) - asDouble(depthStart)) * asDouble(unitsPerMetre) +
                                asDouble(axisTopY));
    surface.Line(axisX, y, tickEnd, y, surface.ForeColor);
    if (labels == DepthLabels::LeftOut) return;
    const std::string label = util::generalText(value) + (first ? " m" : "");
    surface.PrintAt(asDouble(tickEnd) + outwards * asDouble(surface.TextWidth(label)),
                    asDouble(y) - textHeight / 2.0, label);
  });
}

}  // namespace KelvaneMain
