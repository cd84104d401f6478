#include "fit/Draft.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "failures.h"

namespace cli::fit {
namespace {

// The longest dimension whose indices are listed one by one.
constexpr std::size_t kMostIndices = std::size_t{1} << 26;

// Attributes whose words are names of variables.
bool namesVariables(const std::string& attribute) {
  for (const char* each : {"coordinates", "bounds", "climatology", "ancillary_variables",
                           "grid_mapping", "formula_terms", "cell_measures"}) {
    if (attribute == each) return true;
  }
  return false;
}

void replaceWord(std::string& text, const std::string& word, const std::string& by) {
  std::size_t at = 0;
  while ((at = text.find(word, at)) != std::string::npos) {
    const std::size_t end = at + word.size();
    const bool whole = (at == 0 || text[at - 1] == ' ') && (end == text.size() || text[end] == ' ');
    if (whole) text.replace(at, word.size(), by);
    at += whole ? by.size() : word.size();
  }
}

}  // namespace

void PlanVar::putFirst(int dim) {
  std::vector<int> ordered = {dim};
  for (const int each : dims) {
    if (each != dim) ordered.push_back(each);
  }
  dims = std::move(ordered);
}

PlanVar* Plan::variable(std::string_view name) {
  for (PlanVar& each : vars) {
    if (!each.gone && each.name == name) return &each;
  }
  return nullptr;
}

Draft::Draft(const Input& input, const Request& asked) : in(input), request(asked) {
  for (const Dimension& each : in.header().dims) {
    if (each.length > kMostIndices) {
      throw Failure("The dimension " + each.name + " is too long: " + std::to_string(each.length) +
                    ".");
    }
    addDim(each.name, each.length);
  }
  for (std::size_t at = 0; at < plan.dims.size(); ++at) {
    plan.dims[at].unlimited = in.header().dims[at].unlimited;
  }
  for (std::size_t at = 0; at < in.header().vars.size(); ++at) {
    const Variable& each = in.header().vars[at];
    PlanVar copy;
    copy.source = static_cast<int>(at);
    copy.name = each.name;
    copy.type = each.type;
    copy.dims = each.dims;
    copy.attributes = each.attributes;
    plan.vars.push_back(std::move(copy));
    placings.push_back(placingOf(in, static_cast<int>(at)));
  }
  plan.globals = in.header().globals;
}

int Draft::addDim(const std::string& name, std::size_t length) {
  PlanDim added;
  added.name = name;
  added.index.resize(length);
  std::iota(added.index.begin(), added.index.end(), std::size_t{0});
  plan.dims.push_back(std::move(added));
  return static_cast<int>(plan.dims.size()) - 1;
}

int Draft::addVar(PlanVar variable) {
  plan.vars.push_back(std::move(variable));
  return static_cast<int>(plan.vars.size()) - 1;
}

std::string Draft::freeName(const std::string& wanted) const {
  const auto taken = [&](const std::string& name) {
    return std::ranges::any_of(plan.dims,
                               [&](const PlanDim& d) { return !d.gone && d.name == name; }) ||
           std::ranges::any_of(plan.vars,
                               [&](const PlanVar& v) { return !v.gone && v.name == name; });
  };
  std::string name = wanted;
  for (int number = 2; taken(name); ++number) name = wanted + "_" + std::to_string(number);
  return name;
}

void Draft::rename(int variable, const std::string& name) {
  const std::string before = var(variable).name;
  for (PlanDim& each : plan.dims) {
    if (each.name == before) each.name = name;
  }
  var(variable).name = name;
  for (PlanVar& each : plan.vars) {
    for (Attribute& attribute : each.attributes) {
      if (namesVariables(attribute.name)) replaceWord(attribute.text, before, name);
    }
  }
}

void Draft::leaveOut(int variable) {
  var(variable).gone = true;
  var(variable).drawn = false;
}

void Draft::leaveOutBounds(int variable) {
  PlanVar& axis = var(variable);
  for (const char* range : {"valid_min", "valid_max", "valid_range", "actual_range"}) {
    remove(axis.attributes, range);
  }
  for (const char* name : {"bounds", "climatology"}) {
    const std::string bounds = textOf(axis.attributes, name);
    if (bounds.empty()) continue;
    remove(axis.attributes, name);
    for (std::size_t at = 0; at < plan.vars.size(); ++at) {
      if (plan.vars[at].gone || plan.vars[at].name != bounds) continue;
      leaveOut(static_cast<int>(at));
      change(bounds, "left out", "the values of " + axis.name + " are no longer those it bounds");
    }
  }
}

void Draft::change(const std::string& name, const std::string& what, const std::string& why) {
  plan.changes.push_back(name + ": " + what + " (" + why + ")");
}

std::string Draft::described(int variable) const {
  std::string text;
  for (const int each : inVar(variable).dims) text += (text.empty() ? "" : ", ") + inDim(each).name;
  return inVar(variable).name + "(" + text + ")";
}

std::vector<double> Draft::axisValues(const Axis& axis) const {
  const std::vector<double> all = in.whole(axis.var);
  const Attributes& attributes = inVar(axis.var).attributes;
  const double scale = numberOf(attributes, "scale_factor", 1);
  const double offset = numberOf(attributes, "add_offset", 0);
  std::vector<double> values;
  for (const std::size_t index : dim(axis.dim).index) {
    const double value = index < all.size() ? all[index] * scale + offset : 0.0;
    if (index >= all.size() || !std::isfinite(value)) {
      throw Failure(inVar(axis.var).name + " has values that are no numbers.");
    }
    values.push_back(value);
  }
  return values;
}

}  // namespace cli::fit
