#include <algorithm>

#include "failures.h"
#include "fit/rules.h"
#include "nameList.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

bool isPlain(const Draft& draft, int number) {
  return draft.inVar(number).type != NC_CHAR && draft.inVar(number).dims.size() >= 2;
}

std::vector<int> numbersOf(const Draft& draft, const std::vector<std::string>& names) {
  std::vector<int> numbers;
  for (const std::string& name : names) {
    const int number = draft.in.header().variable(name);
    if (number < 0) {
      std::vector<std::string> all;
      for (std::size_t at = 0; at < draft.placings.size(); ++at) {
        if (isPlain(draft, static_cast<int>(at))) {
          all.push_back(draft.inVar(static_cast<int>(at)).name);
        }
      }
      throw Failure("There is no variable " + name + ".\nVariables: " + nameList(all));
    }
    numbers.push_back(number);
  }
  return numbers;
}

std::vector<int> allNumbers(const Draft& draft) {
  std::vector<int> numbers;
  for (std::size_t at = 0; at < draft.placings.size(); ++at)
    numbers.push_back(static_cast<int>(at));
  return numbers;
}

bool isComplete(const Draft& draft, int number) {
  const Placing& placing = draft.placing(number);
  return isPlain(draft, number) && placing.kind != GridKind::None && placing.level.found();
}

std::string groupList(const Draft& draft) {
  std::vector<std::string> paths;
  for (const Group& each : draft.in.header().groups) paths.push_back(each.path);
  return nameList(paths);
}

// What is not looked at could be what is wanted.
std::string leftOut(const Draft& draft) {
  const std::vector<std::string>& names = draft.in.leftOut();
  std::string text;
  if (!names.empty()) text += "\nNot read: " + nameList(names) + ".";
  if (!draft.in.header().groups.empty()) {
    text += "\nNot looked into: groups " + groupList(draft) + "; --group takes one.";
  }
  return text;
}

[[noreturn]] void refuse(const Draft& draft, const std::vector<int>& candidates) {
  const auto placed = std::ranges::find_if(candidates, [&](int number) {
    return isPlain(draft, number) && draft.placing(number).kind != GridKind::None;
  });
  if (placed != candidates.end()) {
    throw Failure("There is no section to draw: no variable" +
                  std::string(draft.request.variables.empty() ? "" : " that was asked for") +
                  " has a vertical dimension beside its longitude and latitude. The first one is " +
                  draft.described(*placed) + "." + leftOut(draft));
  }
  const auto largest = std::ranges::max_element(candidates, {}, [&](int number) {
    return isPlain(draft, number) ? draft.inVar(number).dims.size() : 0;
  });
  if (largest == candidates.end() || !isPlain(draft, *largest)) {
    throw Failure("There is nothing to draw: no variable" +
                  std::string(draft.request.variables.empty() ? "" : " that was asked for") +
                  " has two dimensions or more." + leftOut(draft));
  }
  throw Failure("No longitude and latitude were found for " + draft.described(*largest) +
                ": no variables on its dimensions have units of degrees east and degrees north." +
                leftOut(draft));
}

// Places where somebody was and looked are no grid, although they have longitudes and latitudes:
// what lies between them is not known.
void refuseObservations(const Draft& draft, int number) {
  const Placing& placing = draft.placing(number);
  if (placing.kind == GridKind::Axes) return;
  for (const int place : placing.places) {
    const Dimension& dim = draft.inDim(place);
    const std::string name = ocxStrings::upper(dim.name);
    bool observed = dim.unlimited || !textOf(draft.in.header().globals, "featureType").empty();
    for (const char* start : {"REPORT", "RECORD", "STATION", "OBS", "TRAJ", "PROFILE", "TIME"}) {
      observed = observed || name.starts_with(start);
    }
    if (!observed) continue;
    throw Failure(draft.described(number) + " lies along " + dim.name +
                  ": a list of observations, each at a place of its own, is no grid to draw "
                  "sections of.");
  }
}

// The variable whose grid is taken: the first with more than one level, or else the first.
int mainOf(const Draft& draft, const std::vector<int>& candidates) {
  int first = -1;
  for (const int number : candidates) {
    if (!isComplete(draft, number)) continue;
    if (draft.inDim(draft.placing(number).level.dim).length > 1) return number;
    if (first < 0) first = number;
  }
  if (first < 0) refuse(draft, candidates);
  return first;
}

// The time axis of the variables on the main one's levels; the first variable may have none.
Axis timeOf(const Draft& draft, const std::vector<int>& candidates) {
  for (const int number : candidates) {
    const Placing& placing = draft.placing(number);
    if (isComplete(draft, number) && placing.level == draft.main.level && placing.time.found()) {
      return placing.time;
    }
  }
  return draft.main.time;
}

bool isDrawable(const Draft& draft, int number) {
  const Placing& placing = draft.placing(number);
  if (!isComplete(draft, number) || placing.level.dim != draft.main.level.dim) return false;
  if (!placing.sameGrid(draft.main) && !draft.request.grid) return false;
  if (placing.time.dim == draft.main.time.dim) return true;
  if (placing.time.found()) return false;
  // One without time is repeated at every step, where that is asked for or costs nothing.
  return !draft.request.variables.empty() || draft.inDim(draft.main.time.dim).length == 1;
}

std::string whyNot(const Draft& draft, int number) {
  const Placing& placing = draft.placing(number);
  if (placing.kind == GridKind::None) return "it has no longitude and latitude";
  if (!placing.level.found()) return "it has no vertical dimension";
  if (placing.level.dim != draft.main.level.dim) {
    return "its levels are others (" + draft.inDim(placing.level.dim).name +
           "); fit it by itself with --vars";
  }
  if (!placing.sameGrid(draft.main)) {
    return "its grid is another; fit it by itself with --vars, or all of them with --grid";
  }
  return placing.time.found() ? "its time steps are others; fit it by itself with --vars"
                              : "it has no time; --vars with its name repeats it at every step";
}

// What the chosen variables need beside themselves: variables on their dimensions only, and those
// that they name.
bool isCompanion(const Draft& draft, int number, const std::vector<int>& chosen) {
  const Variable& candidate = draft.inVar(number);
  return std::ranges::any_of(chosen, [&](int each) {
    const Placing& placing = draft.placing(each);
    if (number == placing.lon.var || number == placing.lat.var) return true;
    const Variable& variable = draft.inVar(each);
    const bool inside = std::ranges::all_of(candidate.dims, [&](int dim) {
      return std::ranges::find(variable.dims, dim) != variable.dims.end();
    });
    if (inside && candidate.dims.size() <= 1) return true;
    for (const char* name : {"coordinates", "ancillary_variables", "grid_mapping"}) {
      const std::string words = " " + textOf(variable.attributes, name) + " ";
      if (words.find(" " + candidate.name + " ") != std::string::npos) return true;
    }
    for (std::size_t axis = 0; axis < draft.placings.size(); ++axis) {
      const Variable& other = draft.inVar(static_cast<int>(axis));
      if (other.dims.size() != 1 || textOf(other.attributes, "bounds") != candidate.name) continue;
      if (std::ranges::find(variable.dims, other.dims[0]) != variable.dims.end()) return true;
    }
    return false;
  });
}

}  // namespace

void chooseVariables(Draft& draft) {
  for (const std::string& each : draft.in.leftOut()) draft.note(each + " is left out.");
  if (!draft.request.group.empty()) {
    draft.change(draft.request.group, "taken out of its group",
                 "the control sees nothing of what lies in groups");
  }
  if (!draft.in.header().groups.empty()) {
    draft.note("what lies in groups is left out: " + groupList(draft) + "; --group takes one.");
  }
  const bool asked = !draft.request.variables.empty();
  const std::vector<int> candidates =
      asked ? numbersOf(draft, draft.request.variables) : allNumbers(draft);
  const int main = mainOf(draft, candidates);
  refuseObservations(draft, main);
  draft.main = draft.placing(main);
  draft.main.time = timeOf(draft, candidates);
  for (const int number : candidates) {
    draft.var(number).drawn = isDrawable(draft, number);
    const bool worthTelling = asked || isComplete(draft, number);
    if (!draft.var(number).drawn && worthTelling) {
      draft.note(draft.described(number) + " cannot be drawn: " + whyNot(draft, number) + ".");
    }
  }
  if (!asked) return;
  for (const int number : allNumbers(draft)) {
    const bool chosen = std::ranges::find(candidates, number) != candidates.end();
    if (!chosen && !isCompanion(draft, number, candidates)) draft.leaveOut(number);
  }
}

}  // namespace cli::fit
