#include "diagnosis/checkList.h"
#include "diagnosis/timeUnits.h"
#include "util/ocxStrings.h"

namespace cli::diagnosis {
namespace {

using Kind = TimeUnits::Kind;

// Behind the date, which ends at a blank or a T.
std::string clockOf(const TimeUnits& units) {
  const std::size_t at = units.originText.find_first_of("Tt");
  return at == std::string::npos ? units.behindOrigin : units.originText.substr(at);
}

// A time of day that is not midnight.
bool hasClock(const std::string& text) {
  for (const char digit : text) {
    if (digit >= '1' && digit <= '9') return text.find(':') != std::string::npos;
  }
  return false;
}

void warnOfOrigin(const TimeUnits& units, const std::string& name, std::vector<Warning>& warnings) {
  if (units.originText.empty()) {
    warn(warnings, "no-origin", name, "its units have no \"since\": dates count from 1899-12-30");
  } else if (!units.originRead) {
    warn(warnings, "unread-origin", name,
         "the origin " + quoted(units.originText) +
             " is not read as a date: dates count from 1899-12-30",
         Cure::Copy);
  } else {
    const std::string date = util::dateText(units.origin).substr(0, 4);
    if (units.originText.substr(0, 4) != date && units.originText.find(date) == std::string::npos) {
      warn(warnings, "two-digit-year", name,
           "the origin " + quoted(units.originText) + " is read as the year " + date +
               ": years below 100 belong to 1950 to 2049");
    }
    if (hasClock(clockOf(units))) {
      warn(warnings, "origin-clock", name,
           "the time of day of its origin is left out: dates count from midnight");
    }
  }
}

void warnOfCalendar(const Variable& time, std::vector<Warning>& warnings) {
  const std::string calendar = textOf(time.attributes, "calendar");
  const std::string plain = ocxStrings::upper(ocxStrings::trim(calendar));
  if (plain.empty() || plain == "STANDARD" || plain == "GREGORIAN" ||
      plain == "PROLEPTIC_GREGORIAN") {
    return;
  }
  warn(warnings, "calendar", time.name,
       "its calendar " + quoted(calendar) + " is not kept: dates are those of the common one");
}

}  // namespace

void warnOfTime(const Header& header, const Recognition& found, std::vector<Warning>& warnings) {
  if (found.time.variable < 0) return;
  const Variable& time = variableOf(header, found.time);
  const TimeUnits units = timeUnitsOf(keywordText(time, "UNIT"));
  if (units.kind == Kind::Months || units.kind == Kind::Seasons) {
    const bool months = units.kind == Kind::Months;
    warn(warnings, months ? "month-axis" : "season-axis", time.name,
         std::string("it counts ") + (months ? "months" : "seasons") +
             ", which have no dates: the date line of a picture shows 1899-12-30",
         units.originText.empty() ? Cure::None : Cure::Copy);
  } else if (!units.countsDates()) {
    warn(warnings, "unknown-time-unit", time.name,
         "its unit " + quoted(units.word) +
             " is not known (day, hour, minute, second, month, season are): no dates",
         Cure::Copy);
  } else {
    warnOfOrigin(units, time.name, warnings);
    warnOfCalendar(time, warnings);
  }
  for (const Variable& other : header.vars) {
    if (&other == &time || other.dims.size() != 1 || !ocxStrings::hasPrefix(other.name, "TIME") ||
        other.dims == time.dims) {
      continue;
    }
    warn(warnings, "other-time", time.name,
         "it is taken for the time axis and " + quoted(other.name) +
             " is not: the first in the data set counts");
  }
}

}  // namespace cli::diagnosis
