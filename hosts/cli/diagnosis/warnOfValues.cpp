#include <netcdf.h>

#include <algorithm>
#include <cmath>

#include "diagnosis/checkList.h"
#include "diagnosis/lostValues.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using ocxStrings::hasPrefix;

// From here on no measured value comes near a fill value: there is nothing to look for.
constexpr double kFarAway = 1e15;
constexpr double kMissingShare = 0.99;

std::string number(double value) { return util::generalText(static_cast<float>(value)); }

double leadingNumberOf(const Attribute& attribute) {
  return util::leadingNumber(valueText(attribute));
}

bool isNan(const Attribute& attribute) { return hasPrefix(valueText(attribute), "NAN"); }

// The attributes by which the control knows missing values; the last of them counts.
std::vector<const Attribute*> missingMarks(const Variable& variable) {
  std::vector<const Attribute*> marks;
  for (const Attribute& attribute : variable.attributes) {
    if (hasPrefix(attribute.name, "MISSING") || hasPrefix(attribute.name, "_FILL")) {
      marks.push_back(&attribute);
    }
  }
  return marks;
}

double keywordNumber(const Variable& variable, const char* wanted, double fallback) {
  const Attribute* attribute = keyword(variable, wanted);
  return attribute == nullptr ? fallback : leadingNumberOf(*attribute);
}

// The control takes a whole range of values for missing. That matters where there are some.
void warnOfLost(const Header& header, const Variable& variable, const Attribute& mark,
                std::vector<Warning>& warnings) {
  const std::optional<double> lost = lostValue(header, variable);
  if (!lost) return;
  const double scale = keywordNumber(variable, "SCALE", 1);
  const double offset = keywordNumber(variable, "ADD_OFF", 0);
  const double missing = leadingNumberOf(mark);
  const bool below = (missing < 0) == (scale > 0);
  warn(warnings, "near-fill", variable.name,
       quoted(mark.name) + " is " + valueText(mark) + ": with 1 % around it, all values from " +
           number(missing * kMissingShare * scale + offset) + (below ? " downwards" : " upwards") +
           " are taken for missing, good ones too, like " + number(*lost * scale + offset),
       Cure::Copy);
}

void warnOfMissing(const Header& header, bool look, const Variable& variable,
                   std::vector<Warning>& warnings) {
  const std::vector<const Attribute*> marks = missingMarks(variable);
  if (marks.empty()) return;
  const Attribute& last = *marks.back();
  const double missing = leadingNumberOf(last);
  for (const Attribute* mark : marks) {
    const bool same = static_cast<float>(leadingNumberOf(*mark)) == static_cast<float>(missing) &&
                      isNan(*mark) == isNan(last);
    if (same) continue;
    warn(warnings, "two-missing-values", variable.name,
         quoted(mark->name) + " is " + valueText(*mark) + " and " + quoted(last.name) + " is " +
             valueText(last) + ": only the second, which comes later, counts",
         Cure::Copy);
  }
  if (isNan(last)) {
    warn(warnings, "nan-fill", variable.name,
         quoted(last.name) +
             " is NaN, which counts as none: NaN is left blank, but nothing else "
             "is taken for missing");
  } else if (missing == 0) {
    warn(warnings, "zero-fill", variable.name,
         quoted(last.name) + " is " + valueText(last) +
             ", which counts as none: no value is taken for missing, 0 is drawn",
         Cure::Copy);
  } else if (look && std::fabs(missing) < kFarAway) {
    warnOfLost(header, variable, last, warnings);
  }
}

// Attributes whose names merely begin like those the control looks for.
void warnOfNamesakes(const Variable& variable, std::vector<Warning>& warnings) {
  struct Keyword {
    const char* start;
    std::vector<std::string> meant;
    const char* use;
  };
  static const Keyword keywords[] = {{"UNIT", {"UNITS", "UNIT"}, "the units"},
                                     {"SCALE", {"SCALE_FACTOR", "SCALE"}, "the scale factor"},
                                     {"ADD_OFF", {"ADD_OFFSET"}, "the offset"},
                                     {"MISSING", {"MISSING_VALUE"}, "the missing value"},
                                     {"LONG_NAME", {"LONG_NAME"}, "the long name"}};
  for (const Keyword& known : keywords) {
    const Attribute* taken = keyword(variable, known.start);
    if (taken == nullptr) continue;
    const std::string name = ocxStrings::upper(taken->name);
    if (std::ranges::find(known.meant, name) != known.meant.end()) continue;
    warn(warnings, "attribute-prefix", variable.name,
         "its attribute " + quoted(taken->name) + " (" + valueText(*taken) + ") is taken for " +
             known.use + ": the beginning of the name decides, and the last one counts",
         Cure::Copy);
  }
}

void warnOfType(const Variable& variable, std::vector<Warning>& warnings) {
  if (variable.type == NC_CHAR) {
    warn(warnings, "text-values", variable.name, "it holds characters: all are drawn as 0");
  }
  if (hasPrefix(textOf(variable.attributes, "_Unsigned"), "TRUE")) {
    warn(warnings, "unsigned-values", variable.name,
         "its integers have no sign, but are read as if they had: large ones come out negative",
         Cure::Copy);
  }
  for (const Attribute& attribute : variable.attributes) {
    if (!hasPrefix(attribute.name, "VALID_")) continue;
    warn(warnings, "valid-range", variable.name,
         "it has a valid range, which is not applied: values outside of it are drawn too");
    return;
  }
}

// The order found for the variable read first stays for all others of the data set.
void warnOfOrders(const std::vector<VariableFinding>& variables, std::vector<Warning>& warnings) {
  const VariableFinding* first = nullptr;
  for (const VariableFinding& variable : variables) {
    if (!variable.suited) continue;
    if (first == nullptr) first = &variable;
    if (first->dimensions.back() == variable.dimensions.back()) continue;
    warn(warnings, "mixed-order", variable.name,
         "its last dimension is " + quoted(variable.dimensions.back()) + ", that of " +
             quoted(first->name) + " is " + quoted(first->dimensions.back()) +
             ": once one of them is drawn, the other comes out turned until the data set is opened "
             "again",
         Cure::Copy);
  }
}

}  // namespace

void warnOfValues(const Header& header, bool atAddress,
                  const std::vector<VariableFinding>& variables, std::vector<Warning>& warnings) {
  for (std::size_t at = 0; at < variables.size(); ++at) {
    if (variables[at].listed || !variables[at].role.empty()) {
      warnOfNamesakes(header.vars[at], warnings);
    }
    if (!variables[at].listed) continue;
    warnOfMissing(header, !atAddress, header.vars[at], warnings);
    warnOfType(header.vars[at], warnings);
  }
  warnOfOrders(variables, warnings);
}

}  // namespace cli::diagnosis
