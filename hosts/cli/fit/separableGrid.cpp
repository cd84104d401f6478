#include <cmath>
#include <limits>

#include "failures.h"
#include "fit/degrees.h"
#include "fit/horizontal.h"

namespace cli::fit {
namespace {

// Points of a grid whose coordinates are held in memory: 1 GB with longitudes and latitudes.
constexpr std::size_t kMostPoints = std::size_t{1} << 26;

// Numbers of rows and columns that differ along one direction only.
struct Along {
  bool rows = false, columns = false;
};

double difference(double one, double other) {
  const double turned = std::fabs(std::fmod(one - other, 360.0));
  return std::min(turned, 360.0 - turned);
}

// Which way values are the same, but for a hundredth of a grid step.
Along alongOf(const std::vector<double>& values, std::size_t rows, std::size_t columns) {
  double rowStep = 0, columnStep = 0, acrossRows = 0, acrossColumns = 0;
  const auto at = [&](std::size_t j, std::size_t i) { return values[j * columns + i]; };
  for (std::size_t j = 0; j < rows; ++j) {
    for (std::size_t i = 0; i < columns; ++i) {
      if (!std::isfinite(at(j, i))) return {};
      acrossRows = std::max(acrossRows, difference(at(j, i), at(0, i)));
      acrossColumns = std::max(acrossColumns, difference(at(j, i), at(j, 0)));
      if (i > 0) columnStep = std::max(columnStep, difference(at(0, i), at(0, i - 1)));
    }
    if (j > 0) rowStep = std::max(rowStep, difference(at(j, 0), at(j - 1, 0)));
  }
  // Rows: the value depends on the row alone.
  return {acrossColumns <= 0.01 * rowStep, acrossRows <= 0.01 * columnStep};
}

PlanVar axisVariable(const Draft& draft, int source, const std::string& name) {
  PlanVar made;
  made.name = name;
  made.type = draft.inVar(source).type == NC_FLOAT ? NC_FLOAT : NC_DOUBLE;
  for (const char* kept : {"units", "standard_name", "long_name"}) {
    const std::string text = textOf(draft.inVar(source).attributes, kept);
    if (!text.empty()) setText(made.attributes, kept, text);
  }
  return made;
}

}  // namespace

std::vector<double> pointsOf(const Draft& draft, const Placing& placing, int variable) {
  std::vector<double> values;
  std::size_t points = 1;
  for (const int dim : placing.places) {
    const std::size_t length = draft.inDim(dim).length;
    if (length > 0 && points > kMostPoints / length) throw Failure("The grid has too many points.");
    points *= length;
  }
  if (placing.kind == GridKind::Axes) {
    const std::vector<double> axis = draft.in.whole(variable);
    const std::size_t columns = draft.inDim(placing.lon.dim).length;
    for (std::size_t at = 0; at < points && !axis.empty(); ++at) {
      values.push_back(variable == placing.lon.var ? axis[at % columns] : axis[at / columns]);
    }
  } else {
    // Of coordinates that are repeated at every step, those of the first.
    const std::size_t rank = draft.inVar(variable).dims.size();
    const std::vector<std::size_t> start(rank, 0);
    std::vector<std::size_t> count(rank - placing.places.size(), 1);
    for (const int dim : placing.places) count.push_back(draft.inDim(dim).length);
    values.resize(points);
    if (points > 0) draft.in.read(variable, start, count, values.data());
  }
  const Attributes& attributes = draft.inVar(variable).attributes;
  const double scale =
      numberOf(attributes, "scale_factor", 1) *
      (isRadians(textOf(attributes, "units")) ? 180.0 / 3.14159265358979323846 : 1.0);
  const double offset = numberOf(attributes, "add_offset", 0);
  const double fill = numberOf(attributes, "_FillValue", std::numeric_limits<double>::quiet_NaN());
  for (double& value : values) {
    const bool none = value == fill || !std::isfinite(value) || std::fabs(value * scale) > 1000.0;
    value = none ? std::numeric_limits<double>::quiet_NaN() : value * scale + offset;
  }
  return values;
}

bool makeAxes(Draft& draft, HorizontalAxis& lon, HorizontalAxis& lat) {
  const Placing& placing = draft.main;
  const std::size_t rows = draft.inDim(placing.places[0]).length;
  const std::size_t columns = draft.inDim(placing.places[1]).length;
  if (rows < 2 || columns < 2) return false;
  const std::vector<double> lons = pointsOf(draft, placing, placing.lon.var);
  const std::vector<double> lats = pointsOf(draft, placing, placing.lat.var);
  const Along lonAlong = alongOf(lons, rows, columns), latAlong = alongOf(lats, rows, columns);
  const bool usual = lonAlong.columns && latAlong.rows;
  if (!usual && !(lonAlong.rows && latAlong.columns)) return false;
  lon.axis.dim = placing.places[usual ? 1 : 0];
  lat.axis.dim = placing.places[usual ? 0 : 1];
  for (const std::size_t i : draft.dim(lon.axis.dim).index) {
    lon.values.push_back(lons[usual ? i : i * columns]);
  }
  for (const std::size_t j : draft.dim(lat.axis.dim).index) {
    lat.values.push_back(lats[usual ? j * columns : j]);
  }
  const std::string lonName = draft.inVar(placing.lon.var).name;
  const std::string latName = draft.inVar(placing.lat.var).name;
  lon.axis.var = draft.addVar(axisVariable(draft, placing.lon.var, draft.freeName("lon")));
  lat.axis.var = draft.addVar(axisVariable(draft, placing.lat.var, draft.freeName("lat")));
  for (const HorizontalAxis* made : {&lon, &lat}) {
    draft.var(made->axis.var).dims = {made->axis.dim};
    draft.change(draft.var(made->axis.var).name,
                 "axis made of " + (made == &lon ? lonName : latName),
                 "its two dimensions are those of a regular grid");
  }
  return true;
}

}  // namespace cli::fit
