#include <algorithm>
#include <cmath>

#include "diagnosis/checkList.h"
#include "util/numberText.h"

namespace cli::diagnosis {
namespace {

using util::generalText;

std::string spanText(const std::vector<double>& values) {
  return generalText(static_cast<float>(values.front())) + " to " +
         generalText(static_cast<float>(values.back()));
}

Check checkDirection(const Header& header, const Recognition::Axis& axis, const char* rule,
                     const char* title, const char* wrongWay, const char* spacing) {
  if (axis.dimension < 0 || axis.values.size() < 2) return unreached(rule, title, Stage::Section);
  const std::string& name = variableOf(header, axis).name;
  const bool longitude = std::string(spacing) == "dlon";
  const double mean = spacingOf(longitude ? unwrapped(axis.values) : axis.values);
  const std::string value = spacing + (" = " + generalText(static_cast<float>(mean)));
  std::optional<Evidence> against;
  if (!(mean > 0) || !std::isfinite(mean)) {
    const std::string way = mean < 0 ? wrongWay : "does not advance";
    against = Evidence{quoted(name) + " " + way + ", " + spanText(axis.values) + ", " + value +
                           ": a section cannot be built",
                       name, generalText(static_cast<float>(mean)), "values of the variable"};
  }
  return checked(rule, title, Stage::Section, against,
                 {quoted(name) + ", " + spanText(axis.values) + ", " + value, name,
                  generalText(static_cast<float>(mean)), "values of the variable"});
}

Check checkTime(const Header& header, const Recognition& found) {
  constexpr const char* title = "A time axis is found: one dimension, named time (or begins so)";
  if (found.time.variable >= 0) {
    const Variable& variable = variableOf(header, found.time);
    const std::size_t steps = dimensionOf(header, found.time.dimension).length;
    std::optional<Evidence> against;
    if (steps < 1) {
      against =
          Evidence{quoted(variable.name) + " has no step yet", variable.name, "0", "dimension"};
    }
    return checked(
        "time", title, Stage::Values, against,
        {quoted(variable.name) + shapeOf(header, variable) + ", " + counted(steps, "step"),
         variable.name, std::to_string(steps), "variable"});
  }
  for (const Variable& variable : header.vars) {
    const bool standard = textOf(variable.attributes, "standard_name") == "time";
    if (!standard && textOf(variable.attributes, "axis") != "T") continue;
    const bool oneDimension = variable.dims.size() == 1;
    return checked(
        "time", title, Stage::Values,
        Evidence{quoted(variable.name) +
                     (oneDimension ? " is the time axis by its attributes, but not by its name"
                                   : " lies on " + shapeOf(header, variable) +
                                         ", where one dimension is wanted"),
                 variable.name, "", "variable"},
        {});
  }
  return checked(
      "time", title, Stage::Values,
      Evidence{"no time axis: no variable of one dimension has such a name, and values are "
               "read by time step only",
               "", "", "variable"},
      {});
}

Check checkLevels(const Header& header, const Recognition& found) {
  constexpr const char* title = "There is a level";
  if (found.vertical.variable < 0) return unreached("levels", title, Stage::Values);
  const std::size_t levels = dimensionOf(header, found.vertical.dimension).length;
  const std::string& name = variableOf(header, found.vertical).name;
  std::optional<Evidence> against;
  if (levels < 1) against = Evidence{quoted(name) + " has none", name, "0", "dimension"};
  return checked("levels", title, Stage::Values, against,
                 {counted(levels, "level"), name, std::to_string(levels), "dimension"});
}

Check checkReadable(const Recognition& found, const std::vector<VariableFinding>& variables) {
  constexpr const char* rule = "readable-item";
  constexpr const char* title =
      "An item has time and level, and latitude and longitude as its last two dimensions";
  if (found.items.empty()) return unreached(rule, title, Stage::Values);
  std::vector<std::string> readable;
  for (const VariableFinding& variable : variables) {
    if (variable.suited) readable.push_back(quoted(variable.name));
  }
  const VariableFinding& first = variables[static_cast<std::size_t>(found.items.front())];
  std::optional<Evidence> against;
  if (readable.empty()) {
    against = Evidence{quoted(first.name) + andMore(found.items.size() - 1) + ": " + first.reason,
                       first.name, "", "variable"};
  }
  return checked(rule, title, Stage::Values, against,
                 {readable.empty() ? "" : readable.front() + andMore(readable.size() - 1), "",
                  std::to_string(readable.size()), "variable"});
}

// The plot is as high as the last level is deep.
Check checkDeepest(const Header& header, const Recognition& found) {
  constexpr const char* rule = "deepest-level";
  constexpr const char* title = "The last level, taken for the deepest, is not at 0";
  const std::vector<double>& levels = found.vertical.values;
  if (found.vertical.variable < 0 || levels.empty()) {
    return unreached(rule, title, Stage::Drawing);
  }
  constexpr double leastHeight = 1e-10;
  const std::string& name = variableOf(header, found.vertical).name;
  const std::string last = generalText(levels.back());
  std::optional<Evidence> against;
  if (std::fabs(levels.back()) < leastHeight) {
    against = Evidence{quoted(name) + " ends at " + last + ": the picture has no height", name,
                       last, "last value of the variable"};
  }
  return checked(rule, title, Stage::Drawing, against,
                 {quoted(name) + " ends at " + last, name, last, "last value of the variable"});
}

}  // namespace

void checkSections(const Header& header, const Recognition& found,
                   const std::vector<VariableFinding>& variables, std::vector<Check>& checks) {
  checks.push_back(checkDirection(header, found.longitude, "longitude-direction",
                                  "Longitudes run from west to east", "runs east to west", "dlon"));
  checks.push_back(checkDirection(header, found.latitude, "latitude-direction",
                                  "Latitudes run from south to north", "runs north to south",
                                  "dlat"));
  checks.push_back(checkTime(header, found));
  checks.push_back(checkLevels(header, found));
  checks.push_back(checkReadable(found, variables));
  checks.push_back(checkDeepest(header, found));
}

}  // namespace cli::diagnosis
