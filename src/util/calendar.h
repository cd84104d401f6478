#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace util {

// A calendar date: days since 30 December 1899 00:00, the fraction being the time of day.
// The count is linear: also below zero, the day is the floor and the time the remainder.
using Date = double;
inline constexpr Date kDateZero = 0.0;

struct DateParts {
  int32_t year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
};

// True inside the years 100..9999, the calendar's limits.
bool isDate(Date date);
// The date itself, or run-time error 6 when it lies outside the calendar.
Date checkedDate(double date);
// Midnight of a proleptic Gregorian day; nothing for a day that does not exist.
std::optional<Date> dateOfDay(int32_t year, int32_t month, int32_t day);
// Rounded to the nearest second; error 6 outside the calendar.
DateParts partsOf(Date date);
// "yyyy-mm-dd hh:mm:ss", independent of the locale; error 6 outside the calendar.
std::string dateText(Date date);
// Reads year-month-day with "-" or "/", day-MMM-year with an English month name, each with an
// optional time of day (hh:mm or hh:mm:ss after a blank; a "T" and what follows is dropped).
// A year below 50 means 2000 + year, 50..99 means 1900 + year, even when it is written with
// four digits. Anything else is no date.
std::optional<Date> readDate(std::string_view text);

}  // namespace util
