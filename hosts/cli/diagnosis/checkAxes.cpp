#include <netcdf.h>

#include <algorithm>
#include <cmath>

#include "diagnosis/checkList.h"
#include "diagnosis/timeUnits.h"
#include "util/calendar.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using ocxStrings::hasPrefix;
using util::generalText;

std::size_t lengthOf(const Header& header, int dimension) {
  return dimensionOf(header, dimension).length;
}
const std::string& nameOf(const Header& header, int dimension) {
  return dimensionOf(header, dimension).name;
}

std::string unitsOf(const Variable& variable) { return keywordText(variable, "UNIT"); }

// The words for one of the two horizontal axes.
struct Horizontal {
  const char *rule, *title, *keyword, *standardName, *units, *axis;
};
constexpr Horizontal kLongitude = {"longitude", "A longitude is found", "LON",
                                   "longitude", "degrees_east",         "X"};
constexpr Horizontal kLatitude = {"latitude", "A latitude is found", "LAT",
                                  "latitude", "degrees_north",       "Y"};

bool looksLike(const Variable& variable, const Horizontal& words) {
  return hasPrefix(variable.name, words.keyword) ||
         textOf(variable.attributes, "standard_name") == words.standardName ||
         textOf(variable.attributes, "axis") == words.axis;
}

Evidence whyNotFound(const Header& header, const Horizontal& words) {
  for (const Variable& variable : header.vars) {
    if (!looksLike(variable, words)) continue;
    const std::string units = unitsOf(variable);
    const std::string said =
        keyword(variable, "UNIT") == nullptr ? "has no units" : "has the units " + quoted(units);
    const bool named = hasPrefix(variable.name, words.keyword);
    return {quoted(variable.name) + " " + said + ", where " + (named ? "degrees are" : "it takes") +
                (named ? " wanted, as in " : " ") + quoted(words.units),
            variable.name, units, "attribute units of " + quoted(variable.name)};
  }
  return {std::string("no ") + words.rule + ": no variable has units like " + quoted(words.units),
          "", "", "variable"};
}

Check checkHorizontal(const Header& header, const Recognition::Axis& axis,
                      const Horizontal& words) {
  if (axis.variable < 0) {
    return checked(words.rule, words.title, Stage::Opening, whyNotFound(header, words), {});
  }
  const Variable& variable = variableOf(header, axis);
  const std::string units = unitsOf(variable);
  return checked(words.rule, words.title, Stage::Opening, std::nullopt,
                 {quoted(variable.name) + shapeOf(header, variable) + ", units " + quoted(units),
                  variable.name, units, "variable"});
}

Check checkGrid(const Header& header, const Recognition& found) {
  constexpr const char* rule = "regular-grid";
  constexpr const char* title = "Longitude and latitude are axes, each on a dimension of its name";
  if (found.longitude.variable < 0 || found.latitude.variable < 0) {
    return unreached(rule, title, Stage::Section);
  }
  const bool latitudeToo = found.longitude.dimension >= 0;
  const Variable& odd = variableOf(header, latitudeToo ? found.latitude : found.longitude);
  std::optional<Evidence> against;
  if (!found.isRegular()) {
    against = Evidence{quoted(odd.name) + " lies on " + shapeOf(header, odd) +
                           ": the grid is one of cells, where no section can be built",
                       odd.name, shapeOf(header, odd), "variable"};
  }
  return checked(rule, title, Stage::Section, against,
                 {quoted(variableOf(header, found.longitude).name) + " and " +
                      quoted(variableOf(header, found.latitude).name),
                  "", "", "variable"});
}

// Without axes of longitude and latitude the dimensions must count cells.
Check checkCells(const Header& header, const Recognition& found) {
  std::optional<Evidence> against;
  if (found.cellList < 0 && found.cellsI < 0) {
    against =
        Evidence{"the grid is one of cells, but no dimension's name begins with x, icel or ncell",
                 "", "", "dimension"};
  } else if (found.cellList < 0 && found.cellsJ < 0) {
    against =
        Evidence{"the grid is one of cells, but beside " + quoted(nameOf(header, found.cellsI)) +
                     " no dimension's name begins with y or jcel",
                 nameOf(header, found.cellsI), "", "dimension"};
  }
  std::string text;
  if (found.cellsI >= 0 && found.cellsJ >= 0) {
    text = quoted(nameOf(header, found.cellsI)) + " and " + quoted(nameOf(header, found.cellsJ));
  } else if (found.cellList >= 0) {
    text = quoted(nameOf(header, found.cellList));
  }
  return checked("cell-axes", "A grid of cells has dimensions named for it", Stage::Opening,
                 against, {text, "", "", "dimension"});
}

const char* const kVerticalTitle =
    "A vertical axis is found: one dimension, named level, sigma, z, layer or depth (or begins so)";

bool isVerticalByUse(const Variable& variable) {
  return variable.dims.size() == 1 &&
         (textOf(variable.attributes, "axis") == "Z" ||
          !textOf(variable.attributes, "positive").empty() || hasPrefix(variable.name, "LEV") ||
          hasPrefix(variable.name, "PLEV") || hasPrefix(variable.name, "PRES") ||
          hasPrefix(variable.name, "S_RHO"));
}

bool isVerticalByName(const Variable& variable) {
  const auto named = [&](const char* keyword) { return hasPrefix(variable.name, keyword); };
  return named("LEVEL") || named("SIGMA") || named("Z") || named("LAYER") || named("DEPTH");
}

Evidence whyNoVertical(const Header& header) {
  const auto& variables = header.vars;
  if (const auto use = std::ranges::find_if(variables, isVerticalByUse); use != variables.end()) {
    return {quoted(use->name) + " is a vertical axis by its attributes or use, but not by its name",
            use->name, use->name, "variable"};
  }
  if (const auto name = std::ranges::find_if(variables, isVerticalByName);
      name != variables.end()) {
    return {quoted(name->name) + " lies on " + shapeOf(header, *name) +
                ", where one dimension is wanted",
            name->name, shapeOf(header, *name), "variable"};
  }
  return {"no vertical axis: no variable of one dimension has such a name", "", "", "variable"};
}

Check checkVertical(const Header& header, const Recognition& found) {
  if (found.vertical.variable < 0) {
    return checked("vertical", kVerticalTitle, Stage::Opening, whyNoVertical(header), {});
  }
  const Variable& variable = variableOf(header, found.vertical);
  const std::size_t levels = lengthOf(header, found.vertical.dimension);
  return checked(
      "vertical", kVerticalTitle, Stage::Opening, std::nullopt,
      {quoted(variable.name) + shapeOf(header, variable) + ", " + counted(levels, "level"),
       variable.name, std::to_string(levels), "variable"});
}

Check checkItems(const Header& header, const Recognition& found) {
  constexpr const char* rule = "items";
  constexpr const char* title = "A variable has three dimensions or more, one of them the vertical";
  if (found.vertical.variable < 0) return unreached(rule, title, Stage::Opening);
  std::optional<Evidence> against;
  if (found.items.empty()) {
    against = Evidence{"none has " + quoted(nameOf(header, found.vertical.dimension)) +
                           " among three dimensions or more",
                       nameOf(header, found.vertical.dimension), "", "dimension"};
  }
  return checked(rule, title, Stage::Opening, against,
                 {counted(found.items.size(), "variable"), "", std::to_string(found.items.size()),
                  "variable"});
}

bool isAxisType(int type) { return type >= NC_SHORT && type <= NC_DOUBLE; }

// The types of the values of the time and the vertical axis; an empty axis is not read.
void checkAxisType(const Header& header, const Recognition::Axis& axis, const char* rule,
                   const char* title, std::vector<Check>& checks) {
  if (axis.variable < 0 || lengthOf(header, axis.dimension) < 1) return;
  const Variable& variable = variableOf(header, axis);
  const std::string type = typeName(variable.type);
  std::optional<Evidence> against;
  if (!isAxisType(variable.type)) {
    against =
        Evidence{quoted(variable.name) + " is of type " + type, variable.name, type, "variable"};
  }
  checks.push_back(
      checked(rule, title, Stage::Opening, against,
              {quoted(variable.name) + " is of type " + type, variable.name, type, "variable"}));
}

// The dates of the first and the last step are made at the opening.
void checkDates(const Header& header, const Recognition& found, std::vector<Check>& checks) {
  if (found.time.variable < 0 || found.time.values.empty()) return;
  const Variable& variable = variableOf(header, found.time);
  if (!isAxisType(variable.type)) return;
  const TimeUnits units = timeUnitsOf(unitsOf(variable));
  if (!units.countsDates()) return;
  std::optional<Evidence> against;
  for (const double value : {found.time.values.front(), found.time.values.back()}) {
    if (against || util::isDate(units.dateOf(value))) continue;
    against = Evidence{quoted(variable.name) + " has a step at " + generalText(value) + " " +
                           unitsOf(variable) + ", outside the years 100 to 9999",
                       variable.name, generalText(value), "value of the variable"};
  }
  checks.push_back(
      checked("time-dates", "The time steps are dates of the calendar", Stage::Opening, against,
              {util::isDate(units.dateOf(found.time.values.front()))
                   ? "the first is " + util::dateText(units.dateOf(found.time.values.front()))
                   : std::string(),
               variable.name, "", "variable"}));
}

Check checkCoordinateType(const Header& header, const Recognition& found) {
  const Variable& variable = variableOf(header, found.longitude);
  const std::string type = typeName(variable.type);
  std::optional<Evidence> against;
  const Evidence said{quoted(variable.name) + " is of type " + type, variable.name, type,
                      "variable"};
  if (variable.type != NC_FLOAT && variable.type != NC_DOUBLE) against = said;
  return checked("longitude-type", "Longitudes are floats or doubles", Stage::Opening, against,
                 said);
}

// A coordinate has as many values as its grid has places.
Check checkShapes(const Header& header, const Recognition& found) {
  double places[2] = {0, 0};
  if (found.isRegular()) {
    places[0] = static_cast<double>(lengthOf(header, found.longitude.dimension));
    places[1] = static_cast<double>(lengthOf(header, found.latitude.dimension));
  } else if (found.cellsI >= 0 && found.cellsJ >= 0) {
    places[0] = places[1] = static_cast<double>(lengthOf(header, found.cellsI)) *
                            static_cast<double>(lengthOf(header, found.cellsJ));
  } else if (found.cellList >= 0) {
    places[0] = places[1] = static_cast<double>(lengthOf(header, found.cellList));
  }
  std::optional<Evidence> against;
  int at = 0;
  for (const Recognition::Axis* axis : {&found.longitude, &found.latitude}) {
    const Variable& variable = variableOf(header, *axis);
    const double count = elementsOf(header, variable), wanted = places[at++];
    if (against || (count == wanted && wanted >= 1)) continue;
    against = Evidence{quoted(variable.name) + shapeOf(header, variable) + " has " +
                           generalText(count) + " values, the grid " + generalText(wanted),
                       variable.name, generalText(count), "variable"};
  }
  return checked("coordinate-counts", "There is a longitude and a latitude for each grid point",
                 Stage::Opening, against,
                 {generalText(places[0]) + " and " + generalText(places[1]), "", "", "variable"});
}

// The mean spacing divides by the count less one.
void checkSpacings(const Header& header, const Recognition& found, std::vector<Check>& checks) {
  if (!found.isRegular()) return;
  std::optional<Evidence> against;
  for (const Recognition::Axis* axis : {&found.longitude, &found.latitude}) {
    if (against || lengthOf(header, axis->dimension) != 1) continue;
    const std::string& name = variableOf(header, *axis).name;
    against = Evidence{quoted(name) + " has one", name, "1", "variable"};
  }
  checks.push_back(checked("two-points", "Longitude and latitude have two values or more",
                           Stage::Opening, against, {"they have", "", "", "variable"}));
}

}  // namespace

void checkAxes(const Header& header, const Recognition& found, std::vector<Check>& checks) {
  const bool placed = found.longitude.variable >= 0 && found.latitude.variable >= 0;
  checks.push_back(checkHorizontal(header, found.longitude, kLongitude));
  checks.push_back(checkHorizontal(header, found.latitude, kLatitude));
  if (placed && !found.isRegular()) checks.push_back(checkCells(header, found));
  checks.push_back(checkVertical(header, found));
  checks.push_back(checkItems(header, found));
  checkAxisType(header, found.time, "time-type", "Times are shorts, ints, floats or doubles",
                checks);
  checkDates(header, found, checks);
  checkAxisType(header, found.vertical, "vertical-type",
                "Levels are shorts, ints, floats or doubles", checks);
  if (placed) {
    checks.push_back(checkCoordinateType(header, found));
    if (found.isRegular() || found.cellList >= 0 || (found.cellsI >= 0 && found.cellsJ >= 0)) {
      checks.push_back(checkShapes(header, found));
    }
    checkSpacings(header, found, checks);
  }
  checks.push_back(checkGrid(header, found));
}

}  // namespace cli::diagnosis
