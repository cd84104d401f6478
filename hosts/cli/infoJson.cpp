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

}  // namespace

std::string jsonForm(const DataSetFacts& facts) {
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
                     {"notes", facts.notes}};
  // A file name can be any bytes; what is not UTF-8 is replaced.
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace cli
