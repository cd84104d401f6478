#include <algorithm>
#include <cmath>

#include "fit/rules.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

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

// Numbers that an attribute says to be without sign, in a type that has one.
void fitUnsigned(Draft& draft, PlanVar& variable) {
  const std::string word = ocxStrings::upper(textOf(variable.attributes, "_Unsigned"));
  const bool integer =
      variable.type == NC_BYTE || variable.type == NC_SHORT || variable.type == NC_INT;
  if (word != "TRUE" || !integer || variable.values) return;
  variable.wrap = variable.type == NC_BYTE    ? 256.0
                  : variable.type == NC_SHORT ? 65536.0
                                              : 4294967296.0;
  variable.type = variable.type == NC_BYTE    ? NC_SHORT
                  : variable.type == NC_SHORT ? NC_INT
                                              : NC_DOUBLE;
  remove(variable.attributes, "_Unsigned");
  for (Attribute& attribute : variable.attributes) {
    const bool ofValues = attribute.name == "_FillValue" || attribute.name == "missing_value" ||
                          attribute.name.starts_with("valid_");
    if (!ofValues || attribute.isText()) continue;
    for (double& number : attribute.numbers) {
      if (number < 0) number += variable.wrap;
    }
    attribute.type = variable.type;
  }
  draft.change(variable.name, "stored as " + typeName(variable.type),
               "the control reads its numbers without sign as numbers with one");
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
    fitUnsigned(draft, variable);
    const bool wide = variable.type >= NC_UINT && variable.type <= NC_UINT64;
    const nc_type wanted = classic(variable.type, wide && valuesFit(draft, variable));
    if (wanted != variable.type) {
      draft.change(variable.name, typeName(wanted) + " instead of " + typeName(variable.type),
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
