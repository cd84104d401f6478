#include "fit/roles.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "fit/units.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

using ocxStrings::upper;

bool isOne(const std::string& text, std::initializer_list<std::string_view> list) {
  return std::ranges::find(list, std::string_view(text)) != list.end();
}

bool startsWithOne(const std::string& text, std::initializer_list<std::string_view> list) {
  return std::ranges::any_of(list, [&](std::string_view start) { return text.starts_with(start); });
}

std::string unitsOf(const Variable& variable) {
  return upper(ocxStrings::trim(textOf(variable.attributes, "units")));
}

std::string standardName(const Variable& variable) {
  return ocxStrings::trim(textOf(variable.attributes, "standard_name"));
}

std::string axisOf(const Variable& variable) {
  return upper(ocxStrings::trim(textOf(variable.attributes, "axis")));
}

// Coordinates that are turned against the earth's are none of the earth's.
bool isRotated(const Variable& variable) {
  const std::string name = standardName(variable);
  return name.starts_with("grid_") || name.starts_with("projection_");
}

bool hasAngle(const Variable& variable) {
  const std::string units = unitsOf(variable);
  return units.empty() || startsWithOne(units, {"DEG", "RAD"});
}

// "degrees_east", "degree_E", "deg_E" and all others that are seen.
bool hasUnitsToward(const Variable& variable, const std::string& direction) {
  const std::string units = unitsOf(variable), letter = direction.substr(0, 1);
  if (units == "DEG_" + letter) return true;
  for (const std::string start : {"DEGREES", "DEGREE"}) {
    for (const std::string& end : {"_" + direction, " " + direction, "_" + letter, letter}) {
      if (units == start + end) return true;
    }
  }
  return false;
}

bool namesPosition(const Variable& variable, std::string_view part, std::string_view whole) {
  const std::string name = upper(variable.name);
  return name == part || name.starts_with(whole) || name == "NAV_" + std::string(part) ||
         name.starts_with(std::string(part) + "_") || name == "X" + std::string(whole) ||
         name == "C" + std::string(part) || name == "T" + std::string(part) ||
         name == "G" + std::string(part) || (name.starts_with(part) && name.size() <= 5);
}

// The words for one of the two horizontal coordinates.
struct Position {
  const char *direction, *standardName, *part, *whole;
};

bool isPosition(const Variable& variable, const Position& words) {
  if (variable.type == NC_CHAR || isRotated(variable)) return false;
  if (hasUnitsToward(variable, words.direction)) return true;
  return hasAngle(variable) && (standardName(variable) == words.standardName ||
                                namesPosition(variable, words.part, words.whole));
}

bool isCount(const std::string& units) {
  return units.empty() || isOne(units, {"1", "LEVEL", "LEVELS", "LAYER", "LAYERS", "COUNT", "-",
                                        "NONE", "UNITLESS", "DIMENSIONLESS", "MODEL_LEVEL"});
}

}  // namespace

bool isRadians(const std::string& units) { return ocxStrings::hasPrefix(units, "RAD"); }

bool isLongitude(const Variable& variable) {
  return isPosition(variable, {"EAST", "longitude", "LON", "LONG"});
}

bool isLatitude(const Variable& variable) {
  return isPosition(variable, {"NORTH", "latitude", "LAT", "LATI"});
}

bool isTime(const Variable& variable) {
  if (variable.type == NC_CHAR) return false;
  const std::string units = unitsOf(variable), name = standardName(variable);
  if (isOne(name, {"forecast_reference_time", "forecast_period"})) return false;
  if (units.find(" SINCE ") != std::string::npos || units.find("AS %Y") != std::string::npos) {
    return true;
  }
  return name == "time" || axisOf(variable) == "T" ||
         (upper(variable.name).starts_with("TIME") && !units.starts_with("DEG"));
}

Vertical verticalOfName(const std::string& dimension) {
  const std::string name = upper(dimension);
  if (startsWithOne(name, {"DEPTH", "DEEP"}) ||
      isOne(name, {"Z_T", "Z_W", "ZT", "ZC", "Z", "ZLEV", "ST_OCEAN", "SW_OCEAN", "OLEVEL"})) {
    return Vertical::Depth;
  }
  if (startsWithOne(name, {"HEIGHT", "ALTITUDE", "ALT"})) return Vertical::Height;
  if (startsWithOne(name, {"PLEV", "PRES", "ISOBARIC", "LV_ISBL"})) return Vertical::Pressure;
  if (startsWithOne(name, {"SIGMA", "S_RHO", "S_W", "SIGLAY", "SIGLEV", "SC_R"})) {
    return Vertical::Sigma;
  }
  if (startsWithOne(name, {"LEV", "LAYER", "ILEV", "HYB", "BOTTOM_TOP", "NLEV", "MLEV", "NZ", "LV_",
                           "RLEVEL", "VERT", "ZAX", "Z_", "K_", "NVERT"}) ||
      isOne(name, {"K", "KM", "KK", "Z0", "Z1"}) || name.find("LEVEL") != std::string::npos) {
    return Vertical::Level;
  }
  return Vertical::None;
}

Vertical verticalOf(const Variable& variable) {
  if (variable.type == NC_CHAR || isLongitude(variable) || isLatitude(variable)) {
    return Vertical::None;
  }
  const std::string units = textOf(variable.attributes, "units"), name = standardName(variable);
  const std::string positive = upper(ocxStrings::trim(textOf(variable.attributes, "positive")));
  const Vertical named = verticalOfName(variable.name);
  const bool vertical = axisOf(variable) == "Z" || positive == "UP" || positive == "DOWN";
  if (name.find("sigma") != std::string::npos || name.starts_with("ocean_s_coordinate")) {
    return Vertical::Sigma;
  }
  if (name.starts_with("depth")) return Vertical::Depth;
  if (name.starts_with("height") || name == "altitude") return Vertical::Height;
  if (name == "air_pressure" || name == "sea_water_pressure") return Vertical::Pressure;
  if (startsWithOne(name, {"model_level", "atmosphere_hybrid", "ocean_", "atmosphere_ln"})) {
    return named == Vertical::None ? Vertical::Level : named;
  }
  if (axisOf(variable) == "X" || axisOf(variable) == "Y" || axisOf(variable) == "T") {
    return Vertical::None;
  }
  if (named == Vertical::None && !vertical) {
    return conversion(units, "Pa") ? Vertical::Pressure : Vertical::None;
  }
  if (named == Vertical::Sigma) return named;
  if (!isCount(upper(units)) && conversion(units, "Pa")) return Vertical::Pressure;
  if (!isCount(upper(units)) && conversion(units, "m")) {
    if (positive == "UP" || named == Vertical::Height) return Vertical::Height;
    return Vertical::Depth;
  }
  if (named != Vertical::None && named != Vertical::Depth) return named;
  return isCount(upper(units)) && named != Vertical::Depth ? Vertical::Level : Vertical::Depth;
}

bool soundsLikeTime(const std::string& dimension) {
  const std::string name = upper(dimension);
  return name.starts_with("TIME") ||
         isOne(name, {"T", "VALID_TIME", "MONTH", "STEP", "OCEAN_TIME", "RECORD", "DATE"});
}

}  // namespace cli::fit
