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

// A number that keeps what a path or a grid needs of it.
std::string shortNumber(double value, double spacing) {
  double unit = 1;
  while (unit > spacing / 4 && unit > 1e-6) unit /= 10;
  return util::generalText(static_cast<float>(std::round(value / unit) * unit));
}

// From one tenth of an axis to nine, though not beyond its last value. The cell of that reaches one
// spacing further, which only two values need for a path of two cells.
std::pair<std::string, std::string> innerSpan(const std::vector<double>& values) {
  constexpr double margin = 0.1;
  const double spacing = spacingOf(values);
  const double from = values.front(), span = values.back() + spacing - from;
  double to = from + (1 - margin) * span;
  if (values.size() > 2) to = std::min(to, values.back());
  return {shortNumber(from + margin * span, spacing), shortNumber(to, spacing)};
}

std::string drawCommand(const std::string& dataSet, const Recognition& found,
                        const Diagnosis& diagnosis) {
  const auto [west, east] = innerSpan(unwrapped(found.longitude.values));
  const auto [south, north] = innerSpan(found.latitude.values);
  std::string variable;
  for (const VariableFinding& finding : diagnosis.variables) {
    if (variable.empty() && finding.drawable) variable = finding.name;
  }
  return "kelvane draw " + fileWord(dataSet) + " --var " + shellWord(variable) + " --path \"" +
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

// A copy that can be made, or the reason why there is none.
struct Copy {
  std::string options;
  std::string refusal;
  bool changes = false;  // it would not be the same as the data set
};

// Plans a copy of a group (all that is outside of groups, when empty), with the options that the
// planning asks for.
Copy planCopy(const std::string& dataSet, const std::string& group, const std::string& grid) {
  fit::Request request;
  request.group = group;
  Copy copy;
  if (!group.empty()) copy.options = " --group " + shellWord(group);
  if (!grid.empty()) grant("--grid " + grid, request, copy.options);
  for (;;) {
    try {
      const fit::NetcdfInput input(dataSet, group);
      copy.changes = !fit::makePlan(input, request).changes.empty();
      return copy;
    } catch (const Failure& refusal) {
      if (grant(refusal.what(), request, copy.options)) continue;
      copy.refusal = refusal.what();
      return copy;
    }
  }
}

// Of what is outside of groups, or else of the first group that a copy can be made of.
Copy planAnyCopy(const std::string& dataSet, const std::string& grid,
                 const std::vector<Group>& groups) {
  constexpr std::size_t mostGroups = 16;
  Copy first = planCopy(dataSet, "", grid);
  if (first.refusal.empty()) return first;
  for (std::size_t at = 0; at < groups.size() && at < mostGroups; ++at) {
    Copy copy = planCopy(dataSet, groups[at].path, "");
    if (copy.refusal.empty()) return copy;
  }
  return first;
}

bool isWarned(const std::vector<Warning>& warnings, const std::string& kind) {
  return std::ranges::find(warnings, kind, &Warning::kind) != warnings.end();
}

// The grid that an unevenly spaced one is to be put on; empty for an even one.
std::string evenGrid(const Recognition& found, const std::vector<Warning>& warnings) {
  if (!isWarned(warnings, "uneven-spacing")) return {};
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

std::string fileWord(const std::string& name) {
  return shellWord(name.starts_with('-') ? "./" + name : name);
}

void findRemedy(const std::string& dataSet, const Header& header, const Recognition& found,
                Diagnosis& diagnosis) {
  const std::string shown = ocxNetNc::withoutCredentials(dataSet);
  const bool drawable = diagnosis.verdict == Verdict::Drawable;
  if (!drawable || std::ranges::any_of(diagnosis.warnings, &Warning::mended)) {
    const Copy copy = planAnyCopy(dataSet, evenGrid(found, diagnosis.warnings), header.groups);
    // What is lost to fill values is found while a copy is written.
    const bool lost = isWarned(diagnosis.warnings, "near-fill");
    if (copy.refusal.empty() && (!drawable || copy.changes || lost)) {
      diagnosis.command =
          "kelvane fit " + fileWord(shown) + " " + fileWord(copyName(shown)) + copy.options;
      diagnosis.advice =
          drawable ? "It can be drawn as it is. A fitted copy mends what is drawn wrongly:"
                   : "A copy that the control can draw is made by:";
      return;
    }
    if (!drawable) diagnosis.advice = "No command helps: " + copy.refusal;
  }
  if (!drawable) return;
  diagnosis.command = drawCommand(shown, found, diagnosis);
  diagnosis.advice = "It can be drawn as it is:";
}

}  // namespace cli::diagnosis
