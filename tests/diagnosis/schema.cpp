#include "schema.h"

#include <fstream>
#include <nlohmann/json.hpp>

namespace diagnosis_test {

std::set<std::string> namesInSchema(const std::string& list, const std::string& property) {
  const auto schema = nlohmann::json::parse(std::ifstream(INFO_SCHEMA));
  return schema.at("properties").at(list).at("items").at("properties").at(property).at("enum");
}

}  // namespace diagnosis_test
