#include "keyCommand.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <vector>

#include "failures.h"
#include "jsonNumber.h"
#include "kewKeys.h"
#include "nameList.h"
#include "netcdf/remoteName.h"
#include "terminal.h"
#include "util/numberText.h"

namespace cli {
namespace {

using ModColor::KewDivision;
using ModColor::KewVariable;
using ocxNetNc::withoutCredentials;
using Json = nlohmann::ordered_json;

struct Components {
  int32_t red, green, blue;
};

Components componentsOf(platform::Colour colour) {
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

// "#rrggbb"
std::string hexText(platform::Colour colour) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto [red, green, blue] = componentsOf(colour);
  std::string text = "#";
  for (const int32_t component : {red, green, blue}) {
    text += kDigits[static_cast<std::size_t>(component) / 16];
    text += kDigits[static_cast<std::size_t>(component) % 16];
  }
  return text;
}

// A few blanks on the colour, for terminals.
std::string swatch(platform::Colour colour) {
  const auto [red, green, blue] = componentsOf(colour);
  return "  \x1b[48;2;" + std::to_string(red) + ";" + std::to_string(green) + ";" +
         std::to_string(blue) + "m    \x1b[0m";
}

std::string rightAligned(const std::string& text, std::size_t width) {
  return std::string(width - std::min(text.size(), width), ' ') + text;
}

std::string headline(const KewVariable& variable) {
  const std::size_t count = variable.divisions.size();
  std::string text = variable.name.empty() ? "(no name)" : printable(variable.name);
  text += ": " + std::to_string(count) + (count == 1 ? " division" : " divisions");
  if (variable.ignored) {
    text += variable.name.empty() ? " (ignored: it belongs to no variable)"
                                  : " (ignored: the first key of this name counts)";
  }
  const std::string failure = failureOf(variable);
  if (!failure.empty()) text += ", then not readable: " + printable(failure);
  return text + "\n";
}

void writeDivisions(Output& output, const std::vector<KewDivision>& divisions, bool swatches) {
  std::vector<std::array<std::string, 3>> rows = {{"", "low", "high"}};
  for (const KewDivision& division : divisions) {
    rows.push_back({std::to_string(rows.size()), util::losslessText(division.low),
                    util::losslessText(division.high)});
  }
  std::array<std::size_t, 3> widths = {4, 8, 8};
  for (const auto& row : rows) {
    for (std::size_t k = 0; k < row.size(); ++k) widths[k] = std::max(widths[k], row[k].size());
  }
  for (std::size_t at = 0; at < rows.size(); ++at) {
    for (std::size_t k = 0; k < widths.size(); ++k) {
      output.write("  " + rightAligned(rows[at][k], widths[k]));
    }
    if (at == 0) {
      output.write("  colour\n");
    } else {
      const platform::Colour colour = divisions[at - 1].color;
      output.write("  " + hexText(colour) + (swatches ? swatch(colour) : "") + "\n");
    }
  }
}

void writeText(const std::vector<KewVariable>& variables) {
  Output output;
  const bool swatches = outputTakesColours();
  for (const KewVariable& variable : variables) {
    output.write(headline(variable));
    if (!variable.divisions.empty()) writeDivisions(output, variable.divisions, swatches);
  }
  output.finish();
}

Json textOrNull(const std::string& text) { return text.empty() ? Json() : Json(text); }

void writeJson(const std::string& file, const std::vector<KewVariable>& variables,
               const std::string& failure) {
  Json list = Json::array();
  for (const KewVariable& variable : variables) {
    Json divisions = Json::array();
    for (const KewDivision& division : variable.divisions) {
      divisions.push_back({{"low", asWritten(division.low)},
                           {"high", asWritten(division.high)},
                           {"color", division.color},
                           {"rgb", hexText(division.color)}});
    }
    list.push_back({{"name", variable.name},
                    {"ignored", variable.ignored},
                    {"error", textOrNull(failureOf(variable))},
                    {"divisions", divisions}});
  }
  const Json json = {{"file", withoutCredentials(file)},
                     {"error", textOrNull(withoutCredentials(failure))},
                     {"variables", list}};
  Output output;
  // A file name can be any bytes; what is not UTF-8 is replaced.
  output.write(json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
  output.finish();
}

// Why not every key that counts is what its file means; empty when every one is.
std::string brokenKeys(const std::string& file, const std::vector<KewVariable>& variables) {
  std::vector<std::string> broken;
  for (const KewVariable& variable : variables) {
    const std::string failure = failureOf(variable);
    if (!variable.ignored && !failure.empty()) {
      broken.push_back(variable.name + " (" + failure + ")");
    }
  }
  return broken.empty() ? ""
                        : file + ": keys that cannot be read to their end: " + nameList(broken);
}

}  // namespace

void listKeys(const std::string& file, KeyForm form) {
  std::vector<KewVariable> variables;
  std::string failure;
  try {
    variables = keysOf(file);
    failure = brokenKeys(file, variables);
  } catch (const Failure& error) {
    failure = error.what();
  }
  if (form == KeyForm::Json) {
    writeJson(file, variables, failure);
  } else {
    writeText(variables);
  }
  if (!failure.empty()) throw Failure(failure);
  if (variables.empty()) report("note: " + file + " has no keys.");
}

}  // namespace cli
