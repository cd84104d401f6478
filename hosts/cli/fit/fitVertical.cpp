#include <algorithm>
#include <cmath>

#include "failures.h"
#include "fit/rules.h"
#include "fit/units.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

using ocxStrings::hasPrefix;

bool passes(const std::string& name) {
  return std::ranges::any_of(
      std::initializer_list<const char*>{"LEVEL", "SIGMA", "Z", "LAYER", "DEPTH"},
      [&](const char* each) { return hasPrefix(name, each); });
}

std::string text(double number) { return util::generalText(number); }

// The variable of a dimension that has none: the numbers of its levels.
int makeNumbers(Draft& draft, int dim) {
  PlanVar made;
  made.name = draft.freeName("level_number");
  // The dimension's own name is free, as far as variables go.
  const std::string own = draft.dim(dim).name;
  if (draft.plan.variable(own) == nullptr) made.name = own;
  made.type = NC_DOUBLE;
  made.dims = {dim};
  setText(made.attributes, "units", "1");
  setText(made.attributes, "long_name", "number of the level");
  const std::string name = made.name;
  const int number = draft.addVar(std::move(made));
  draft.change(name, "made, with the numbers of the levels",
               "the vertical dimension had no variable");
  return number;
}

void toMetres(Draft& draft, PlanVar& variable, std::vector<double>& values) {
  const std::string units = ocxStrings::trim(textOf(variable.attributes, "units"));
  const auto found = conversion(units, "m");
  if (units.empty() || !found || (found->factor == 1.0 && found->shift == 0.0)) return;
  for (double& value : values) value = value * found->factor + found->shift;
  setText(variable.attributes, "units", "m");
  draft.change(variable.name, "metres instead of \"" + units + "\"",
               "the control labels depths in metres");
}

// Which way the values say they run: with a larger number higher up?
bool runsUp(const PlanVar& variable, Vertical kind, const std::vector<double>& values) {
  const std::string positive =
      ocxStrings::upper(ocxStrings::trim(textOf(variable.attributes, "positive")));
  const bool below = std::ranges::all_of(values, [](double each) { return each <= 0; }) &&
                     std::ranges::any_of(values, [](double each) { return each < 0; });
  // Pressure grows downward whatever the attribute says of the direction of the axis.
  if (kind == Vertical::Pressure && !below) return false;
  return below || positive == "UP" || kind == Vertical::Height;
}

// Numbers that grow downward out of such that grow upward.
void countDownward(Draft& draft, PlanVar& variable, std::vector<double>& values) {
  const auto [lowest, highest] = std::ranges::minmax(values);
  if (highest <= 0) {
    for (double& value : values) value = value == 0 ? 0 : -value;
    draft.change(variable.name, "sign changed", "the control counts depths downward");
  } else {
    for (double& value : values) value = highest - value;
    const std::string units = textOf(variable.attributes, "units");
    const std::string top = text(highest) + (units.empty() ? "" : " " + units);
    draft.change(variable.name, "counted downward from its highest level, " + top,
                 "the control counts depths downward");
    setText(variable.attributes, "long_name", "distance below " + top);
  }
  if (textOf(variable.attributes, "standard_name") != "depth") {
    remove(variable.attributes, "standard_name");
  }
  remove(variable.attributes, "formula_terms");
  setText(variable.attributes, "positive", "down");
}

void turnIfUpward(Draft& draft, Axis axis, std::vector<double>& values, const std::string& name) {
  if (values.size() < 2 || values.front() <= values.back()) return;
  std::ranges::reverse(values);
  std::ranges::reverse(draft.dim(axis.dim).index);
  draft.change(name, "levels turned", "the control takes the last level as the deepest");
}

// The control labels the axis in metres whatever it holds.
void noteNoMetres(Draft& draft, const std::string& name, Vertical kind) {
  if (kind == Vertical::Sigma) {
    draft.note("the levels of " + name +
               " are no depths in metres: the picture follows neither the sea floor nor the "
               "ground.");
  } else if (kind == Vertical::Pressure) {
    draft.note("the levels of " + name +
               " are pressures; the axis of pictures is labelled in metres all the same.");
  }
}

void nameAxis(Draft& draft, int number, Vertical kind) {
  const std::string before = draft.var(number).name;
  if (passes(before)) return;
  const std::string wanted = kind == Vertical::Depth    ? "depth"
                             : kind == Vertical::Sigma  ? "sigma"
                             : kind == Vertical::Height ? "level_height"
                                                        : "level";
  draft.rename(number, draft.freeName(wanted));
  draft.change(before, "renamed to " + draft.var(number).name,
               "the control knows vertical axes by names like level, depth, z, sigma and layer");
}

}  // namespace

void fitVertical(Draft& draft) {
  Axis axis = draft.main.level;
  Vertical kind = Vertical::Level;
  std::vector<double> values;
  const bool given = axis.var >= 0;
  if (given) {
    values = draft.axisValues(axis);
    kind = verticalOf(draft.inVar(axis.var));
  } else {
    kind = verticalOfName(draft.dim(axis.dim).name) == Vertical::Sigma ? Vertical::Sigma : kind;
    axis.var = makeNumbers(draft, axis.dim);
    // A dimension may say by its name that its first level is the lowest.
    const std::size_t all = draft.inDim(axis.dim).length;
    const bool upward = hasPrefix(draft.inDim(axis.dim).name, "BOTTOM_TOP");
    for (const std::size_t index : draft.dim(axis.dim).index) {
      values.push_back(static_cast<double>(upward ? all - index : index + 1));
    }
  }
  if (values.empty()) throw Failure(draft.dim(axis.dim).name + " has no levels.");
  PlanVar& variable = draft.var(axis.var);
  variable.gone = false;
  const std::vector<double> before = values;
  const std::string name = variable.name;
  toMetres(draft, variable, values);
  if (given && runsUp(variable, kind, values)) countDownward(draft, variable, values);
  const bool changed = values != before;
  turnIfUpward(draft, axis, values, name);
  if (!std::ranges::is_sorted(values)) {
    draft.note("The levels of " + name + " do not run one way; blocks will overlap.");
  }
  // Nothing is drawn into a picture without height.
  if (values.back() == 0) {
    throw Failure("The deepest level of " + name +
                  " is at 0: there is no depth to draw a section over.");
  }
  if (!(values.back() > 0)) {
    draft.note("The deepest level of " + name + " is at " + text(values.back()) +
               ": there is no depth to draw a section over.");
  }
  noteNoMetres(draft, name, kind);
  // The control reads neither packed numbers nor those of other types.
  for (const char* each : {"scale_factor", "add_offset", "_FillValue", "missing_value"}) {
    remove(variable.attributes, each);
  }
  if (variable.type != NC_FLOAT && variable.type != NC_DOUBLE) {
    const bool plain = variable.type == NC_SHORT || variable.type == NC_INT;
    if (!plain || changed) variable.type = NC_DOUBLE;
    if (!plain) {
      draft.change(name, "stored as double", "the control does not read the axis' own type");
    }
  }
  variable.values = values;
  if (changed) draft.leaveOutBounds(axis.var);
  nameAxis(draft, axis.var, kind);
  draft.level = axis;
}

}  // namespace cli::fit
