#include <nlohmann/json.hpp>

#include "infoForms.h"
#include "jsonNumber.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

Json textOrNull(const std::string& text) { return text.empty() ? Json() : Json(text); }

Json coordinateJson(const std::optional<DataSetFacts::Coordinate>& coordinate) {
  if (!coordinate) return nullptr;
  Json json = {{"variable", coordinate->variable}, {"units", coordinate->units}};
  if (coordinate->count > 0) {
    json["count"] = coordinate->count;
    json["first"] = asWritten(coordinate->first);
    json["last"] = asWritten(coordinate->last);
    json["spacing"] = asWritten(coordinate->spacing);
  }
  return json;
}

Json axisJson(const std::optional<DataSetFacts::Axis>& axis) {
  if (!axis) return nullptr;
  return {{"variable", axis->variable}, {"units", axis->units}};
}

Json dimensionsJson(const DataSetFacts& facts) {
  Json list = Json::array();
  for (const DataSetFacts::Dimension& dimension : facts.dimensions) {
    list.push_back({{"name", dimension.name},
                    {"length", dimension.length},
                    {"unlimited", dimension.unlimited}});
  }
  return list;
}

Json stepsJson(const DataSetFacts& facts) {
  Json list = Json::array();
  for (const DataSetFacts::Step& step : facts.steps) {
    list.push_back(
        {{"step", list.size() + 1}, {"value", step.value}, {"date", textOrNull(step.date)}});
  }
  return list;
}

Json levelsJson(const DataSetFacts& facts) {
  Json list = Json::array();
  for (const double depth : facts.levels) {
    list.push_back({{"level", list.size() + 1}, {"depth", depth}});
  }
  return list;
}

Json itemsJson(const DataSetFacts& facts) {
  Json list = Json::array();
  for (const DataSetFacts::Item& item : facts.items) {
    list.push_back({{"item", list.size() + 1},
                    {"name", item.name},
                    {"long_name", item.longName},
                    {"units", item.units},
                    {"dimensions", item.dimensions}});
  }
  return list;
}

Json checksJson(const diagnosis::Diagnosis& diagnosis) {
  static constexpr const char* states[] = {"passed", "failed", "unreached"};
  Json list = Json::array();
  for (const diagnosis::Check& check : diagnosis.checks) {
    list.push_back({{"rule", check.rule},
                    {"title", check.title},
                    {"stage", diagnosis::stageName(check.stage)},
                    {"state", states[static_cast<std::size_t>(check.state)]},
                    {"finding", textOrNull(check.evidence.finding)},
                    {"name", textOrNull(check.evidence.name)},
                    {"value", textOrNull(check.evidence.value)},
                    {"place", textOrNull(check.evidence.place)}});
  }
  return list;
}

Json variablesJson(const diagnosis::Diagnosis& diagnosis) {
  Json list = Json::array();
  for (const diagnosis::VariableFinding& variable : diagnosis.variables) {
    list.push_back({{"name", variable.name},
                    {"type", variable.type},
                    {"units", variable.units},
                    {"dimensions", variable.dimensions},
                    {"role", textOrNull(variable.role)},
                    {"listed", variable.listed},
                    {"drawable", variable.drawable},
                    {"reason", textOrNull(variable.reason)}});
  }
  return list;
}

Json warningsJson(const diagnosis::Diagnosis& diagnosis) {
  Json list = Json::array();
  for (const diagnosis::Warning& warning : diagnosis.warnings) {
    list.push_back({{"kind", warning.kind},
                    {"names", warning.names},
                    {"text", warning.text},
                    {"mended", warning.mended}});
  }
  return list;
}

}  // namespace

std::string jsonForm(const DataSetFacts& facts, const diagnosis::Diagnosis& diagnosis) {
  Json time = axisJson(facts.time);
  if (facts.time) time["origin"] = facts.timeOrigin ? Json(*facts.timeOrigin) : Json();
  const Json json = {{"data_set", facts.dataSet},
                     {"opened", facts.failure.empty()},
                     {"error", textOrNull(facts.failure)},
                     {"recognised", facts.recognised},
                     {"title", facts.title},
                     {"dimensions", dimensionsJson(facts)},
                     {"coordinates",
                      {{"longitude", coordinateJson(facts.longitude)},
                       {"latitude", coordinateJson(facts.latitude)},
                       {"vertical", axisJson(facts.vertical)},
                       {"time", time}}},
                     {"time_steps", stepsJson(facts)},
                     {"levels", levelsJson(facts)},
                     {"items", itemsJson(facts)},
                     {"notes", facts.notes},
                     {"verdict", diagnosis::verdictName(diagnosis.verdict)},
                     {"summary", diagnosis.summary},
                     {"format", textOrNull(diagnosis.format)},
                     {"checks", checksJson(diagnosis)},
                     {"variables", variablesJson(diagnosis)},
                     {"warnings", warningsJson(diagnosis)},
                     {"command", textOrNull(diagnosis.command)},
                     {"advice", diagnosis.advice}};
  // A file name can be any bytes; what is not UTF-8 is replaced.
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace cli
