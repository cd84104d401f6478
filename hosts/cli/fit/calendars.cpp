#include "fit/calendars.h"

#include <algorithm>
#include <array>
#include <string>

#include "util/ocxStrings.h"

namespace cli::fit {
namespace {

constexpr std::array kPlainMonths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
// 15 October 1582 in the count below.
constexpr int64_t kFirstGregorian = 2299161;

int64_t floorDivided(int64_t value, int64_t by) {
  const int64_t quotient = value / by;
  return value % by < 0 ? quotient - 1 : quotient;
}

bool isLeap(Calendar calendar, int64_t year) {
  const bool fourth = year % 4 == 0, century = year % 100 == 0, fourthCentury = year % 400 == 0;
  switch (calendar) {
    case Calendar::NoLeap:
    case Calendar::Days360:
      return false;
    case Calendar::AllLeap:
      return true;
    case Calendar::Julian:
      return fourth;
    case Calendar::Standard:
      return year <= 1582 ? fourth : fourth && (!century || fourthCentury);
    case Calendar::Gregorian:
      break;
  }
  return fourth && (!century || fourthCentury);
}

// Julian day numbers. Years begin in March, so that the day that leaps is the last one.
int64_t julianDayNumber(Day day, bool gregorian) {
  const int64_t year = day.month > 2 ? day.year : day.year - 1;
  const int64_t month = day.month > 2 ? day.month - 3 : day.month + 9;
  int64_t count = floorDivided(1461 * year, 4) + (153 * month + 2) / 5 + day.day + 1721117;
  if (gregorian) count += 2 - floorDivided(year, 100) + floorDivided(year, 400);
  return count;
}

Day dayOfJulianDayNumber(int64_t count, bool gregorian) {
  int64_t rest = count - 1721118;  // days since 1 March of the year 0, Julian
  int64_t year = 0;
  if (gregorian) {
    rest -= 2;
    const int64_t eras = floorDivided(rest, 146097);
    rest -= eras * 146097;
    const int64_t centuries = std::min<int64_t>(rest / 36524, 3);
    rest -= centuries * 36524;
    year = eras * 400 + centuries * 100;
  }
  const int64_t fours = floorDivided(rest, 1461);
  rest -= fours * 1461;
  const int64_t ones = std::min<int64_t>(rest / 365, 3);
  rest -= ones * 365;
  year += fours * 4 + ones;
  const int64_t month = (5 * rest + 2) / 153;
  const int64_t day = rest - (153 * month + 2) / 5 + 1;
  return {month < 10 ? year : year + 1, static_cast<int>(month < 10 ? month + 3 : month - 9),
          static_cast<int>(day)};
}

int64_t yearLength(Calendar calendar) {
  if (calendar == Calendar::Days360) return 360;
  return calendar == Calendar::AllLeap ? 366 : 365;
}

}  // namespace

std::optional<Calendar> calendarOf(std::string_view name) {
  const std::string word = ocxStrings::upper(ocxStrings::trim(name));
  if (word.empty() || word == "STANDARD" || word == "GREGORIAN") return Calendar::Standard;
  if (word == "PROLEPTIC_GREGORIAN") return Calendar::Gregorian;
  if (word == "JULIAN") return Calendar::Julian;
  if (word == "NOLEAP" || word == "365_DAY" || word == "NO_LEAP") return Calendar::NoLeap;
  if (word == "ALL_LEAP" || word == "366_DAY" || word == "ALLLEAP") return Calendar::AllLeap;
  if (word == "360_DAY" || word == "360") return Calendar::Days360;
  return std::nullopt;
}

int daysIn(Calendar calendar, int64_t year, int month) {
  if (calendar == Calendar::Days360) return 30;
  const bool leapDay = month == 2 && isLeap(calendar, year);
  return kPlainMonths[static_cast<std::size_t>(month - 1)] + (leapDay ? 1 : 0);
}

int64_t countOf(Calendar calendar, Day day) {
  if (calendar == Calendar::Gregorian) return julianDayNumber(day, true);
  if (calendar == Calendar::Julian) return julianDayNumber(day, false);
  if (calendar == Calendar::Standard) {
    const int64_t gregorian = julianDayNumber(day, true);
    return gregorian >= kFirstGregorian ? gregorian : julianDayNumber(day, false);
  }
  int64_t count = day.year * yearLength(calendar) + day.day - 1;
  for (int month = 1; month < day.month; ++month) count += daysIn(calendar, day.year, month);
  return count;
}

Day dayOf(Calendar calendar, int64_t count) {
  if (calendar == Calendar::Gregorian) return dayOfJulianDayNumber(count, true);
  if (calendar == Calendar::Julian) return dayOfJulianDayNumber(count, false);
  if (calendar == Calendar::Standard) {
    return dayOfJulianDayNumber(count, count >= kFirstGregorian);
  }
  Day day{floorDivided(count, yearLength(calendar)), 1, 1};
  int64_t rest = count - day.year * yearLength(calendar);
  while (rest >= daysIn(calendar, day.year, day.month)) {
    rest -= daysIn(calendar, day.year, day.month);
    ++day.month;
  }
  day.day = static_cast<int>(rest) + 1;
  return day;
}

Day monthsLater(Calendar calendar, Day day, int64_t months) {
  const int64_t all = day.year * 12 + day.month - 1 + months;
  Day later{floorDivided(all, 12), 1, day.day};
  later.month = static_cast<int>(all - later.year * 12) + 1;
  later.day = std::min(day.day, daysIn(calendar, later.year, later.month));
  return later;
}

Day gregorianDay(Day day) {
  day.day = std::min(day.day, daysIn(Calendar::Gregorian, day.year, day.month));
  return day;
}

}  // namespace cli::fit
