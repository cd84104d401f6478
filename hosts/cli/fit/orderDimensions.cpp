#include <algorithm>

#include "fit/rules.h"

namespace cli::fit {
namespace {

bool endsIn(const PlanVar& variable, int before, int last) {
  const std::size_t rank = variable.dims.size();
  return rank >= 2 && variable.dims[rank - 2] == before && variable.dims[rank - 1] == last;
}

std::string dimensionsText(const Draft& draft, const PlanVar& variable) {
  std::string text;
  for (const int each : variable.dims) text += (text.empty() ? "" : ", ") + draft.dim(each).name;
  return text;
}

}  // namespace

void orderDimensions(Draft& draft) {
  for (PlanVar& variable : draft.plan.vars) {
    if (variable.gone || !variable.drawn) continue;
    if (std::ranges::find(variable.dims, draft.time.dim) != variable.dims.end()) continue;
    variable.putFirst(draft.time.dim);
    const std::size_t steps = draft.dim(draft.time.dim).length();
    draft.change(variable.name,
                 steps > 1 ? "repeated at all " + std::to_string(steps) + " time steps"
                           : "given the time axis",
                 "the control reads by time steps");
  }
  const auto drawn = [](const PlanVar& variable) { return !variable.gone && variable.drawn; };
  // The control takes both orders, but one for all variables of a data set.
  const bool allTurned = std::ranges::all_of(draft.plan.vars, [&](const PlanVar& variable) {
    return !drawn(variable) || endsIn(variable, draft.lon.dim, draft.lat.dim);
  });
  if (allTurned) return;
  for (PlanVar& variable : draft.plan.vars) {
    if (!drawn(variable) || endsIn(variable, draft.lat.dim, draft.lon.dim)) continue;
    std::erase_if(variable.dims,
                  [&](int dim) { return dim == draft.lat.dim || dim == draft.lon.dim; });
    variable.dims.push_back(draft.lat.dim);
    variable.dims.push_back(draft.lon.dim);
    draft.change(variable.name, "dimensions reordered to " + dimensionsText(draft, variable),
                 "the control takes latitude and longitude last");
  }
}

}  // namespace cli::fit
