#include <cmath>

#include "section/drawItems.h"
#include "section/sectionValues.h"
#include "util/rounding.h"

namespace KelvaneMain {

namespace {

void giveRange(DrawItem& item) {
  const double maximum = static_cast<double>(item.maximum);
  const double minimum = static_cast<double>(item.minimum);
  item.plot_max = item.maximum;
  item.plot_min = util::storeSingle(minimum <= 1 ? minimum : std::floor(minimum));
  const double top = maximum <= 1 ? maximum : std::floor(maximum) + 1;
  item.plot_interval = util::storeSingle((top - static_cast<double>(item.plot_min)) / 5);
  if (item.plot_interval > 1) item.plot_interval = std::floor(item.plot_interval);
}

}  // namespace

void RoundPlotRange() {
  for (DrawItem& item : DrawItems) {
    // Extremes the wrong way round mean that the last read met no value: there is no range to
    // keep, and the marker values must not become one.
    if (item.maximum < item.minimum) continue;
    if (item.plot_max == item.plot_min) giveRange(item);
  }
}

}  // namespace KelvaneMain
