#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// The calendars of model output.
namespace cli::fit {

enum class Calendar {
  Standard,   // Julian up to 4 October 1582, Gregorian from 15 October on
  Gregorian,  // Gregorian always
  Julian,
  NoLeap,   // 365 days a year
  AllLeap,  // 366 days a year
  Days360   // twelve months of 30 days
};

// By the names of the conventions, in any letter case; an empty name is the standard calendar.
// Nothing for a calendar that is none of these.
std::optional<Calendar> calendarOf(std::string_view name);

struct Day {
  int64_t year = 0;
  int month = 1, day = 1;
  bool operator==(const Day&) const = default;
};

int daysIn(Calendar calendar, int64_t year, int month);

// A count of days that grows by one a day; counts of one calendar can be subtracted.
int64_t countOf(Calendar calendar, Day day);
Day dayOf(Calendar calendar, int64_t count);

// The same day so many months later, or the last of its month where there is no such day.
Day monthsLater(Calendar calendar, Day day, int64_t months);

// The day of the Gregorian calendar with the same date, or the last of its month.
Day gregorianDay(Day day);

}  // namespace cli::fit
