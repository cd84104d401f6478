#include "fit/timeUnits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "fit/units.h"
#include "util/calendar.h"
#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

constexpr double kSecondsADay = 86400.0;

struct Moment {
  Day day;
  double seconds = 0;
};

// "UNIT since DATE" in its two parts.
struct Parts {
  std::string unit, origin;
};

std::optional<Parts> split(const std::string& units) {
  const std::size_t at = ocxStrings::upper(units).find(" SINCE ");
  if (at == std::string::npos) return std::nullopt;
  return Parts{ocxStrings::trim(units.substr(0, at)), ocxStrings::trim(units.substr(at + 7))};
}

// Months and years are those of the calendar, not twelfths of the sun's.
int monthsOf(const std::string& unit) {
  const std::string word = ocxStrings::upper(unit);
  if (word.starts_with("MONTH") || word == "MON") return 1;
  if (word.starts_with("SEASON")) return 3;
  if (word.starts_with("YEAR") || word == "YR" || word == "COMMON_YEAR" || word == "COMMON_YEARS") {
    return 12;
  }
  return 0;
}

Moment after(Calendar calendar, const Origin& origin, double seconds) {
  const double all = origin.seconds + seconds;
  const double days = std::floor(all / kSecondsADay);
  return {dayOf(calendar, countOf(calendar, origin.day) + static_cast<int64_t>(days)),
          all - days * kSecondsADay};
}

Moment monthsAfter(Calendar calendar, const Origin& origin, double months) {
  const double whole = std::floor(months);
  const auto count = static_cast<int64_t>(whole);
  const Origin begin{monthsLater(calendar, origin.day, count), origin.seconds};
  const Day end = monthsLater(calendar, origin.day, count + 1);
  const auto length = static_cast<double>(countOf(calendar, end) - countOf(calendar, begin.day));
  return after(calendar, begin, (months - whole) * length * kSecondsADay);
}

// "day as %Y%m%d.%f": the digits are the date.
std::optional<std::vector<Moment>> ofDigits(const std::vector<double>& values) {
  std::vector<Moment> moments;
  for (const double value : values) {
    const double whole = std::floor(value);
    const auto digits = static_cast<int64_t>(whole);
    const Day day{digits / 10000, static_cast<int>(digits / 100 % 100),
                  static_cast<int>(digits % 100)};
    if (digits < 101 || day.month < 1 || day.month > 12 || day.day < 1 || day.day > 31) {
      return std::nullopt;
    }
    moments.push_back({day, std::round((value - whole) * kSecondsADay)});
  }
  return moments;
}

// The factor from days to the unit, of the units that the control knows.
std::optional<double> partsOfDay(const std::string& unit) {
  const std::string kind = ocxStrings::upper(unit.substr(0, 3));
  if (kind == "DAY") return 1.0;
  if (kind == "HOU") return 24.0;
  if (kind == "MIN") return 1440.0;
  if (kind == "SEC") return 86400.0;
  return std::nullopt;
}

std::string originText(const Day& day) {
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%04lld-%02d-%02d", static_cast<long long>(day.year),
                day.month, day.day);
  return text.data();
}

int64_t gregorian(const Day& day) { return countOf(Calendar::Gregorian, gregorianDay(day)); }

// The same origin as the control reads it.
bool readsAlike(const std::string& units, const Origin& origin) {
  const auto date = util::readDate(ocxStrings::FieldText(units, 3));
  const bool words = ocxStrings::upper(ocxStrings::FieldText(units, 2)) == "SINCE";
  const bool inside = origin.day.year >= 100 && origin.day.year <= 9999;
  return words && inside && date && origin.seconds == 0.0 &&
         *date == static_cast<double>(gregorian(origin.day) -
                                      countOf(Calendar::Gregorian, {1899, 12, 30}));
}

// The control counts months and seasons, but gives them no dates.
bool isNumbered(const std::string& unit) {
  return ocxStrings::hasPrefix(unit, "MON") || ocxStrings::hasPrefix(unit, "SEA");
}

struct Written {
  std::string unit = "days";
  double aDay = 1;
  Day origin{1900, 1, 1};
};

// Years that the control's calendar does not have are moved by whole cycles of 400 years.
int64_t yearShift(const std::vector<Moment>& moments, const Origin& origin) {
  int64_t first = origin.day.year, last = origin.day.year;
  if (!moments.empty()) {
    const auto [low, high] = std::ranges::minmax_element(
        moments, {}, [](const Moment& moment) { return moment.day.year; });
    first = low->day.year;
    last = high->day.year;
  }
  if (first < 100) return 2000;
  if (last > 9999) return -((last - 9999 + 399) / 400) * 400;
  return 0;
}

TimeUnits write(const std::vector<Moment>& moments, const Written& wanted, int64_t shift) {
  TimeUnits fitted;
  fitted.units = wanted.unit + " since " + originText(wanted.origin);
  const int64_t base = gregorian(wanted.origin);
  bool clipped = false;
  for (const Moment& moment : moments) {
    Day day = moment.day;
    day.year += shift;
    clipped = clipped || gregorianDay(day) != day;
    const auto days = static_cast<double>(gregorian(day) - base);
    fitted.values.push_back(days * wanted.aDay + moment.seconds * wanted.aDay / kSecondsADay);
  }
  if (clipped) {
    fitted.notes.emplace_back(
        "dates that only the calendar of the data has, like 30 February, became the last day of "
        "their month.");
  }
  if (shift != 0) {
    fitted.notes.push_back("years were moved by " + std::to_string(shift) +
                           ": the control's calendar has the years 100 to 9999.");
  }
  return fitted;
}

std::string reasonOf(const std::string& unit, Calendar calendar, int64_t shift,
                     const Origin& origin) {
  if (isNumbered(unit)) return "the control has no dates for months and seasons";
  if (!partsOfDay(unit)) return "not known to the control";
  if (calendar != Calendar::Standard && calendar != Calendar::Gregorian) {
    return "the control has the Gregorian calendar only";
  }
  if (shift != 0) return "years outside of the control's calendar";
  return origin.seconds != 0.0 ? "the control counts from midnight"
                               : "the control would read another origin";
}

TimeUnits unknown(const std::string& units) {
  TimeUnits same;
  if (isNumbered(units)) {
    same.notes.emplace_back("steps are numbered months or seasons, not dates.");
  } else {
    same.notes.push_back(units.empty() ? "there are no units; steps have no dates."
                                       : "the units \"" + units +
                                             "\" are no count since a date; steps have no dates.");
  }
  return same;
}

}  // namespace

TimeUnits fitTimeUnits(const std::string& units, const std::string& calendarName,
                       const std::vector<double>& values) {
  const std::optional<Calendar> calendar = calendarOf(calendarName);
  const Calendar taken = calendar.value_or(Calendar::Standard);
  if (ocxStrings::upper(units).find(" AS %Y%M%D") != std::string::npos) {
    const auto moments = ofDigits(values);
    if (!moments) return unknown(units);
    TimeUnits fitted = write(*moments, {}, yearShift(*moments, {{1900, 1, 1}, 0}));
    fitted.reason = "not known to the control";
    return fitted;
  }
  const std::optional<Parts> parts = split(units);
  const std::optional<Origin> origin = parts ? readOrigin(parts->origin) : std::nullopt;
  if (!origin) return unknown(units);
  const int months = monthsOf(parts->unit);
  const auto seconds = conversion(parts->unit, "s");
  if (months == 0 && !seconds) return unknown(units);

  std::vector<Moment> moments;
  for (const double value : values) {
    moments.push_back(months > 0 ? monthsAfter(taken, *origin, value * months)
                                 : after(taken, *origin, value * seconds->factor));
  }
  const int64_t shift = yearShift(moments, *origin);
  const std::optional<double> known = partsOfDay(parts->unit);
  const bool usual = taken == Calendar::Standard || taken == Calendar::Gregorian;
  // The count of days is the same up to the gap of 1582 only.
  const bool modern = taken == Calendar::Gregorian ||
                      countOf(Calendar::Standard, origin->day) == gregorian(origin->day);
  if (known && usual && modern && shift == 0 && readsAlike(units, *origin)) return {};

  Written wanted;
  if (known) {
    wanted.unit = parts->unit;
    wanted.aDay = *known;
  }
  if (shift == 0 && origin->day.year >= 100) wanted.origin = gregorianDay(origin->day);
  if (shift > 0) wanted.origin = {2000, 1, 1};
  TimeUnits fitted = write(moments, wanted, shift);
  fitted.reason = reasonOf(parts->unit, taken, shift, *origin);
  if (!calendar) fitted.notes.push_back("the calendar \"" + calendarName + "\" is not known.");
  if (!usual) {
    fitted.notes.push_back("dates of the calendar \"" + calendarName +
                           "\" became the same dates of the Gregorian one.");
  }
  return fitted;
}

std::optional<std::vector<double>> daysOfTexts(const std::vector<std::string>& texts) {
  const int64_t base = countOf(Calendar::Gregorian, {1900, 1, 1});
  std::vector<double> days;
  for (std::string text : texts) {
    std::ranges::replace(text, '_', ' ');
    const auto origin = readOrigin(text);
    if (!origin) return std::nullopt;
    days.push_back(static_cast<double>(gregorian(origin->day) - base) +
                   origin->seconds / kSecondsADay);
  }
  return days;
}

}  // namespace cli::fit
