#include "dataSetFacts.h"

#include <algorithm>

#include "netcdf/catalogue.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "netcdf/timeAxis.h"
#include "section/drawItems.h"
#include "sectionRequest.h"
#include "util/calendar.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace cli {
namespace {

using ocxNetNc::ncf;

DataSetFacts::Axis axisOf(int32_t variable) {
  if (!ncf.NcVars.has(variable)) return {};
  return {ncf.NcVars(variable).Name, ocxStrings::trim(ncf.NcVars(variable).Unit)};
}

// Nothing when the search left the variable unknown.
std::optional<DataSetFacts::Coordinate> coordinate(int32_t variable,
                                                   const ocxNetNc::CoordinateValues& values,
                                                   float spacing) {
  if (!ncf.NcVars.has(variable)) return std::nullopt;
  const DataSetFacts::Axis axis = axisOf(variable);
  DataSetFacts::Coordinate found{axis.variable, axis.units, values.size(), 0, 0, spacing};
  if (!values.empty()) {
    found.first = values(1);
    found.last = values(values.size());
  }
  return found;
}

bool countsDates() {
  return std::ranges::any_of(
      std::initializer_list<const char*>{"DAY", "HOU", "MIN", "SEC"},
      [](const char* unit) { return ocxStrings::hasPrefix(ncf.time_unit, unit); });
}

std::string dateOfStep(int32_t step) {
  const double value = ncf.time_values(step);
  if (ocxStrings::hasPrefix(ncf.time_unit, "SEA")) return "Season " + util::generalText(value);
  if (ocxStrings::hasPrefix(ncf.time_unit, "MON")) return "Month " + util::generalText(value);
  if (!countsDates() || !util::isDate(ncf.time_origin)) return {};
  const util::Date date = ocxNetNc::TimeValueToDate(step);
  // Date zero also stands for "no date"; it is one only where the sum comes to it.
  if (date == util::kDateZero && ncf.time_origin + value != util::kDateZero) return {};
  return util::dateText(date);
}

void listTime(DataSetFacts& facts) {
  if (ncf.has_time != 1) return;
  facts.time = axisOf(ncf.time_vId);
  for (int32_t step = 1; step <= ncf.time_values.size(); ++step) {
    facts.steps.push_back({ncf.time_values(step), dateOfStep(step)});
  }
  if (!facts.steps.empty() && countsDates() && util::isDate(ncf.time_origin)) {
    facts.timeOrigin = util::dateText(ncf.time_origin);
  }
}

void listItems(DataSetFacts& facts) {
  for (const KelvaneMain::DrawItem& item : KelvaneMain::DrawItems) {
    DataSetFacts::Item listed{item.name, {}, ocxStrings::trim(item.units), {}};
    if (ncf.NcVars.has(item.variable)) {
      const ocxNetNc::NcVar& variable = ncf.NcVars(item.variable);
      listed.longName = ocxStrings::trim(variable.LongName);
      const auto count = std::clamp(variable.NDims, 0, ocxNetNc::kDimensionLimit);
      listed.dimensions.assign(variable.DimName.begin(), variable.DimName.begin() + count);
    }
    facts.items.push_back(std::move(listed));
  }
}

void noteObstacles(DataSetFacts& facts, const std::string& errorMessage) {
  // An opening that succeeded can still have left a text about the time units.
  if (!errorMessage.empty()) facts.notes.push_back(errorMessage);
  if (ncf.has_time != 1) {
    facts.notes.push_back("No time axis was found, and values are read by time step only.");
  }
  if (ncf.grid_order == 0) {
    facts.notes.push_back("The grid is one of cells; sections need longitude and latitude axes.");
    return;
  }
  if (!(ncf.dlon > 0)) {
    facts.notes.push_back("The longitudes do not run from west to east; sections need that.");
  }
  if (!(ncf.dlat > 0)) {
    facts.notes.push_back("The latitudes do not run from south to north; sections need that.");
  }
}

}  // namespace

DataSetFacts listDataSet(control::KelvaneCtl& control, const std::string& name) {
  DataSetFacts facts;
  facts.dataSet = ocxNetNc::withoutCredentials(name);
  facts.failure = openDataSet(control, name).value_or("");
  // Of all steps only the recognition fails without a text, and it ran if it found anything.
  facts.recognised = control.ErrorMessage().empty() || ncf.lon_vId > 0;
  facts.title = ocxStrings::trim(ocxNetNc::FindAttribute("title", ""));
  for (const ocxNetNc::NcDim& dimension : ncf.NcDims) {
    if (dimension.Name.empty()) continue;  // the catalogue ended before this one
    facts.dimensions.push_back({dimension.Name, dimension.Length, dimension.Unlimited == 1});
  }
  facts.longitude = coordinate(ncf.lon_vId, ncf.lon_values, ncf.dlon);
  facts.latitude = coordinate(ncf.lat_vId, ncf.lat_values, ncf.dlat);
  if (ncf.has_level == 1) facts.vertical = axisOf(ncf.level_vId);
  if (ncf.level_values.size() > 1) {
    facts.levels.assign(ncf.level_values.begin() + 1, ncf.level_values.end());
  }
  listTime(facts);
  listItems(facts);
  if (facts.failure.empty()) noteObstacles(facts, control.ErrorMessage());
  return facts;
}

}  // namespace cli
