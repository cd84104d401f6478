#include "diagnosis/remedy.h"

#include <algorithm>
#include <cmath>

#include "failures.h"
#include "fit/NetcdfInput.h"
#include "fit/makePlan.h"
#include "netcdf/remoteName.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

// Warnings of what a fitted copy does not have any more, of those that make a picture wrong.
constexpr const char* kWrongPictures[] = {
    "levels-upward",       "levels-unsorted",   "negative-levels", "positive-up",
    "pressure-levels",     "uneven-spacing",    "zero-fill",       "mixed-order",
    "two-missing-values",  "unknown-time-unit", "unread-origin",   "unsigned-values",
    "longitudes-backward", "attribute-prefix",  "month-axis"};

bool isWrong(const Warning& warning) {
  return std::ranges::find(kWrongPictures, warning.kind) != std::end(kWrongPictures);
}

// A number that keeps what a path or a grid needs of it.
std::string shortNumber(double value, double spacing) {
  double unit = 1;
  while (unit > spacing / 4 && unit > 1e-6) unit /= 10;
  return util::generalText(static_cast<float>(std::round(value / unit) * unit));
}

// From one tenth of an axis to nine; the last cell reaches one spacing beyond its value.
std::pair<std::string, std::string> innerSpan(const std::vector<double>& values) {
  constexpr double margin = 0.1;
  const double spacing = spacingOf(values);
  const double from = values.front(), span = values.back() + spacing - from;
  return {shortNumber(from + margin * span, spacing),
          shortNumber(from + (1 - margin) * span, spacing)};
}

std::string drawCommand(const std::string& dataSet, const Recognition& found,
                        const Diagnosis& diagnosis) {
  const auto [west, east] = innerSpan(unwrapped(found.longitude.values));
  const auto [south, north] = innerSpan(found.latitude.values);
  std::string variable;
  for (const VariableFinding& finding : diagnosis.variables) {
    if (variable.empty() && finding.drawable) variable = finding.name;
  }
  return "kelvane draw " + shellWord(dataSet) + " --var " + shellWord(variable) + " --path \"" +
         west + "," + south + " " + east + "," + north + "\" -o section.png";
}

// The name of the copy: beside nothing, in the folder of the user.
std::string copyName(const std::string& dataSet) {
  std::string name = ocxStrings::FileNameOf(dataSet);
  const std::size_t dot = name.rfind('.');
  if (dot != std::string::npos && dot > 0) name.resize(dot);
  return name + "-fit.nc";
}

// What an option is given in the words of a refusal that asks for it: "--grid 0.5,0.5".
std::string optionIn(const std::string& refusal, const std::string& option) {
  const std::size_t at = refusal.find(option + " ");
  if (at == std::string::npos) return {};
  const std::size_t from = at + option.size() + 1;
  std::string value = refusal.substr(from, refusal.find_first_of(" \n;)", from) - from);
  while (!value.empty() && (value.back() == '.' || value.back() == ',')) value.pop_back();
  return value;
}

// Adds what a refusal asks for to the request; false when it asks for nothing, or again.
bool grant(const std::string& refusal, fit::Request& request, std::string& options) {
  const std::string grid = optionIn(refusal, "--grid");
  if (const auto spacing = fit::readSpacing(grid); spacing && !request.grid) {
    request.grid = spacing;
    options += " --grid " + grid;
    return true;
  }
  const std::string select = optionIn(refusal, "--select");
  const auto selected = fit::readSelected(select);
  if (!selected) return false;
  for (const fit::Selected& before : request.selected) {
    if (before.dimension == selected->dimension) return false;
  }
  request.selected.push_back(*selected);
  options += " --select " + shellWord(select);
  return true;
}

// Plans a copy, with the options that the planning asks for. Sets the command, or the reason why
// there can be no copy.
void planCopy(const std::string& dataSet, const std::string& shown, const std::string& grid,
              Diagnosis& diagnosis) {
  fit::Request request;
  std::string options;
  if (!grid.empty()) grant("--grid " + grid, request, options);
  for (;;) {
    try {
      const fit::NetcdfInput input(dataSet);
      fit::makePlan(input, request);
      diagnosis.command =
          "kelvane fit " + shellWord(shown) + " " + shellWord(copyName(shown)) + options;
      return;
    } catch (const Failure& refusal) {
      if (grant(refusal.what(), request, options)) continue;
      diagnosis.advice = std::string("No command helps: ") + refusal.what();
      return;
    }
  }
}

// The grid that an unevenly spaced one is to be put on; empty for an even one.
std::string evenGrid(const Recognition& found, const std::vector<Warning>& warnings) {
  if (std::ranges::find(warnings, "uneven-spacing", &Warning::kind) == warnings.end()) return {};
  if (found.longitude.values.size() < 2 || found.latitude.values.size() < 2) return {};
  std::string grid;
  for (const auto& values : {unwrapped(found.longitude.values), found.latitude.values}) {
    const double spacing = std::fabs(spacingOf(values));
    if (!(spacing > 0) || !std::isfinite(spacing)) return {};
    grid += (grid.empty() ? "" : ",") + shortNumber(spacing, spacing);
  }
  return grid;
}

}  // namespace

std::string shellWord(const std::string& word) {
  constexpr const char* plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=,.:/@%";
  if (!word.empty() && word.find_first_not_of(plain) == std::string::npos) return word;
  std::string quotedWord = "'";
  for (const char letter : word)
    quotedWord += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  return quotedWord + "'";
}

void findRemedy(const std::string& dataSet, const Recognition& found, Diagnosis& diagnosis) {
  const std::string shown = ocxNetNc::withoutCredentials(dataSet);
  const bool drawable = diagnosis.verdict == Verdict::Drawable;
  if (!drawable || std::ranges::any_of(diagnosis.warnings, isWrong)) {
    planCopy(dataSet, shown, evenGrid(found, diagnosis.warnings), diagnosis);
    if (!diagnosis.command.empty()) {
      diagnosis.advice = drawable
                             ? "A fitted copy has none of what the warnings say is drawn wrongly:"
                             : "A copy that the control can draw is made by:";
      return;
    }
  }
  if (!drawable) return;
  diagnosis.command = drawCommand(shown, found, diagnosis);
  diagnosis.advice = "It can be drawn as it is:";
}

}  // namespace cli::diagnosis
