#include <algorithm>
#include <cmath>

#include "fit/missing.h"
#include "fit/rules.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

struct Known {
  std::vector<double> numbers;  // each once
  bool nan = false;
};

Known missingOf(const Attributes& attributes) {
  Known known;
  for (const char* name : {"_FillValue", "missing_value"}) {
    const Attribute* found = find(attributes, name);
    if (found == nullptr) continue;
    std::vector<double> numbers = found->numbers;
    if (found->isText() && !found->text.empty()) numbers = {util::leadingNumber(found->text)};
    for (const double number : numbers) {
      known.nan = known.nan || std::isnan(number);
      if (!std::isnan(number) && !standsForMissing(number, known.numbers)) {
        known.numbers.push_back(number);
      }
    }
  }
  return known;
}

void unpack(PlanVar& variable) {
  variable.scale = numberOf(variable.attributes, "scale_factor", 1);
  variable.offset = numberOf(variable.attributes, "add_offset", 0);
  remove(variable.attributes, "scale_factor");
  remove(variable.attributes, "add_offset");
  for (Attribute& attribute : variable.attributes) {
    if (!attribute.name.starts_with("valid_") || attribute.isText()) continue;
    for (double& number : attribute.numbers) number = number * variable.scale + variable.offset;
    attribute.type = NC_DOUBLE;
  }
  variable.unpacked = true;
  variable.type = variable.type == NC_INT ? NC_DOUBLE : NC_FLOAT;
}

void setMissing(PlanVar& variable, double fill) {
  const nc_type type = variable.type;
  if (type == NC_FLOAT) fill = static_cast<double>(static_cast<float>(fill));
  variable.fill = fill;
  set(variable.attributes, {"_FillValue", type, {}, {fill}});
  if (find(variable.attributes, "missing_value") != nullptr) {
    set(variable.attributes, {"missing_value", type, {}, {fill}});
  }
}

std::string listed(const Known& known) {
  std::string text = known.nan ? "NaN" : "";
  for (const double number : known.numbers) {
    const auto single = static_cast<float>(number);
    text += (text.empty() ? "" : ", ") + (static_cast<double>(single) == number
                                              ? util::generalText(single)
                                              : util::generalText(number));
  }
  return text;
}

void fit(Draft& draft, PlanVar& variable) {
  const Known known = missingOf(variable.attributes);
  const bool whole = isWhole(variable.type);
  const bool refilled = draft.refilled.contains(variable.source);
  const bool blended = variable.grid >= 0 && draft.request.method == Method::Bilinear;
  const bool bare = variable.grid >= 0 && known.numbers.empty();
  variable.missing = known.numbers;
  const bool zero = std::ranges::find(known.numbers, 0.0) != known.numbers.end();
  const bool several = known.numbers.size() > 1;
  const bool unsuitable = known.nan || zero || several || refilled || bare;
  if (whole && (unsuitable || blended)) {
    const bool packed = find(variable.attributes, "scale_factor") != nullptr ||
                        find(variable.attributes, "add_offset") != nullptr;
    unpack(variable);
    setMissing(variable, kNewFill);
    draft.change(variable.name,
                 std::string(packed ? "unpacked" : "stored as fractions") +
                     ", missing values are " + util::generalText(NC_FILL_FLOAT),
                 blended   ? "interpolated values are no whole numbers"
                 : bare    ? "it had none for points outside of its grid"
                 : several ? "several numbers stood for missing values"
                           : "the control would take good values for the missing " + listed(known));
    return;
  }
  if (!unsuitable) {
    if (variable.grid >= 0) variable.fill = known.numbers.front();
    return;
  }
  // Of several the one that is furthest from all values.
  double fill = kNewFill;
  for (const double number : known.numbers) {
    if (std::fabs(number) >= 1e10 && !refilled) fill = number;
  }
  // Values that were never written have the library's number, whether or not an attribute says so.
  if (known.numbers.empty()) variable.missing.push_back(kNewFill);
  setMissing(variable, fill);
  const std::string before = listed(known);
  draft.change(variable.name,
               "missing values are " + util::generalText(static_cast<float>(fill)) +
                   (before.empty() ? "" : " instead of " + before),
               known.nan        ? "the control takes a NaN there for no missing value"
               : several        ? "the control knows one number for them"
               : zero           ? "the control takes a 0 there for no missing value"
               : bare           ? "points outside of its grid have none"
               : before.empty() ? "it has values that are no numbers, or were never written"
                                : "the control would take good values for missing");
}

}  // namespace

double controlMissing(const Attributes& attributes) {
  double missing = 0;
  for (const Attribute& attribute : attributes) {
    if (!ocxStrings::hasPrefix(attribute.name, "MISSING") &&
        !ocxStrings::hasPrefix(attribute.name, "_FILL")) {
      continue;
    }
    missing = attribute.isText() ? util::leadingNumber(attribute.text)
              : attribute.numbers.empty() || std::isnan(attribute.numbers[0])
                  ? 0.0
                  : attribute.numbers[0];
  }
  return missing;
}

bool takenForMissing(double value, double missing) {
  const auto raw = static_cast<float>(value), threshold = static_cast<float>(missing * 0.99);
  if (threshold == 0.0F) return false;
  return threshold < 0.0F ? !(raw > threshold) : !(raw < threshold);
}

bool standsForMissing(double value, const std::vector<double>& missing) {
  constexpr double kLarge = 1e10, kSame = 1e-6;
  return std::ranges::any_of(missing, [&](double number) {
    return value == number ||
           (std::fabs(number) > kLarge && std::fabs(value - number) <= kSame * std::fabs(number));
  });
}

void fitMissing(Draft& draft) {
  for (PlanVar& variable : draft.plan.vars) {
    if (variable.gone || variable.source < 0 || variable.values || !variable.isNumeric()) continue;
    if (variable.drawn || variable.grid >= 0) fit(draft, variable);
  }
}

}  // namespace cli::fit
