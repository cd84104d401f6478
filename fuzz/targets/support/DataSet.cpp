#include "targets/support/DataSet.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace fuzz {
namespace {

std::string anyName(Input& input) {
  static constexpr const char* kNames[] = {
      "lon",       "lat",          "time",       "depth",         "temp",        "zeta",
      "icell",     "jcell",        "ncell",      "level",         "x",           "y",
      "units",     "scale_factor", "add_offset", "missing_value", "valid_range", "long_name",
      "_FillValue"};
  const uint8_t got = input.byte();
  // No name is empty or holds a zero byte.
  if (got == '"') return "_" + std::string(input.text(NC_MAX_NAME - 1).c_str());
  return kNames[got % std::size(kNames)];
}

std::string anyText(Input& input) {
  static constexpr const char* kTexts[] = {"degrees_east",
                                           "degrees_north",
                                           "days since 1990-01-01",
                                           "hours since 1-JAN-1970 00:00",
                                           "months",
                                           "m",
                                           "seconds since 2000-01-01T00:00:00Z"};
  const uint8_t got = input.byte();
  if (got == '"') return input.text();
  return kTexts[got % std::size(kTexts)];
}

nc_type anyType(Input& input) {
  const int32_t got = input.choice(16);
  return got <= NC_STRING ? got : NC_FLOAT;
}

std::vector<Attribute> anyAttributes(Input& input) {
  std::vector<Attribute> made(static_cast<std::size_t>(input.choice(18)) % 6);
  if (input.choice(64) == 63) made.resize(20);
  for (Attribute& one : made) {
    one.name = anyName(input);
    one.type = input.coin() ? anyType(input) : NC_CHAR;
    if (one.type == NC_CHAR) {
      one.text = anyText(input);
    } else {
      one.numbers.resize(static_cast<std::size_t>(input.choice(4)));
      for (double& number : one.numbers) number = input.real();
    }
  }
  return made;
}

int anyDimension(const DataSet& set, Input& input) {
  return input.choice(static_cast<int32_t>(std::max<std::size_t>(set.dimensions.size(), 1)));
}

}  // namespace

std::size_t anyLength(Input& input) {
  const int32_t got = input.choice(32);
  if (got < 26) return static_cast<std::size_t>(got);
  return std::array<std::size_t, 6>{std::size_t{1} << 27,
                                    std::size_t{1} << 31,
                                    (std::size_t{1} << 32) + 3,
                                    std::size_t{1} << 62,
                                    100,
                                    40}[static_cast<std::size_t>(got - 26)];
}

DataSet regularDataSet() {
  const auto units = [](const char* text) {
    return std::vector<Attribute>{{"units", NC_CHAR, text, {}}};
  };
  return {{{"lon", 6}, {"lat", 5}, {"depth", 3}, {"time", 2}},
          {{"lon", NC_FLOAT, {0}, units("degrees_east")},
           {"lat", NC_DOUBLE, {1}, units("degrees_north")},
           {"depth", NC_FLOAT, {2}, units("m")},
           {"time", NC_DOUBLE, {3}, units("days since 1990-01-01")},
           {"temp", NC_FLOAT, {3, 2, 1, 0}, units("degC")}},
          {},
          3};
}

void changeDataSet(DataSet& set, Input& input) {
  switch (input.choice(8)) {
    case 0:
      set.dimensions.push_back({anyName(input), anyLength(input)});
      break;
    case 1:
      if (set.dimensions.empty()) break;
      set.dimensions[static_cast<std::size_t>(anyDimension(set, input))] = {anyName(input),
                                                                            anyLength(input)};
      break;
    case 2: {
      Variable variable{anyName(input), anyType(input), {}, {}};
      for (int32_t left = input.choice(8); left > 0; --left) {
        variable.dimensions.push_back(anyDimension(set, input));
      }
      variable.attributes = anyAttributes(input);
      set.variables.push_back(variable);
      break;
    }
    case 3:
      set.attributes = anyAttributes(input);
      break;
    case 4:
      set.unlimited = input.choice(6) - 1;
      break;
    default: {
      if (set.variables.empty()) break;
      Variable& variable = set.variables[static_cast<std::size_t>(
          input.choice(static_cast<int32_t>(set.variables.size())))];
      if (input.coin()) variable.attributes = anyAttributes(input);
      if (input.coin()) variable.type = anyType(input);
      if (input.coin()) variable.name = anyName(input);
      if (input.coin() && !variable.dimensions.empty()) {
        variable.dimensions[0] = anyDimension(set, input);
      }
      break;
    }
  }
}

}  // namespace fuzz
