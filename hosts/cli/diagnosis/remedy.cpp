#include "diagnosis/remedy.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "diagnosis/checkList.h"
#include "netcdf/ncf.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using ocxStrings::hasPrefix;

// Warnings of what a fitted copy does not have any more, of those that make a picture wrong.
constexpr const char* kWrongPictures[] = {"levels-upward",   "levels-unsorted", "negative-levels",
                                          "positive-up",     "pressure-levels", "uneven-spacing",
                                          "zero-fill",       "mixed-order",     "two-missing-values",
                                          "unknown-time-unit", "unread-origin", "unsigned-values",
                                          "longitudes-backward", "attribute-prefix"};

bool isWrong(const Warning& warning) {
  return std::ranges::find(kWrongPictures, warning.kind) != std::end(kWrongPictures);
}

// A number that keeps what a path or a grid needs of it.
std::string shortNumber(double value, double spacing) {
  double unit = 1;
  while (unit > spacing / 4 && unit > 1e-6) unit /= 10;
  return util::generalText(static_cast<float>(std::round(value / unit) * unit));
}

// From one tenth of an axis to nine; the last cell reaches one spacing beyond its value.
std::pair<std::string, std::string> innerSpan(const std::vector<double>& values) {
  constexpr double margin = 0.1;
  const double spacing = spacingOf(values);
  const double from = values.front(), span = values.back() + spacing - from;
  return {shortNumber(from + margin * span, spacing),
          shortNumber(from + (1 - margin) * span, spacing)};
}

std::string drawCommand(const std::string& dataSet, const Recognition& found,
                        const Diagnosis& diagnosis) {
  const auto [west, east] = innerSpan(unwrapped(found.longitude.values));
  const auto [south, north] = innerSpan(found.latitude.values);
  std::string variable;
  for (const VariableFinding& finding : diagnosis.variables) {
    if (variable.empty() && finding.drawable) variable = finding.name;
  }
  return "kelvane draw " + shellWord(dataSet) + " --var " + shellWord(variable) + " --path \"" +
         west + "," + south + " " + east + "," + north + "\" -o section.png";
}

// The name of the copy: beside nothing, in the folder of the user.
std::string copyName(const std::string& dataSet) {
  std::string name = ocxStrings::FileNameOf(dataSet);
  const std::size_t dot = name.rfind('.');
  if (dot != std::string::npos && dot > 0) name.resize(dot);
  return name + "-fit.nc";
}

bool isLongitude(const SetHeader::Variable& variable) {
  const SetHeader::Attribute* units = variable.keyword("UNIT");
  return variable.attribute("standard_name") == "longitude" ||
         (hasPrefix(variable.name, "LON") &&
          (units == nullptr || hasPrefix(units->text, "DEGREE"))) ||
         (units != nullptr && hasPrefix(units->text, "DEGREES_EAST"));
}

bool isLatitude(const SetHeader::Variable& variable) {
  const SetHeader::Attribute* units = variable.keyword("UNIT");
  return variable.attribute("standard_name") == "latitude" ||
         (hasPrefix(variable.name, "LAT") &&
          (units == nullptr || hasPrefix(units->text, "DEGREE"))) ||
         (units != nullptr && hasPrefix(units->text, "DEGREES_NORTH"));
}

bool isTime(const SetHeader& header, int dimension) {
  if (hasPrefix(header.dimensions[static_cast<std::size_t>(dimension)].name, "TIME")) return true;
  return std::ranges::any_of(header.variables, [&](const SetHeader::Variable& variable) {
    if (variable.dimensions != std::vector<int>{dimension}) return false;
    const SetHeader::Attribute* units = variable.keyword("UNIT");
    return variable.attribute("standard_name") == "time" || hasPrefix(variable.name, "TIME") ||
           (units != nullptr && units->text.find(" since ") != std::string::npos);
  });
}

// What a copy is made from.
struct Material {
  const SetHeader::Variable* longitude = nullptr;
  const SetHeader::Variable* latitude = nullptr;
  const SetHeader::Variable* data = nullptr;  // with levels, over longitude and latitude
  std::string lacking;                        // what there is none of
};

Material materialOf(const SetHeader& header) {
  Material material;
  const auto first = [&](const auto& test) -> const SetHeader::Variable* {
    const auto at = std::ranges::find_if(header.variables, test);
    return at == header.variables.end() ? nullptr : &*at;
  };
  material.longitude = first(isLongitude);
  material.latitude = first(isLatitude);
  if (material.longitude == nullptr || material.latitude == nullptr) {
    material.lacking = std::string("it holds no ") +
                       (material.longitude == nullptr ? "longitudes" : "latitudes");
    return material;
  }
  std::set<int> places(material.longitude->dimensions.begin(), material.longitude->dimensions.end());
  places.insert(material.latitude->dimensions.begin(), material.latitude->dimensions.end());
  material.data = first([&](const SetHeader::Variable& variable) {
    constexpr int text = 2;
    if (variable.type == text) return false;
    std::size_t others = 0;
    for (const int dimension : variable.dimensions) {
      if (!places.contains(dimension) && !isTime(header, dimension)) ++others;
    }
    return others > 0 && std::ranges::all_of(places, [&](int place) { return variable.has(place); });
  });
  if (material.data == nullptr) {
    material.lacking = "no variable has levels beside longitude and latitude";
  }
  return material;
}

// A spacing of 1, 2 or 5 times a power of ten, near to the mean one of places in both directions.
std::string gridOption(const SetHeader& header, const Recognition& found,
                       const Material& material) {
  const double points = header.elementsOf(*material.longitude);
  double spacing = 1;
  const auto spanOf = [](const std::vector<double>& values) {
    const auto [low, high] = std::ranges::minmax(values);
    return high - low;
  };
  if (!found.longitude.values.empty() && !found.latitude.values.empty()) {
    const double area = std::min(spanOf(found.longitude.values), 360.0) *
                        std::min(spanOf(found.latitude.values), 180.0);
    if (area > 0 && std::isfinite(area)) spacing = std::sqrt(area / points);
  }
  const double power = std::pow(10, std::floor(std::log10(spacing)));
  const double digit = spacing / power;
  const double rounded = (digit < 1.5 ? 1 : digit < 3.5 ? 2 : digit < 7.5 ? 5 : 10) * power;
  const std::string text = util::generalText(static_cast<float>(rounded));
  return " --grid " + text + "," + text;
}

std::string selections(const SetHeader& header, const Material& material) {
  std::string options;
  const std::vector<int>& dimensions = material.data->dimensions;
  std::size_t excess = dimensions.size() > ocxNetNc::kDimensionLimit
                           ? dimensions.size() - ocxNetNc::kDimensionLimit
                           : 0;
  for (const int dimension : dimensions) {
    if (excess == 0 || isTime(header, dimension)) continue;
    options += " --select " +
               shellWord(header.dimensions[static_cast<std::size_t>(dimension)].name + "=1");
    --excess;
  }
  return options;
}

}  // namespace

std::string shellWord(const std::string& word) {
  constexpr const char* plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=,.:/@%";
  if (!word.empty() && word.find_first_not_of(plain) == std::string::npos) return word;
  std::string quotedWord = "'";
  for (const char letter : word) quotedWord += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  return quotedWord + "'";
}

void findRemedy(const std::string& dataSet, const SetHeader& header, const Recognition& found,
                Diagnosis& diagnosis) {
  const bool wrong = std::ranges::any_of(diagnosis.warnings, isWrong);
  if (diagnosis.verdict == Verdict::Drawable && !wrong) {
    diagnosis.command = drawCommand(dataSet, found, diagnosis);
    diagnosis.advice = "It can be drawn as it is:";
    return;
  }
  const Material material = materialOf(header);
  if (!material.lacking.empty()) {
    diagnosis.advice = "No command helps: " + material.lacking + ".";
    return;
  }
  std::string options = selections(header, material);
  const bool placed = found.longitude.dimension >= 0 && found.latitude.dimension >= 0;
  if (!placed) options += gridOption(header, found, material);
  diagnosis.command =
      "kelvane fit " + shellWord(dataSet) + " " + shellWord(copyName(dataSet)) + options;
  diagnosis.advice = diagnosis.verdict == Verdict::Drawable
                         ? "A fitted copy has none of what the warnings say is drawn wrongly:"
                         : "A copy that the control can draw is made by:";
}

}  // namespace cli::diagnosis
