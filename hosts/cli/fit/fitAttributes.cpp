#include <algorithm>
#include <array>

#include "fit/rules.h"
#include "netcdf/ncf.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

using ocxStrings::hasPrefix;

// The starts of names by which the control knows an attribute, the name that is meant, and others
// that can be meant by nothing else.
struct Meant {
  const char* start;
  const char* name;
  std::initializer_list<const char*> others;
};

const std::array kMeant = {
    Meant{"SCALE", "scale_factor", {"SCALE", "SCALE_FACTOR"}},
    Meant{"ADD_OFF", "add_offset", {"ADD_OFF", "ADD_OFFSET"}},
    Meant{"MISSING", "missing_value", {"MISSING", "MISSING_VALUE"}},
    Meant{"_FILL", "_FillValue", {"_FILL", "_FILLVALUE"}},
    Meant{"UNIT", "units", {"UNIT", "UNITS"}},
    Meant{"LONG_NAME", "long_name", {"LONG_NAME"}},
};

bool isMisread(const Attributes& attributes, const std::string& name) {
  return std::ranges::any_of(kMeant, [&](const Meant& meant) {
    if (name == meant.name || !hasPrefix(name, meant.start)) return false;
    const bool alone = find(attributes, meant.name) == nullptr;
    const std::string word = ocxStrings::upper(name);
    const bool same =
        std::ranges::any_of(meant.others, [&](const char* other) { return word == other; });
    return !(alone && same);
  });
}

void renameMisread(Draft& draft, PlanVar& variable) {
  for (Attribute& attribute : variable.attributes) {
    if (!isMisread(variable.attributes, attribute.name)) continue;
    std::string name = "the_" + attribute.name;
    while (find(variable.attributes, name) != nullptr) name += "_";
    draft.change(variable.name, "attribute " + attribute.name + " renamed to " + name,
                 "the control would take it for another one");
    attribute.name = name;
  }
}

// The attributes that must not go, in front of all others.
int rankOf(const std::string& name) {
  constexpr std::array kRanks = {"units",      "_FillValue", "missing_value", "scale_factor",
                                 "add_offset", "long_name",  "standard_name", "axis",
                                 "positive",   "calendar",   "bounds",        "valid_range",
                                 "valid_min",  "valid_max",  "coordinates",   "cell_methods"};
  const auto found = std::ranges::find(kRanks, name);
  return static_cast<int>(found - kRanks.begin());
}

void moveSurplus(Draft& draft, PlanVar& variable) {
  constexpr auto kMost = static_cast<std::size_t>(ocxNetNc::kAttributeLimit);
  if (variable.attributes.size() <= kMost) return;
  std::vector<std::string> names;
  for (const Attribute& each : variable.attributes) names.push_back(each.name);
  std::ranges::stable_sort(names, {}, rankOf);
  std::string moved;
  for (std::size_t at = kMost; at < names.size(); ++at) {
    Attribute attribute = *find(variable.attributes, names[at]);
    remove(variable.attributes, names[at]);
    attribute.name = variable.name + "_" + attribute.name;
    while (find(draft.plan.globals, attribute.name) != nullptr) attribute.name += "_";
    draft.plan.globals.push_back(std::move(attribute));
    moved += (moved.empty() ? "" : ", ") + names[at];
  }
  draft.change(variable.name, "attributes moved to the global ones: " + moved,
               "the control takes 15 of a variable at most");
}

}  // namespace

void fitAttributes(Draft& draft) {
  for (PlanVar& variable : draft.plan.vars) {
    if (variable.gone) continue;
    renameMisread(draft, variable);
    moveSurplus(draft, variable);
  }
}

}  // namespace cli::fit
