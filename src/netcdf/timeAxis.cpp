#include "netcdf/timeAxis.h"

#include <optional>
#include <span>

#include "netcdf/ncf.h"
#include "netcdf/routine.h"
#include "netcdf/wholeVariable.h"
#include "util/RuntimeError.h"
#include "util/lastError.h"
#include "util/numberText.h"
#include "util/ocxStrings.h"

namespace ocxNetNc {
namespace {

constexpr int32_t kLastPlainYear = 3000;
constexpr int32_t kYearShift = 2000;

// The kind of a time unit: the first three letters of its word.
std::string kindOfUnit() { return ocxStrings::upper(ncf.time_unit.substr(0, 3)); }

// A time value as days, the unit's divisions one after another; nothing for a unit that is no
// part of a day.
std::optional<double> daysOf(double value, const std::string& kind) {
  if (kind == "DAY") return value;
  if (kind == "HOU") return value / 24;
  if (kind == "MIN") return value / 24 / 60;
  if (kind == "SEC") return value / 24 / 60 / 60;
  return std::nullopt;
}

// Origins written with a year below 100 are read as 1950..2049, so that what was meant to be
// "since year 1" ends far in the future; such labels get their two thousand years back.
std::string withoutYearShift(const std::string& label) {
  const std::optional<util::Date> date = util::readDate(label);
  if (!date) return label;
  const util::DateParts parts = util::partsOf(*date);
  if (parts.year <= kLastPlainYear) return label;
  const auto number = [](int32_t value) {
    return util::signReservingText(static_cast<double>(value));
  };
  return number(parts.year - kYearShift) + "-" + number(parts.month) + "-" + number(parts.day) +
         number(parts.hour) + ":" + number(parts.minute);
}

std::string labelOf(double value, const std::string& kind) {
  if (kind == "SEA") return "Season " + util::generalText(value);
  if (kind == "MON") return "Month " + util::generalText(value);
  const std::string label =
      util::dateText(util::checkedDate(ncf.time_origin + daysOf(value, kind).value()));
  return kind == "DAY" ? withoutYearShift(label) : label;
}

void readUnit(const std::string& units) {
  ncf.time_origin = util::kDateZero;
  ncf.time_unit = ocxStrings::FieldText(units, 1);
  if (ocxStrings::upper(ocxStrings::FieldText(units, 2)) != "SINCE") return;
  ncf.time_origin = util::readDate(ocxStrings::FieldText(units, 3)).value_or(util::kDateZero);
}

void makeLabels(const std::string& units) {
  const std::string kind = kindOfUnit();
  if (kind == "SEA" || kind == "MON" || daysOf(0, kind)) {
    ncf.first_time_label = labelOf(ncf.time_values(1), kind);
    ncf.last_time_label = labelOf(ncf.time_values(ncf.ntime), kind);
  } else {
    util::LastError = joinPieces({"Time has no unit:", units});
  }
  ncf.first_time = util::readDate(ncf.first_time_label).value_or(util::kDateZero);
}

void requireRoom(int32_t values) {
  if (values > kMostElements) util::raise(util::kOutOfMemory);
}

int32_t loadTime() {
  if (ncf.time_dId == -1 || dimensionLength(ncf.time_dId) < 1) return 1;
  ncf.ntime = dimensionLength(ncf.time_dId);
  requireRoom(ncf.ntime);
  // Before the reading: what fails there must not leave the values of an earlier data set.
  ncf.time_values.assign(ncf.ntime);
  readAxis(ncf.time_vId, {ncf.time_values.begin(), ncf.time_values.end()},
           "Variable-Type of time coodrinate not expected:", "Type Number = ");
  const std::string& units = ncf.NcVars(ncf.time_vId).Unit;
  readUnit(units);
  makeLabels(units);
  return 1;
}

int32_t loadLevels() {
  if (ncf.level_dId == -1 || dimensionLength(ncf.level_dId) < 1) return 1;
  ncf.nlevels = dimensionLength(ncf.level_dId);
  requireRoom(ncf.nlevels);
  ncf.level_values.assign(static_cast<std::size_t>(ncf.nlevels) + 1, 0.0);  // 0: the column's top
  readAxis(ncf.level_vId, std::span(ncf.level_values).subspan(1),
           "Variable-Type of vertical coodrinate not expected:", "Tyep Number = ");
  return 1;
}

}  // namespace

int32_t LoadTimeAxis() { return runRoutine("SetGeoWindow", loadTime) < 0 ? -1 : 1; }
int32_t LoadVerticalAxis() { return runRoutine("SetGeoWindow", loadLevels) < 0 ? -1 : 1; }

util::Date TimeValueToDate(int32_t index) {
  if (index > ncf.ntime || !ncf.time_values.has(index)) return util::kDateZero;
  const std::optional<double> days = daysOf(ncf.time_values(index), kindOfUnit());
  if (!days || !util::isDate(ncf.time_origin)) return util::kDateZero;
  const double date = ncf.time_origin + *days;
  return util::isDate(date) ? date : util::kDateZero;
}

}  // namespace ocxNetNc
