#include "render/degreeTicks.h"

#include <algorithm>
#include <cmath>

#include "netcdf/ncf.h"
#include "render/plotFrame.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "util/numberText.h"
#include "util/rounding.h"

namespace KelvaneMain {
namespace {

// How far from an edge, in axis lengths, a tick still stands on it.
constexpr double kEdgeTolerance = 1e-6;

// The coordinate at the axis ends.
struct Edges {
  double left = 0, right = 0;
};

// Cell edges count from the first coordinate in mean spacings, as the path itself does; the axis
// is as wide as the held blocks above it.
Edges axisEdges(DegreeAxis axis) {
  const ocxNetNc::Ncf& ncf = ocxNetNc::ncf;
  const bool latitude = axis == DegreeAxis::Latitude;
  const Cell& first = section.column_cells(1);
  const int32_t index = latitude ? first.j : first.i;
  const double origin = static_cast<double>(latitude ? ncf.lat_values(1) : ncf.lon_values(1));
  const double spacing = static_cast<double>(latitude ? ncf.dlat : ncf.dlon);
  const double left = origin + (index - 1.0) * spacing;
  return {left, left + section_values.ncols() * spacing};
}

// The multiples of a step between the edges, counted as multipliers; none when last < first.
struct Multiples {
  double first = 0, last = -1;
  double count() const { return last - first + 1.0; }
};

// The quotients are taken as singles, like the coordinates behind them, so that a tick that
// belongs on an edge is not lost to the representation of the step.
Multiples multiplesBetween(const Edges& edges, double step) {
  const double low = std::min(edges.left, edges.right);
  const double high = std::max(edges.left, edges.right);
  return {std::ceil(static_cast<double>(util::storeSingle(low / step))),
          std::floor(static_cast<double>(util::storeSingle(high / step)))};
}

}  // namespace

DegreeAxis degreeAxis(int32_t sectionType) {
  return sectionType == 1 ? DegreeAxis::Latitude : DegreeAxis::Longitude;
}

std::vector<DegreeTick> degreeTicks(DegreeAxis axis, double slots) {
  if (!(slots >= 1.0)) return {};
  const Edges edges = axisEdges(axis);
  const double span = edges.right - edges.left;
  if (!(span != 0.0) || !std::isfinite(span)) return {};
  double step = static_cast<double>(DistanceStep(util::storeSingle(span)));
  if (!(step > 0.0)) return {};
  Multiples multiples = multiplesBetween(edges, step);
  while (multiples.count() > std::floor(slots)) {
    step *= 2.0;
    multiples = multiplesBetween(edges, step);
  }
  std::vector<DegreeTick> ticks;
  for (double m = multiples.first; m <= multiples.last; m += 1.0) {
    // On a very fine grid the rounded quotients reach beyond the edges.
    const double fraction = (m * step - edges.left) / span;
    if (fraction < -kEdgeTolerance || fraction > 1.0 + kEdgeTolerance) continue;
    ticks.push_back({util::storeSingle(m * step), fraction});
  }
  return ticks;
}

std::string degreeText(DegreeAxis axis, float degrees) {
  const float magnitude = std::fabs(degrees);
  const double fractional =
      static_cast<double>(magnitude) - std::floor(static_cast<double>(magnitude));
  const std::string number = util::patternText(magnitude, fractional >= 0.0001 ? "#0.00" : "#0");
  if (axis == DegreeAxis::Latitude) return number + (degrees < 0.0F ? "S" : "N");
  return number + (degrees < 0.0F ? "W" : "E");
}

std::string degreeAxisTitle(DegreeAxis axis) {
  const Cell& first = section.column_cells(1);
  if (axis == DegreeAxis::Latitude) {
    return "Latitude (deg) Along Constant Longitude= " +
           degreeText(DegreeAxis::Longitude, ocxNetNc::ncf.lon_values(first.i));
  }
  return "Longitude (deg) Along Constant Latitude= " +
         degreeText(DegreeAxis::Latitude, ocxNetNc::ncf.lat_values(first.j));
}

}  // namespace KelvaneMain
