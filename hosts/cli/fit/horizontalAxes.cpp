#include <algorithm>
#include <cmath>
#include <numeric>

#include "failures.h"
#include "fit/degrees.h"
#include "fit/horizontal.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

using ocxStrings::hasPrefix;

std::string text(double number) { return util::generalText(static_cast<float>(number)); }

std::string range(const std::vector<double>& values) {
  const auto [low, high] = std::ranges::minmax(values);
  return text(low) + " to " + text(high);
}

enum class Course { Up, Down, Neither };

// Longitudes may fall once on their way, where they cross the seam of their count.
Course courseOf(const std::vector<double>& values, int seams) {
  int up = 0, down = 0;
  for (std::size_t at = 1; at < values.size(); ++at) {
    if (values[at] > values[at - 1]) ++up;
    if (values[at] < values[at - 1]) ++down;
  }
  const auto steps = static_cast<int>(values.size()) - 1;
  if (up + down != steps) return Course::Neither;
  if (down <= seams && up > down) return Course::Up;
  if (down == 0) return Course::Up;
  return up <= seams && down > up ? Course::Down : Course::Neither;
}

void turn(Draft& draft, HorizontalAxis& axis) {
  std::ranges::reverse(axis.values);
  std::ranges::reverse(draft.dim(axis.axis.dim).index);
}

// Keeps the places of a dimension in the order that is given.
void keep(Draft& draft, HorizontalAxis& axis, const std::vector<std::size_t>& places) {
  std::vector<std::size_t>& index = draft.dim(axis.axis.dim).index;
  std::vector<std::size_t> kept;
  std::vector<double> values;
  for (const std::size_t place : places) {
    kept.push_back(index[place]);
    values.push_back(axis.values[place]);
  }
  index = std::move(kept);
  axis.values = std::move(values);
}

void requireTwo(const HorizontalAxis& axis, const std::string& name, const std::string& what) {
  if (axis.values.size() >= 2) return;
  throw Failure(name + " has " + (axis.values.empty() ? "no " : "one ") + what +
                " only; a section needs two at least.");
}

// How far cells are from where the mean spacing has them.
void noteUneven(Draft& draft, const std::string& name, const std::vector<double>& values) {
  const double mean = (values.back() - values.front()) / static_cast<double>(values.size() - 1);
  double off = 0;
  for (std::size_t at = 0; at < values.size(); ++at) {
    const double even = values.front() + mean * static_cast<double>(at);
    off = std::max(off, std::fabs(values[at] - even) / mean);
  }
  if (off < 0.5) return;
  draft.note(name +
             " is unevenly spaced, and the control takes it as even: a path finds cells up to " +
             text(std::round(off * 10) / 10) + " away. --grid makes the spacing even.");
}

// Leaves what lies within the box. all: the range before, for who asked for too little.
void cut(Draft& draft, HorizontalAxis& axis, const std::vector<std::size_t>& places,
         const std::string& name, const std::string& what, const std::string& all) {
  const std::size_t count = axis.values.size();
  keep(draft, axis, places);
  if (axis.values.size() < 2) {
    throw Failure("The box has fewer than two of the " + what + ", which are " + all + ".");
  }
  draft.change(name,
               std::to_string(axis.values.size()) + " of " + std::to_string(count) + " " + what +
                   ", " + range(axis.values),
               "the box");
}

// The name that makes the control find the axis: a dimension of the same name, and in front of
// any other variable that could be taken for the axis.
void nameAxis(Draft& draft, const Axis& axis, const std::string& keyword, const std::string& name) {
  const std::string before = draft.var(axis.var).name;
  const bool passes = hasPrefix(before, keyword);
  const bool rivals = std::ranges::any_of(draft.plan.vars, [&](const PlanVar& other) {
    return !other.gone && &other != &draft.var(axis.var) && hasPrefix(other.name, keyword) &&
           !other.dims.empty() && draft.dim(other.dims[0]).name == other.name;
  });
  if (!passes && rivals) {
    draft.rename(axis.var, draft.freeName(name));
    draft.change(before, "renamed to " + draft.var(axis.var).name,
                 "there are other variables named like " + name);
  }
  const std::string wanted = draft.var(axis.var).name;
  PlanDim& dim = draft.dim(axis.dim);
  if (dim.name == wanted) return;
  const std::string dimBefore = dim.name;
  const bool taken = std::ranges::any_of(
      draft.plan.dims, [&](const PlanDim& other) { return !other.gone && other.name == wanted; });
  if (taken) draft.rename(axis.var, draft.freeName(name + "_axis"));
  dim.name = draft.var(axis.var).name;
  draft.change(dimBefore, "dimension renamed to " + dim.name,
               "an axis and its dimension have one name");
}

// The axis' variable with the values as they are now.
void store(Draft& draft, const HorizontalAxis& axis, bool changed) {
  PlanVar& variable = draft.var(axis.axis.var);
  const bool packed = find(variable.attributes, "scale_factor") != nullptr ||
                      find(variable.attributes, "add_offset") != nullptr;
  for (const char* each : {"scale_factor", "add_offset", "_FillValue", "missing_value"}) {
    remove(variable.attributes, each);
  }
  if (packed || variable.type != NC_FLOAT) {
    if (packed || variable.type != NC_DOUBLE) {
      draft.change(variable.name, "stored as double", "the control reads coordinates as they are");
    }
    variable.type = NC_DOUBLE;
  }
  variable.dims = {axis.axis.dim};
  variable.values = axis.values;
  if (changed) draft.leaveOutBounds(axis.axis.var);
}

void fitUnits(Draft& draft, const Axis& axis, const std::string& keyword,
              const std::string& direction) {
  PlanVar& variable = draft.var(axis.var);
  const std::string units = textOf(variable.attributes, "units");
  bool known = hasPrefix(variable.name, keyword) && hasPrefix(units, "DEGREE");
  for (const char* start : {"DEGREES_", "DEGREES ", "DEGREE_", "DEGREE "}) {
    known = known || hasPrefix(units, start + ocxStrings::upper(direction));
  }
  if (known) return;
  setText(variable.attributes, "units", "degrees_" + direction);
  draft.change(variable.name, "units \"degrees_" + direction + "\"",
               units.empty() ? "there were none" : "not known to the control: \"" + units + "\"");
}

}  // namespace

void fitLongitudes(Draft& draft, HorizontalAxis lon) {
  const std::string name = draft.var(lon.axis.var).name;
  requireTwo(lon, name, "longitude");
  const Course course = courseOf(lon.values, 1);
  if (course == Course::Neither) {
    throw Failure("The longitudes of " + name + " run neither east nor west.");
  }
  if (course == Course::Down) {
    turn(draft, lon);
    draft.change(name, "turned west to east", "the control takes ascending longitudes");
  }
  bool moved = false;
  if (const auto& box = draft.request.box) {
    const std::string all = range(lon.values);
    std::vector<std::size_t> places(lon.values.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    const std::vector<double> before = lon.values;
    for (double& value : lon.values) value = eastOf(box->west, value);
    std::ranges::stable_sort(places, {}, [&](std::size_t at) { return lon.values[at]; });
    std::erase_if(places, [&](std::size_t at) { return lon.values[at] > box->east + 1e-5; });
    const auto [same, end] = std::ranges::unique(places, [&](std::size_t one, std::size_t other) {
      return std::fabs(lon.values[one] - lon.values[other]) < 1e-5;
    });
    places.erase(same, end);
    for (const std::size_t at : places) moved = moved || lon.values[at] != before[at];
    cut(draft, lon, places, name, "longitudes", all);
  }
  nameAxis(draft, lon.axis, "LON", "lon");
  fitUnits(draft, lon.axis, "LON", "east");
  store(draft, lon, moved || isRadians(textOf(draft.var(lon.axis.var).attributes, "units")));
  double last = lon.values.front();
  for (double& value : lon.values) {
    while (value < last) value += 360.0;
    last = value;
  }
  noteUneven(draft, name, lon.values);
  if (last > 180.0) {
    draft.note("Longitudes are counted " + range(lon.values) + "; paths are given in that count.");
  }
  draft.lon = lon.axis;
}

void fitLatitudes(Draft& draft, HorizontalAxis lat) {
  const std::string name = draft.var(lat.axis.var).name;
  requireTwo(lat, name, "latitude");
  const Course course = courseOf(lat.values, 0);
  if (course == Course::Neither) {
    throw Failure("The latitudes of " + name + " run neither north nor south.");
  }
  if (course == Course::Down) {
    turn(draft, lat);
    draft.change(name, "turned south to north", "the control takes ascending latitudes");
  }
  if (const auto& box = draft.request.box) {
    const std::string all = range(lat.values);
    std::vector<std::size_t> places;
    for (std::size_t at = 0; at < lat.values.size(); ++at) {
      const bool inside =
          lat.values[at] >= box->south - 1e-5 && lat.values[at] <= box->north + 1e-5;
      if (inside) places.push_back(at);
    }
    cut(draft, lat, places, name, "latitudes", all);
  }
  nameAxis(draft, lat.axis, "LAT", "lat");
  fitUnits(draft, lat.axis, "LAT", "north");
  store(draft, lat, false);
  noteUneven(draft, name, lat.values);
  draft.lat = lat.axis;
}

}  // namespace cli::fit
