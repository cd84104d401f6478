#include <algorithm>

#include "infoForms.h"
#include "terminal.h"

namespace cli {
namespace {

using diagnosis::Check;
using diagnosis::Diagnosis;
using diagnosis::State;
using diagnosis::VariableFinding;
using diagnosis::Warning;

std::string stateText(State state) {
  switch (state) {
    case State::Passed:
      return "  ok    ";
    case State::Failed:
      return "  FAIL  ";
    case State::Unreached:
      break;
  }
  return "  -     ";
}

std::string checksText(const Diagnosis& diagnosis) {
  std::string text = "\nChecks, in the control's order:\n";
  for (const Check& check : diagnosis.checks) {
    text += stateText(check.state) + check.title;
    const std::string& finding = check.evidence.finding;
    if (check.state == State::Failed) {
      text += "\n          " + printable(finding);
    } else if (!finding.empty()) {
      text += ": " + printable(finding);
    }
    text += "\n";
  }
  return text;
}

std::string variablesText(const Diagnosis& diagnosis) {
  if (diagnosis.variables.empty()) return {};
  std::size_t width = 0;
  for (const VariableFinding& variable : diagnosis.variables) {
    width = std::max(width, columnsOf(variable.name));
  }
  constexpr std::size_t widest = 45;
  std::string text = "\nVariables:\n";
  for (const VariableFinding& variable : diagnosis.variables) {
    const std::string name = padded(printable(variable.name), std::min(width, widest));
    text += (variable.drawable ? "  yes   " : "  no    ") + name + "  " +
            (variable.drawable ? "can be drawn" : printable(variable.reason)) + "\n";
  }
  return text;
}

std::string warningsText(const Diagnosis& diagnosis) {
  if (diagnosis.warnings.empty()) return {};
  std::string text = "\nWarnings:\n";
  for (const Warning& warning : diagnosis.warnings) {
    std::string names;
    constexpr std::size_t most = 4;
    for (std::size_t at = 0; at < warning.names.size() && at < most; ++at) {
      names += (at == 0 ? "`" : ", `") + warning.names[at] + "`";
    }
    if (warning.names.size() > most) {
      names += " and " + std::to_string(warning.names.size() - most) + " more";
    }
    text += "  " + printable(names.empty() ? warning.text : names + ": " + warning.text) + "\n";
  }
  return text;
}

}  // namespace

std::string textForm(const Diagnosis& diagnosis) {
  std::string text = checksText(diagnosis) + variablesText(diagnosis) + warningsText(diagnosis);
  text += "\n" + printable(diagnosis.summary) + ".\n" + printable(diagnosis.advice) + "\n";
  if (!diagnosis.command.empty()) text += "\n  " + printable(diagnosis.command) + "\n";
  return text;
}

}  // namespace cli
