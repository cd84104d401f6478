#include <algorithm>

#include "failures.h"
#include "fit/rules.h"
#include "nameList.h"
#include "netcdf/ncf.h"

namespace cli::fit {
namespace {

// Leaves one index of a dimension, and takes the dimension away from all variables.
void pick(Draft& draft, int dim, std::size_t index) {
  draft.dim(dim).index = {index};
  draft.dim(dim).gone = true;
  for (PlanVar& variable : draft.plan.vars) std::erase(variable.dims, dim);
}

bool isAxis(const Draft& draft, const Placing& placing, int dim) {
  return dim == placing.level.dim || dim == draft.main.time.dim || dim == placing.time.dim ||
         std::ranges::find(placing.places, dim) != placing.places.end();
}

void pickAsked(Draft& draft, const Selected& selected) {
  const int dim = draft.in.header().dimension(selected.dimension);
  if (dim < 0) {
    std::vector<std::string> names;
    for (const Dimension& each : draft.in.header().dims) names.push_back(each.name);
    throw Failure("There is no dimension " + selected.dimension +
                  " to select from.\nDimensions: " + nameList(names));
  }
  if (isAxis(draft, draft.main, dim)) {
    throw Failure(selected.dimension +
                  " is an axis of the section; --times and --box cut time and the grid.");
  }
  const std::size_t length = draft.inDim(dim).length;
  if (selected.index > length) {
    throw Failure("There is no index " + std::to_string(selected.index) + " of " +
                  selected.dimension + ", which has " + std::to_string(length) + ".");
  }
  pick(draft, dim, selected.index - 1);
  draft.change(selected.dimension,
               "index " + std::to_string(selected.index) + " of " + std::to_string(length),
               "selected");
}

// Dimensions of a variable that are no axes.
std::vector<int> othersOf(const Draft& draft, const PlanVar& variable) {
  std::vector<int> others;
  for (const int dim : variable.dims) {
    if (!isAxis(draft, draft.placing(variable.source), dim)) others.push_back(dim);
  }
  return others;
}

// Room for a time axis that the variable may still lack.
std::size_t rankOf(const PlanVar& variable, const Placing& placing) {
  return variable.dims.size() + (variable.drawn && !placing.time.found() ? 1 : 0);
}

constexpr auto kMost = static_cast<std::size_t>(ocxNetNc::kDimensionLimit);

void dropSingles(Draft& draft, const std::vector<int>& others) {
  for (const int dim : others) {
    if (draft.dim(dim).length() != 1) continue;
    pick(draft, dim, 0);
    draft.change(draft.inDim(dim).name, "dimension dropped",
                 "of length 1; a variable has 5 dimensions at most");
  }
}

}  // namespace

void selectIndices(Draft& draft) {
  for (const Selected& selected : draft.request.selected) pickAsked(draft, selected);
  for (std::size_t at = 0; at < draft.placings.size(); ++at) {
    PlanVar& variable = draft.plan.vars[at];
    const Placing& placing = draft.placings[at];
    if (variable.gone) continue;
    if (rankOf(variable, placing) > kMost) dropSingles(draft, othersOf(draft, variable));
    if (rankOf(variable, placing) <= kMost) continue;
    const std::string what = draft.described(variable.source);
    if (!variable.drawn) {
      draft.leaveOut(variable.source);
      draft.change(variable.name, "left out", "more than 5 dimensions: " + what);
      continue;
    }
    std::string choices;
    for (const int dim : othersOf(draft, variable)) {
      choices += "\n  --select " + draft.inDim(dim).name + "=1   (1 to " +
                 std::to_string(draft.inDim(dim).length) + ")";
    }
    throw Failure(what + " has more than 5 dimensions. Pick an index of:" + choices);
  }
  for (const PlanVar& variable : draft.plan.vars) {
    if (variable.gone || !variable.drawn) continue;
    for (const int dim : othersOf(draft, variable)) {
      if (draft.dim(dim).length() < 2) continue;
      draft.note(variable.name + " is drawn for the first " + draft.inDim(dim).name + " of " +
                 std::to_string(draft.dim(dim).length()) + "; --select " + draft.inDim(dim).name +
                 "=N picks another.");
    }
  }
}

void cutSteps(Draft& draft) {
  if (!draft.request.steps) return;
  if (!draft.main.time.found()) throw Failure("There are no time steps to cut: no time axis.");
  std::vector<std::size_t>& index = draft.dim(draft.main.time.dim).index;
  const auto first = static_cast<std::size_t>(draft.request.steps->first);
  const auto last = static_cast<std::size_t>(
      draft.request.steps->last.value_or(static_cast<int32_t>(index.size())));
  if (std::max(first, last) > index.size()) {
    throw Failure("There is no time step " + std::to_string(std::max(first, last)) +
                  ": the data set has " + std::to_string(index.size()) + ".");
  }
  const std::size_t all = index.size();
  if (first == 1 && last == all) return;
  index = {index.begin() + static_cast<std::ptrdiff_t>(first) - 1,
           index.begin() + static_cast<std::ptrdiff_t>(last)};
  draft.change(draft.inDim(draft.main.time.dim).name,
               "steps " + std::to_string(first) + " to " + std::to_string(last) + " of " +
                   std::to_string(all),
               "as asked for");
}

}  // namespace cli::fit
