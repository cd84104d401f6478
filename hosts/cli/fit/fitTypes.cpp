#include <algorithm>
#include <array>
#include <cmath>

#include "fit/rules.h"

namespace cli::fit {
namespace {

std::string nameOf(nc_type type) {
  constexpr std::array kNames = {"no type", "byte",  "text", "short", "int",   "float", "double",
                                 "ubyte",   "ushort", "uint", "int64", "uint64", "string"};
  return kNames.at(static_cast<std::size_t>(type));
}

bool fitInInt(const std::vector<double>& values) {
  return std::ranges::all_of(values, [](double value) {
    return value >= -2147483648.0 && value <= 2147483647.0 && value == std::floor(value);
  });
}

nc_type classic(nc_type type, bool fits) {
  switch (type) {
    case NC_UBYTE:
      return NC_SHORT;
    case NC_USHORT:
      return NC_INT;
    case NC_UINT:
    case NC_INT64:
    case NC_UINT64:
      return fits ? NC_INT : NC_DOUBLE;
    case NC_STRING:
      return NC_CHAR;
    default:
      return type;
  }
}

void fitAttributeTypes(Draft& draft, const std::string& owner, Attributes& attributes) {
  std::string changed;
  for (Attribute& attribute : attributes) {
    const nc_type wanted = classic(attribute.type, fitInInt(attribute.numbers));
    if (wanted == attribute.type) continue;
    changed += (changed.empty() ? "" : ", ") + attribute.name;
    attribute.type = wanted;
  }
  if (changed.empty()) return;
  draft.change(owner, "attributes made classic: " + changed,
               "the control refuses string and 64-bit attributes");
}

// Values of large variables are not looked at for this.
bool valuesFit(const Draft& draft, const PlanVar& variable) {
  constexpr std::size_t kLarge = std::size_t{1} << 20;
  if (variable.values) return fitInInt(*variable.values);
  if (variable.source < 0 || draft.in.size(variable.source) > kLarge) return false;
  return fitInInt(draft.in.whole(variable.source));
}

}  // namespace

void fitTypes(Draft& draft) {
  for (PlanVar& variable : draft.plan.vars) {
    if (variable.gone) continue;
    const bool wide = variable.type >= NC_UINT && variable.type <= NC_UINT64;
    const nc_type wanted = classic(variable.type, wide && valuesFit(draft, variable));
    if (wanted != variable.type) {
      draft.change(variable.name, nameOf(wanted) + " instead of " + nameOf(variable.type),
                   "the classic format has no such type");
      variable.type = wanted;
    } else if (variable.source >= 0 && draft.inVar(variable.source).ofStrings) {
      draft.change(variable.name, "strings made characters", "the classic format has no strings");
    }
    fitAttributeTypes(draft, variable.name, variable.attributes);
  }
  fitAttributeTypes(draft, "(global)", draft.plan.globals);
}

}  // namespace cli::fit
