#include <algorithm>
#include <cmath>
#include <functional>

#include "diagnosis/checkList.h"
#include "fit/units.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using ocxStrings::hasPrefix;

bool isPressure(const std::string& units) {
  const std::string plain = ocxStrings::upper(units);
  return plain == "PA" || plain == "HPA" || plain == "MB" || plain.starts_with("MILLIB") ||
         plain.starts_with("PASCAL") || plain.starts_with("MBAR");
}

bool isMetres(const std::string& units) {
  const std::string plain = ocxStrings::upper(units);
  return plain == "M" || plain.starts_with("METER") || plain.starts_with("METRE");
}

void warnOfOrder(const std::string& name, const std::vector<double>& levels,
                 std::vector<Warning>& warnings) {
  if (!std::ranges::all_of(levels, [](double level) { return std::isfinite(level); })) {
    warn(warnings, "levels-unknown", name,
         "some of its values are no numbers: nothing is drawn there");
    return;
  }
  const std::string ends =
      util::generalText(levels.front()) + " to " + util::generalText(levels.back());
  if (levels.size() > 1 && std::ranges::is_sorted(levels, std::greater_equal<>())) {
    warn(warnings, "levels-upward", name,
         "its values fall, " + ends +
             ": the last is taken for the deepest, and the others lie outside the picture",
         Cure::Copy);
  } else if (!std::ranges::is_sorted(levels)) {
    warn(warnings, "levels-unsorted", name,
         "its values do not rise from level to level (" + ends + "): blocks overlap");
  }
  if (*std::ranges::min_element(levels) < 0) {
    warn(warnings, "negative-levels", name,
         "it has values below 0 (" + ends + "), where depths are positive and grow downwards",
         Cure::Copy);
  }
}

}  // namespace

void warnOfLevels(const Header& header, const Recognition& found, std::vector<Warning>& warnings) {
  if (found.vertical.variable < 0) return;
  const Variable& level = variableOf(header, found.vertical);
  const std::vector<double>& levels = found.vertical.values;
  if (!levels.empty()) warnOfOrder(level.name, levels, warnings);
  if (found.vertical.dimension == found.time.dimension) {
    warn(warnings, "levels-on-time", level.name,
         "it lies on the time axis: a section has steps for levels, and is read at the first only");
  }
  if (levels.size() == 1) {
    warn(warnings, "one-level", level.name, "it has one level: a section is a single row");
  }
  const std::string units = ocxStrings::trim(keywordText(level, "UNIT"));
  if (hasPrefix(level.name, "SIGMA")) {
    warn(warnings, "sigma-levels", level.name,
         "it holds no depths, as a rule fractions of them: the picture does not follow the sea "
         "floor, and its axis is labelled in metres all the same");
  } else if (isPressure(units)) {
    warn(warnings, "pressure-levels", level.name,
         "it holds pressures: the axis is labelled in metres all the same");
  } else if (!units.empty() && !isMetres(units)) {
    warn(warnings, "level-units", level.name,
         "its units are " + quoted(units) + ": the axis is labelled in metres all the same",
         fit::conversion(units, "m") ? Cure::Copy : Cure::None);
  }
  if (hasPrefix(textOf(level.attributes, "positive"), "UP") && !isPressure(units)) {
    warn(warnings, "positive-up", level.name,
         "its values are heights (positive is up): they are drawn as depths", Cure::Copy);
  }
  for (const Variable& other : header.vars) {
    if (&other == &level || other.dims.size() != 1 || other.dims == level.dims) {
      continue;
    }
    const auto named = [&](const char* keyword) { return hasPrefix(other.name, keyword); };
    if (!named("LEVEL") && !named("SIGMA") && !named("Z") && !named("LAYER") && !named("DEPTH")) {
      continue;
    }
    warn(warnings, "other-vertical", level.name,
         "it is taken for the vertical axis and " + quoted(other.name) +
             " is not: the first in the data set counts, and variables on the other are not "
             "offered");
  }
}

}  // namespace cli::diagnosis
