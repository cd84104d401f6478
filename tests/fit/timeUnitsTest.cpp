#include <gtest/gtest.h>

#include "fit/calendars.h"
#include "fit/timeUnits.h"
#include "fit/units.h"

// Times, without files.
namespace fit_test {
namespace {

using cli::fit::Calendar;
using cli::fit::Day;
using cli::fit::TimeUnits;

struct Case {
  const char* units;
  const char* calendar;
  std::vector<double> values;
  const char* expectedUnits;  // empty: nothing to change
  std::vector<double> expected;
};

class FittedTimeUnits : public testing::TestWithParam<Case> {};

TEST_P(FittedTimeUnits, MeanTheSameToTheControl) {
  const Case& each = GetParam();
  const TimeUnits fitted = cli::fit::fitTimeUnits(each.units, each.calendar, each.values);
  EXPECT_EQ(fitted.units, each.expectedUnits);
  EXPECT_EQ(fitted.values, each.expected);
  EXPECT_EQ(fitted.reason.empty(), fitted.units.empty());
}

const std::vector<Case> kCases = {
    // As they are.
    {"days since 1950-01-01", "", {1, 2.5}, "", {}},
    {"hours since 1990-1-1", "gregorian", {36}, "", {}},
    {"Seconds since 1970-01-01 00:00:00", "proleptic_gregorian", {5}, "", {}},
    {"minutes since 1-JAN-1990", "", {5}, "", {}},
    {"month", "", {1, 2}, "", {}},
    {"season", "", {1, 2}, "", {}},
    {"", "", {1, 2}, "", {}},
    // Clock times and zones are not read.
    {"hours since 1990-01-01 12:00:00", "", {0, 6}, "hours since 1990-01-01", {12, 18}},
    {"days since 1950-01-01 06:00", "standard", {1}, "days since 1950-01-01", {1.25}},
    {"hours since 1990-01-01 00:00:00 -3:00", "", {0}, "hours since 1990-01-01", {3}},
    // Units that the control does not know.
    {"h since 1990-01-01", "", {12}, "days since 1990-01-01", {0.5}},
    {"milliseconds since 1990-01-01", "", {86400000}, "days since 1990-01-01", {1}},
    {"weeks since 1990-01-01", "", {1}, "days since 1990-01-01", {7}},
    {"months since 1990-01-15", "", {0, 1, 2.5}, "days since 1990-01-15", {0, 31, 74.5}},
    {"seasons since 1990-01-15", "", {0, 1, 4}, "days since 1990-01-15", {0, 90, 365}},
    {"years since 2000-02-29", "", {0, 1, 4}, "days since 2000-02-29", {0, 365, 1461}},
    {"day as %Y%m%d.%f", "proleptic_gregorian", {19000102.5}, "days since 1900-01-01", {1.5}},
    // Origins that the control would take for others: two digits, and the Julian calendar.
    {"days since 0001-01-01", "proleptic_gregorian", {693595.25}, "days since 1900-01-01", {0.25}},
    {"days since 1-1-1 00:00:00", "", {693597}, "days since 1900-01-01", {0}},
    // A comma would make another text of the units.
    {"days since 1990-01-01, 00:00", "", {1}, "", {}},
    // Years that the control's calendar does not have.
    {"hours since 0000-01-01", "", {24}, "hours since 2000-01-01", {24}},
    // Other calendars keep the dates.
    {"days since 2000-01-01", "noleap", {58, 59, 365}, "days since 2000-01-01", {58, 60, 366}},
    {"days since 2001-01-01", "all_leap", {59, 60}, "days since 2001-01-01", {58, 59}},
    {"days since 2001-01-01", "360_day", {58, 359}, "days since 2001-01-01", {58, 363}},
    {"days since 2000-01-01", "julian", {1}, "days since 2000-01-01", {1}},
};

INSTANTIATE_TEST_SUITE_P(Fit, FittedTimeUnits, testing::ValuesIn(kCases));

TEST(FittedTimeUnits, TellOfUnitsThatAreNoCountSinceADate) {
  EXPECT_EQ(cli::fit::fitTimeUnits("month", "", {1}).notes.size(), 1U);
  EXPECT_EQ(cli::fit::fitTimeUnits("furlongs", "", {1}).notes.size(), 1U);
  EXPECT_EQ(cli::fit::fitTimeUnits("days since 2000-01-01", "", {1}).notes.size(), 0U);
  EXPECT_EQ(cli::fit::fitTimeUnits("days since 2000-01-01", "martian", {1}).notes.size(), 0U);
}

TEST(FitCalendars, CountOnAndBack) {
  for (const Calendar calendar : {Calendar::Standard, Calendar::Gregorian, Calendar::Julian,
                                  Calendar::NoLeap, Calendar::AllLeap, Calendar::Days360}) {
    const int64_t first = cli::fit::countOf(calendar, {-5, 3, 1});
    Day before = cli::fit::dayOf(calendar, first - 1);
    for (int64_t count = first; count < first + 800000; ++count) {
      const Day day = cli::fit::dayOf(calendar, count);
      ASSERT_EQ(cli::fit::countOf(calendar, day), count)
          << day.year << " " << day.month << " " << day.day;
      const bool next =
          day.year == before.year && day.month == before.month && day.day == before.day + 1;
      const bool begins = day.day == 1 || (calendar == Calendar::Standard && day.day == 15 &&
                                           day.year == 1582 && before.day == 4);
      ASSERT_TRUE(next || begins) << day.year << " " << day.month << " " << day.day;
      before = day;
    }
  }
}

TEST(FitCalendars, KnowTheirDays) {
  EXPECT_EQ(cli::fit::countOf(Calendar::Gregorian, {2000, 1, 1}), 2451545);
  EXPECT_EQ(cli::fit::countOf(Calendar::Standard, {1582, 10, 15}), 2299161);
  EXPECT_EQ(cli::fit::countOf(Calendar::Standard, {1582, 10, 4}), 2299160);
  EXPECT_EQ(cli::fit::countOf(Calendar::Julian, {-4712, 1, 1}), 0);
  EXPECT_EQ(cli::fit::daysIn(Calendar::Gregorian, 1900, 2), 28);
  EXPECT_EQ(cli::fit::daysIn(Calendar::Julian, 1900, 2), 29);
}

TEST(FitUnits, AreThoseOfTheLibrary) {
  EXPECT_EQ(cli::fit::conversion("km", "m")->factor, 1000);
  EXPECT_EQ(cli::fit::conversion("hPa", "Pa")->factor, 100);
  EXPECT_FALSE(cli::fit::conversion("m", "Pa"));
  EXPECT_FALSE(cli::fit::conversion("nonsense", "m"));
  EXPECT_FALSE(cli::fit::conversion("", "m"));
  EXPECT_EQ(cli::fit::readOrigin("1850-01-01 06:00:00")->day, (Day{1850, 1, 1}));
  EXPECT_EQ(cli::fit::readOrigin("1850-01-01 06:00:00")->seconds, 21600);
  EXPECT_EQ(cli::fit::readOrigin("2000-1-1T00:00:30Z")->seconds, 30);
  EXPECT_FALSE(cli::fit::readOrigin("yesterday"));
}

}  // namespace
}  // namespace fit_test
