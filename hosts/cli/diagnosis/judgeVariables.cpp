#include <netcdf.h>

#include <algorithm>

#include "diagnosis/checkList.h"
#include "netcdf/ncf.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

constexpr std::size_t kFewest = 3;

// What a variable serves as, if it is one of the axes.
std::string roleOf(const Recognition& found, int variable) {
  const std::pair<const Recognition::Axis*, const char*> roles[] = {{&found.longitude, "longitude"},
                                                                    {&found.latitude, "latitude"},
                                                                    {&found.time, "time"},
                                                                    {&found.vertical, "vertical"}};
  for (const auto& [axis, role] : roles) {
    if (axis->variable == variable) return role;
  }
  return {};
}

std::string nameOf(const Header& header, int dimension) {
  return quoted(dimensionOf(header, dimension).name);
}

// Why the control does not offer a variable; empty when it does.
std::string whyNotListed(const Header& header, const Recognition& found, const Variable& variable) {
  const std::size_t rank = variable.dims.size();
  if (rank > ocxNetNc::kDimensionLimit) {
    return "it has " + std::to_string(rank) + " dimensions, where 5 are the most";
  }
  if (rank < kFewest) {
    const std::string has = rank == 0 ? "no dimension" : "only " + counted(rank, "dimension");
    return "it has " + has + ", where three or more are wanted";
  }
  if (found.vertical.variable < 0) return "the data set has no vertical axis";
  if (!has(variable, found.vertical.dimension)) {
    return "it has no level: " + nameOf(header, found.vertical.dimension) +
           " is not among its dimensions";
  }
  return {};
}

bool endsHorizontally(const Recognition& found, const std::vector<int>& dimensions) {
  const int last = dimensions[dimensions.size() - 1], before = dimensions[dimensions.size() - 2];
  const int lon = found.longitude.dimension, lat = found.latitude.dimension;
  return (last == lon && before == lat) || (last == lat && before == lon);
}

// Why no section of an item can be read; empty when it can.
std::string whyNotRead(const Header& header, const Recognition& found, const Variable& variable) {
  if (found.longitude.variable < 0 || found.latitude.variable < 0) {
    return "the data set has no longitude and latitude";
  }
  if (!found.isRegular()) return "longitude and latitude are no axes";
  if (!endsHorizontally(found, variable.dims)) {
    return "its last two dimensions are not " + nameOf(header, found.latitude.dimension) + " and " +
           nameOf(header, found.longitude.dimension);
  }
  const int level = found.vertical.dimension;
  if (level == found.longitude.dimension || level == found.latitude.dimension) {
    return "the vertical axis lies on " + nameOf(header, level) + ", which is horizontal";
  }
  if (found.time.variable < 0) return "the data set has no time axis";
  if (!has(variable, found.time.dimension)) {
    return "it has no time: " + nameOf(header, found.time.dimension) +
           " is not among its dimensions";
  }
  for (const int dimension : variable.dims) {
    if (dimensionOf(header, dimension).length == 0) {
      return nameOf(header, dimension) + " has no value yet";
    }
  }
  if (variable.type < NC_BYTE || variable.type > NC_DOUBLE) {
    return "its type " + typeName(variable.type) + " is not read";
  }
  return {};
}

}  // namespace

std::vector<VariableFinding> judgeVariables(const Header& header, const Recognition& found) {
  std::vector<VariableFinding> findings;
  for (std::size_t number = 0; number < header.vars.size(); ++number) {
    const Variable& variable = header.vars[number];
    VariableFinding finding;
    finding.name = variable.name;
    finding.type = typeName(variable.type);
    for (const int dimension : variable.dims) {
      finding.dimensions.push_back(dimensionOf(header, dimension).name);
    }
    finding.units = ocxStrings::trim(keywordText(variable, "UNIT"));
    const int id = static_cast<int>(number);
    finding.listed = std::ranges::find(found.items, id) != found.items.end();
    finding.role = roleOf(found, id);
    finding.reason = whyNotListed(header, found, variable);
    if (finding.reason.empty()) finding.reason = whyNotRead(header, found, variable);
    finding.suited = finding.reason.empty();
    if (!finding.suited && !finding.role.empty()) {
      const bool horizontal = finding.role.starts_with('l');
      finding.reason =
          horizontal ? "it holds the " + finding.role + "s" : "it is the " + finding.role + " axis";
    }
    findings.push_back(std::move(finding));
  }
  return findings;
}

}  // namespace cli::diagnosis
