#include <algorithm>

#include "infoForms.h"
#include "terminal.h"
#include "util/numberText.h"

namespace cli {
namespace {

std::string line(std::string label, const std::string& text) {
  label.resize(13, ' ');
  return label + printable(text) + "\n";
}

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
  return text;
}

std::string bracketed(const std::string& units) {
  std::string text;
  if (!units.empty()) text.append("[").append(units).append("]");
  return text;
}

std::string numbered(std::size_t number) {
  std::string text = std::to_string(number);
  return std::string(6 - std::min<std::size_t>(text.size(), 5), ' ') + text + "  ";
}

std::string dimensionsText(const DataSetFacts& facts) {
  std::vector<std::string> parts;
  for (const DataSetFacts::Dimension& dimension : facts.dimensions) {
    parts.push_back(dimension.name + " " + util::generalText(dimension.length) +
                    (dimension.unlimited ? " (unlimited)" : ""));
  }
  return joined(parts);
}

std::string named(const std::string& variable, const std::string& units) {
  return units.empty() ? variable : variable + " " + bracketed(units);
}

std::string coordinateText(const std::optional<DataSetFacts::Coordinate>& coordinate) {
  if (!coordinate) return "not found";
  std::string text = named(coordinate->variable, coordinate->units);
  if (coordinate->count > 0) {
    text += ", " + util::generalText(coordinate->count) + " values, " +
            util::generalText(coordinate->first) + " to " + util::generalText(coordinate->last);
    if (coordinate->spacing != 0) {
      text += ", spacing " + util::generalText(coordinate->spacing);
    }
  }
  return text;
}

std::string verticalText(const DataSetFacts& facts) {
  if (!facts.vertical) return "not found";
  std::string text = named(facts.vertical->variable, facts.vertical->units);
  if (!facts.levels.empty()) {
    text += ", " + std::to_string(facts.levels.size()) + " levels, " +
            util::generalText(facts.levels.front()) + " to " +
            util::generalText(facts.levels.back());
  }
  return text;
}

std::string timeText(const DataSetFacts& facts) {
  if (!facts.time) return "not found";
  std::string text = named(facts.time->variable, facts.time->units);
  if (!facts.steps.empty()) text += ", " + std::to_string(facts.steps.size()) + " steps";
  return text;
}

std::string stepsText(const DataSetFacts& facts) {
  std::string text;
  if (facts.steps.empty()) return text;
  text += "\nTime steps";
  if (facts.timeOrigin) text += " (counted from " + *facts.timeOrigin + ")";
  text += ":\n";
  for (std::size_t at = 0; at < facts.steps.size(); ++at) {
    const DataSetFacts::Step& step = facts.steps[at];
    text += numbered(at + 1) +
            (step.date.empty() ? util::generalText(step.value) + " (no date)" : step.date) + "\n";
  }
  return text;
}

std::string levelsText(const DataSetFacts& facts) {
  std::string text;
  if (facts.levels.empty()) return text;
  text += "\nLevels:\n";
  for (std::size_t at = 0; at < facts.levels.size(); ++at) {
    text += numbered(at + 1) + util::generalText(facts.levels[at]) + "\n";
  }
  return text;
}

std::string itemsText(const DataSetFacts& facts) {
  std::string text;
  if (facts.items.empty()) return text;
  std::size_t nameWidth = 0, unitsWidth = 0;
  for (const DataSetFacts::Item& item : facts.items) {
    nameWidth = std::max(nameWidth, columnsOf(item.name));
    unitsWidth = std::max(unitsWidth, columnsOf(bracketed(item.units)));
  }
  text += "\nItems that the control offers:\n";
  for (std::size_t at = 0; at < facts.items.size(); ++at) {
    const DataSetFacts::Item& item = facts.items[at];
    text += numbered(at + 1) +
            printable(padded(item.name, nameWidth) + "  " +
                      padded(bracketed(item.units), unitsWidth) + "  " + item.longName +
                      (item.longName.empty() ? "(" : " (") + joined(item.dimensions) + ")") +
            "\n";
  }
  return text;
}

}  // namespace

std::string textForm(const DataSetFacts& facts) {
  if (!facts.failure.empty() && facts.dimensions.empty()) return {};
  std::string text = line("Data set:", facts.dataSet);
  text += line("Title:", facts.title.empty() ? "(none)" : facts.title);
  text += line("Dimensions:", dimensionsText(facts));
  if (facts.recognised) {
    text += line("Longitude:", coordinateText(facts.longitude));
    text += line("Latitude:", coordinateText(facts.latitude));
    text += line("Vertical:", verticalText(facts));
    text += line("Time:", timeText(facts));
  }
  for (const std::string& note : facts.notes) text += line("Note:", note);
  return text + stepsText(facts) + levelsText(facts) + itemsText(facts);
}

}  // namespace cli
