#include <algorithm>

#include "failures.h"
#include "fit/rules.h"
#include "fit/timeUnits.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

// A variable without dimensions, or of one value, that is the time of the whole data set.
int singleTime(const Draft& draft) {
  for (std::size_t at = 0; at < draft.placings.size(); ++at) {
    const auto number = static_cast<int>(at);
    const Variable& variable = draft.inVar(number);
    if (draft.plan.vars[at].gone || !isTime(variable) || draft.in.size(number) != 1) continue;
    if (variable.dims.size() <= 1) return number;
  }
  return -1;
}

// Texts like "2000-01-24_12:00:00" on the time dimension.
int timeTexts(const Draft& draft, int dim) {
  for (std::size_t at = 0; at < draft.placings.size(); ++at) {
    const Variable& variable = draft.inVar(static_cast<int>(at));
    if (variable.type == NC_CHAR && variable.dims.size() == 2 && variable.dims[0] == dim) {
      return static_cast<int>(at);
    }
  }
  return -1;
}

int makeVariable(Draft& draft, int dim, std::vector<double> values, const std::string& units) {
  PlanVar made;
  made.name = draft.dim(dim).name;
  if (draft.plan.variable(made.name) != nullptr) made.name = draft.freeName("time");
  made.type = NC_DOUBLE;
  made.dims = {dim};
  made.values = std::move(values);
  setText(made.attributes, "units", units);
  return draft.addVar(std::move(made));
}

// The axis of a data set without a time dimension.
Axis addAxis(Draft& draft) {
  const int single = singleTime(draft);
  Axis axis;
  if (single >= 0 && draft.inVar(single).dims.size() == 1) {
    return {draft.inVar(single).dims[0], single};
  }
  if (single >= 0) {
    axis.var = single;
    const std::string name = draft.var(single).name;
    axis.dim = draft.addDim(name, 1);
    draft.var(single).dims = {axis.dim};
    draft.change(name, "made an axis of one step", "the control reads by time steps");
    return axis;
  }
  axis.dim = draft.addDim(draft.freeName("time"), 1);
  axis.var = makeVariable(draft, axis.dim, {0.0}, "days since 2000-01-01");
  draft.change(draft.var(axis.var).name, "added, with one step of no true date",
               "the control reads by time steps");
  return axis;
}

int makeFromDimension(Draft& draft, int dim) {
  const int texts = timeTexts(draft, dim);
  if (texts >= 0) {
    const auto days = daysOfTexts(draft.in.texts(texts));
    if (days) {
      std::vector<double> kept;
      for (const std::size_t index : draft.dim(dim).index) kept.push_back(days->at(index));
      const int made = makeVariable(draft, dim, std::move(kept), kDayUnits);
      draft.change(draft.var(made).name, "made of the dates in " + draft.inVar(texts).name,
                   "the time dimension had no variable of numbers");
      return made;
    }
  }
  std::vector<double> numbers;
  for (const std::size_t index : draft.dim(dim).index)
    numbers.push_back(static_cast<double>(index));
  const int made = makeVariable(draft, dim, std::move(numbers), "days since 2000-01-01");
  draft.change(draft.var(made).name, "made, with the numbers of the steps as days",
               "the time dimension had no variable");
  return made;
}

void fitUnits(Draft& draft, PlanVar& variable, std::vector<double>& values) {
  const std::string units = textOf(variable.attributes, "units");
  const std::string calendar = textOf(variable.attributes, "calendar");
  const TimeUnits fitted = fitTimeUnits(units, calendar, values);
  for (const std::string& note : fitted.notes) draft.note(variable.name + ": " + note);
  if (fitted.units.empty()) return;
  values = fitted.values;
  setText(variable.attributes, "units", fitted.units);
  remove(variable.attributes, "calendar");
  setText(variable.attributes, "calendar", "proleptic_gregorian");
  draft.change(variable.name, "units \"" + fitted.units + "\" instead of \"" + units + "\"",
               fitted.reason);
}

}  // namespace

void fitTime(Draft& draft) {
  Axis axis = draft.main.time;
  if (!axis.found()) {
    axis = addAxis(draft);
  } else if (axis.var < 0) {
    axis.var = makeFromDimension(draft, axis.dim);
  }
  PlanVar& variable = draft.var(axis.var);
  variable.gone = false;
  if (!variable.values) {
    variable.values =
        axis.var < static_cast<int>(draft.placings.size()) && !draft.inVar(axis.var).dims.empty()
            ? draft.axisValues(axis)
            : draft.in.whole(axis.var);
  }
  if (variable.values->empty())
    throw Failure("There are no time steps: " + variable.name + " has none.");
  const std::vector<double> before = *variable.values;
  fitUnits(draft, variable, *variable.values);
  for (const char* each : {"scale_factor", "add_offset", "_FillValue", "missing_value"}) {
    remove(variable.attributes, each);
  }
  if (*variable.values != before) {
    variable.type = NC_DOUBLE;
    draft.leaveOutBounds(axis.var);
  }
  const bool plain = variable.type == NC_SHORT || variable.type == NC_INT ||
                     variable.type == NC_FLOAT || variable.type == NC_DOUBLE;
  if (!plain) {
    variable.type = NC_DOUBLE;
    draft.change(variable.name, "stored as double", "the control does not read the axis' own type");
  }
  if (!ocxStrings::hasPrefix(variable.name, "TIME")) {
    const std::string name = variable.name;
    draft.rename(axis.var, draft.freeName("time"));
    draft.change(name, "renamed to " + draft.var(axis.var).name,
                 "the control knows the time axis by a name that begins with time");
  }
  draft.time = axis;
}

}  // namespace cli::fit
