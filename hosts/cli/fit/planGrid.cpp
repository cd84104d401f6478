#include <algorithm>
#include <cmath>

#include "failures.h"
#include "fit/degrees.h"
#include "fit/horizontal.h"
#include "util/numberText.h"

namespace cli::fit {
namespace {

// Points of a new grid; each needs up to four weights in memory.
constexpr double kMostPoints = 16777216;

struct Extent {
  Span lon;
  double south = 90, north = -90;
};

Extent dataExtent(const Draft& draft) {
  Extent extent;
  std::vector<double> lons;
  for (const Regridding& each : draft.plan.regriddings) {
    lons.insert(lons.end(), each.lons.begin(), each.lons.end());
    for (const double lat : each.lats) {
      if (!std::isfinite(lat)) continue;
      extent.south = std::min(extent.south, lat);
      extent.north = std::max(extent.north, lat);
    }
  }
  extent.lon = spanOf(lons);
  return extent;
}

std::string rangeText(double first, double last) {
  return util::generalText(static_cast<float>(first)) + " to " +
         util::generalText(static_cast<float>(last));
}

Extent extentOf(const Draft& draft) {
  const Extent data = dataExtent(draft);
  const auto& box = draft.request.box;
  if (!box) return data;
  const bool beside = !data.lon.whole && eastOf(box->west, data.lon.west) > box->east &&
                      eastOf(data.lon.west, box->west) > data.lon.east;
  if (beside || box->north < data.south || box->south > data.north) {
    throw Failure("The box lies outside of the data, which have longitudes " +
                  rangeText(data.lon.west, data.lon.east) + " and latitudes " +
                  rangeText(data.south, data.north) + ".");
  }
  const bool whole = box->east - box->west >= 360.0;
  return {{box->west, box->east, whole}, box->south, box->north};
}

// first, first + step, ... up to last; without a box the nodes are multiples of the step.
std::vector<double> nodes(double first, double last, double step, bool multiples, bool around) {
  constexpr double kHair = 1e-9;
  if (multiples) first = std::ceil(first / step - kHair) * step;
  double count = std::floor((last - first) / step + kHair) + 1;
  // The last one would be the first again.
  if (around && first + (count - 1) * step > first + 360.0 - step / 2) --count;
  if (!(count >= 2))
    throw Failure("The grid has fewer than two rows or columns; take smaller steps.");
  if (count > kMostPoints) throw Failure("The grid has too many points; take larger steps.");
  std::vector<double> values;
  for (double at = 0; at < count; ++at) {
    values.push_back(std::round((first + at * step) * 1e9) / 1e9);
  }
  return values;
}

// The regridding of a variable, a new one if there is none of its grid. -1 for those that lie on
// no grid, or on one that nothing drawn lies on.
int regriddingOf(Draft& draft, std::vector<Placing>& known, int number) {
  const Placing& placing = draft.placing(number);
  if (placing.kind == GridKind::None) return -1;
  for (std::size_t at = 0; at < known.size(); ++at) {
    if (known[at].sameGrid(placing)) return static_cast<int>(at);
  }
  if (!draft.var(number).drawn) return -1;
  Regridding made;
  made.dims = placing.places;
  made.lons = pointsOf(draft, placing, placing.lon.var);
  made.lats = pointsOf(draft, placing, placing.lat.var);
  draft.plan.regriddings.push_back(std::move(made));
  known.push_back(placing);
  return static_cast<int>(known.size()) - 1;
}

int addAxis(Draft& draft, const std::string& name, const std::string& direction,
            const std::vector<double>& values) {
  const int dim = draft.addDim(name, values.size());
  PlanVar axis;
  axis.name = name;
  axis.type = NC_DOUBLE;
  axis.dims = {dim};
  axis.values = values;
  setText(axis.attributes, "units", "degrees_" + direction);
  setText(axis.attributes, "standard_name", name == "lon" ? "longitude" : "latitude");
  setText(axis.attributes, "long_name", name == "lon" ? "longitude" : "latitude");
  return draft.addVar(std::move(axis));
}

std::string sizeText(const std::vector<double>& values) {
  return std::to_string(values.size()) + " (" + rangeText(values.front(), values.back()) + ")";
}

bool lies(const PlanVar& variable, const std::vector<int>& dims) {
  return std::ranges::any_of(
      dims, [&](int dim) { return std::ranges::find(variable.dims, dim) != variable.dims.end(); });
}

std::string boundsOf(const Draft& draft, int number) {
  return textOf(draft.inVar(number).attributes, "bounds");
}

void assign(Draft& draft) {
  std::vector<Placing> known;
  const auto inputs = static_cast<int>(draft.placings.size());
  for (const bool drawn : {true, false}) {
    for (int number = 0; number < inputs; ++number) {
      PlanVar& variable = draft.var(number);
      if (variable.gone || variable.type == NC_CHAR || variable.drawn != drawn) continue;
      variable.grid = regriddingOf(draft, known, number);
    }
  }
  // Coordinates, and what has only a part of the grid's dimensions, go with the old grid.
  std::string names;
  for (int number = 0; number < inputs; ++number) {
    PlanVar& variable = draft.var(number);
    if (variable.gone) continue;
    const bool position = std::ranges::any_of(known, [&](const Placing& each) {
      return each.lon.var == number || each.lat.var == number ||
             variable.name == boundsOf(draft, each.lon.var) ||
             variable.name == boundsOf(draft, each.lat.var);
    });
    const bool onOld = std::ranges::any_of(
        known, [&](const Placing& each) { return lies(variable, each.places); });
    if (!position && (!onOld || variable.grid >= 0)) continue;
    names += (names.empty() ? "" : ", ") + variable.name;
    draft.leaveOut(number);
  }
  if (!names.empty()) draft.change(names, "left out", "they belong to the old grid");
}

}  // namespace

void planGrid(Draft& draft) {
  if (draft.request.method == Method::Bilinear && draft.main.kind == GridKind::Cells) {
    throw Failure("Cells have no rows and columns to interpolate between; take --method nearest.");
  }
  assign(draft);
  Plan& plan = draft.plan;
  const Extent extent = extentOf(draft);
  const bool multiples = !draft.request.box;
  const Spacing step = *draft.request.grid;
  plan.gridLons = nodes(extent.lon.west, extent.lon.east, step.lon, multiples, extent.lon.whole);
  plan.gridLats = nodes(extent.south, extent.north, step.lat, multiples, false);
  if (static_cast<double>(plan.gridLons.size()) * static_cast<double>(plan.gridLats.size()) >
      kMostPoints) {
    throw Failure("The grid has too many points; take larger steps.");
  }
  std::vector<int> replaced;
  for (const Regridding& each : plan.regriddings) {
    replaced.insert(replaced.end(), each.dims.begin(), each.dims.end());
  }
  for (const int dim : replaced) draft.dim(dim).gone = true;
  draft.lat.var = addAxis(draft, draft.freeName("lat"), "north", plan.gridLats);
  draft.lat.dim = draft.var(draft.lat.var).dims[0];
  draft.lon.var = addAxis(draft, draft.freeName("lon"), "east", plan.gridLons);
  draft.lon.dim = draft.var(draft.lon.var).dims[0];
  const std::string method =
      draft.request.method == Method::Bilinear ? "bilinear" : "the nearest point";
  for (PlanVar& variable : plan.vars) {
    if (variable.gone || variable.grid < 0) continue;
    const std::vector<int>& old = plan.regriddings[static_cast<std::size_t>(variable.grid)].dims;
    std::erase_if(variable.dims, [&](int dim) { return std::ranges::find(old, dim) != old.end(); });
    variable.dims.push_back(draft.lat.dim);
    variable.dims.push_back(draft.lon.dim);
    for (const char* each : {"coordinates", "grid_mapping", "cell_measures"}) {
      remove(variable.attributes, each);
    }
    draft.change(variable.name,
                 "put on a grid of latitudes " + sizeText(plan.gridLats) + " and longitudes " +
                     sizeText(plan.gridLons) + ", " + method,
                 "as asked for");
  }
}

std::string suitableSpacing(const std::vector<double>& lons, const std::vector<double>& lats) {
  const Span span = spanOf(lons);
  double south = 90, north = -90, points = 0;
  for (const double lat : lats) {
    if (!std::isfinite(lat)) continue;
    south = std::min(south, lat);
    north = std::max(north, lat);
    ++points;
  }
  double step = 1;
  if (points > 1 && north > south && span.east > span.west) {
    step = std::sqrt((span.east - span.west) * (north - south) / points);
  }
  const double power = std::pow(10.0, std::floor(std::log10(std::min(step, 10.0))));
  double nice = power;
  for (const double each : {2.0, 2.5, 5.0}) {
    if (power * each <= step * 1.0001) nice = power * each;
  }
  const std::string text = util::generalText(static_cast<float>(nice));
  return text + "," + text;
}

}  // namespace cli::fit
