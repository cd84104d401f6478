#include "render/profileGraph.h"

#include <cmath>
#include <vector>

#include "render/BoldLettering.h"
#include "render/profileTicks.h"
#include "section/sectionValues.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

using util::asDouble;
using util::storeSingle;

using platform::PictureBox;

constexpr int32_t kProfileWidth = 2;

bool isRange(double span) { return std::isfinite(span) && span != 0.0; }

void drawRectangle(PictureBox& surface, const GraphArea& area) {
  const float right = storeSingle(asDouble(area.x) + asDouble(area.width));
  const float bottom = storeSingle(asDouble(area.y) + asDouble(area.height));
  surface.Line(area.x, area.y, right, area.y, surface.ForeColor);
  surface.Line(right, area.y, right, bottom, surface.ForeColor);
  surface.Line(area.x, bottom, right, bottom, surface.ForeColor);
  surface.Line(area.x, area.y, area.x, bottom, surface.ForeColor);
}

}  // namespace

std::vector<ProfilePoint> CollectProfile(int32_t column) {
  std::vector<ProfilePoint> profile;
  const SectionGrid& grid = section_values;
  if (column < 1 || column > grid.ncols()) return profile;
  for (int32_t k = 1; k <= grid.nlevels(); ++k) {
    const float value = grid.value(column, k);
    if (isValue(value)) profile.push_back({grid.depth(k), value});
  }
  return profile;
}

ProfileGraph::ProfileGraph(const GraphArea& area, const DrawItem& item, float depthMax)
    : area_(area), item_(item), depthMax_(depthMax) {
  const double span = asDouble(item.plot_max) - asDouble(item.plot_min);
  hasValueRange_ = isRange(span);
  hasDepthRange_ = isRange(asDouble(depthMax));
  if (hasValueRange_) unitsPerValue_ = storeSingle(asDouble(area.width) / span);
  if (hasDepthRange_) unitsPerMetre_ = storeSingle(asDouble(area.height) / asDouble(depthMax));
}

void ProfileGraph::drawFrame(PictureBox& surface, DepthLabels depthLabels,
                             ValueLabels& valueLabels) const {
  drawRectangle(surface, area_);
  if (hasDepthRange_) {
    DrawDepthAxis(surface, area_.x, area_.y, unitsPerMetre_, depthMax_, 0.0F, depthLabels);
  }
  if (hasValueRange_) drawValueAxis(surface, valueLabels);
  surface.Font.Bold = false;
}

void ProfileGraph::drawValueAxis(PictureBox& surface, ValueLabels& labels) const {
  const BoldLettering bold(surface);
  const double bottom = asDouble(area_.y) + asDouble(area_.height);
  const float axisY = storeSingle(bottom);
  const float tickEnd = storeSingle(bottom + asDouble(surface.TextHeight("A")) / 2.0);
  std::vector<CentredLabel> atTicks;
  for (const ValueTick& tick : valueTicks(item_.plot_min, item_.plot_max, item_.plot_interval)) {
    const float x = xOf(tick.value);
    surface.Line(x, axisY, x, tickEnd, surface.ForeColor);
    atTicks.push_back({x, tick.label});
  }
  labels.print(surface, tickEnd, atTicks);
}

void ProfileGraph::drawProfile(PictureBox& surface,
                               const std::vector<ProfilePoint>& profile) const {
  if (!hasValueRange_ || !hasDepthRange_) return;
  const int32_t widthBefore = surface.DrawWidth;
  surface.DrawWidth = kProfileWidth;
  for (std::size_t i = 1; i < profile.size(); ++i) {
    const ProfilePoint& from = profile[i - 1];
    const ProfilePoint& to = profile[i];
    surface.Line(xOf(from.value), yOf(from.depth), xOf(to.value), yOf(to.depth),
                 surface.ForeColor);
  }
  surface.DrawWidth = widthBefore;
}

float ProfileGraph::xOf(float value) const {
  return storeSingle((asDouble(value) - asDouble(item_.plot_min)) * asDouble(unitsPerValue_) +
                     asDouble(area_.x));
}

float ProfileGraph::yOf(double depth) const {
  return storeSingle(depth * asDouble(unitsPerMetre_) + asDouble(area_.y));
}

}  // namespace KelvaneMain
