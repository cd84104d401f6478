#include "colorkey/legend.h"

#include <algorithm>
#include <cmath>

#include "colorkey/colorKey.h"
#include "colorkey/rampColour.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace ModColor {
namespace {

using platform::PictureBox;

constexpr int32_t kShades = 50;
constexpr int32_t kShadesPerLabel = 5;

// What a legend changes on its surface, put back however the drawing ends.
class LegendState {
 public:
  explicit LegendState(PictureBox& surface)
      : surface_(surface),
        foreColor_(surface.ForeColor),
        fillStyle_(surface.FillStyle),
        fontSize_(surface.Font.Size) {
    surface_.ForeColor = platform::basicPalette(0);
    surface_.FillStyle = platform::FillStyle::Solid;
  }
  ~LegendState() {
    surface_.ForeColor = foreColor_;
    surface_.FillStyle = fillStyle_;
    surface_.Font.Size = fontSize_;
  }
  LegendState(const LegendState&) = delete;
  LegendState& operator=(const LegendState&) = delete;

 private:
  PictureBox& surface_;
  platform::Colour foreColor_;
  platform::FillStyle fillStyle_;
  float fontSize_;
};

void drawBox(PictureBox& surface, double x1, double y1, double x2, double y2,
             platform::Colour colour) {
  surface.Box(util::storeSingle(x1), util::storeSingle(y1), util::storeSingle(x2),
              util::storeSingle(y2), colour);
}

}  // namespace

std::string keyBoundText(float bound) {
  const double value = static_cast<double>(bound);
  const bool fractional = value - std::floor(value) >= 0.001;
  return util::patternText(bound, fractional ? "#0.0" : "#0");
}

void DrawKeyLegend(PictureBox& surface, float x, float y, float width, float height) {
  const LegendState state(surface);
  const int32_t n = ColorKey.nDivision;
  const double left = static_cast<double>(x);
  const double boxWidth = static_cast<double>(width) / 4.0;
  const double cellHeight = static_cast<double>(height) / (n + 4.0);
  const double boxHeight = std::min(cellHeight, static_cast<double>(surface.TextHeight("A")));
  const double gap = boxHeight / 4.0;
  for (int32_t i = n; i >= 1; --i) {
    const double top = static_cast<double>(y) + (n - i) * (boxHeight + gap);
    drawBox(surface, left, top, left + boxWidth, top + boxHeight, ColorKey.color(i));
    surface.PrintAt(left + boxWidth + boxWidth / 2.0, top + gap / 2.0,
                    keyBoundText(ColorKey.low(i)) + " - " + keyBoundText(ColorKey.high(i)));
  }
}

void DrawRampLegend(PictureBox& surface, float x, float y, float width, float height) {
  const LegendState state(surface);
  const double barWidth = static_cast<double>(width) / 4.0;
  const double shadeHeight = static_cast<double>(height) / (kShades + 4.0);
  const float shadeStep = util::storeSingle(1.0 / kShades);
  const double left = static_cast<double>(x) + barWidth / 2.0;
  const double right = left + barWidth;
  for (int32_t i = 1; i <= kShades; ++i) {
    const double top = shadeHeight * (kShades + 1 - i) + static_cast<double>(y);
    const float t = util::storeSingle(static_cast<double>(shadeStep) * i);
    drawBox(surface, left, top, right, top + shadeHeight, RampColour(t));
    if (i % kShadesPerLabel != 0) continue;
    const double value =
        static_cast<double>(ValueSpan) * static_cast<double>(t) + static_cast<double>(ValueMin);
    surface.PrintAt(right + barWidth / 2.0, top - shadeHeight / 2.0,
                    util::patternText(value, "#0.00"));
  }
}

}  // namespace ModColor
