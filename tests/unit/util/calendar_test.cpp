#include "util/calendar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "util/RuntimeError.h"

namespace {

TEST(Calendar, CountsDaysFromItsZero) {
  EXPECT_EQ(util::dateOfDay(1899, 12, 30), 0.0);
  EXPECT_EQ(util::dateOfDay(1900, 1, 1), 2.0);
  EXPECT_EQ(util::dateOfDay(1970, 1, 1), 25569.0);
  EXPECT_EQ(util::dateOfDay(1990, 1, 1), 32874.0);
  EXPECT_EQ(util::dateOfDay(100, 1, 1), -657434.0);
  EXPECT_EQ(util::dateOfDay(9999, 12, 31), 2958465.0);
}

TEST(Calendar, KnowsTheDaysThatExist) {
  EXPECT_TRUE(util::dateOfDay(2000, 2, 29));
  EXPECT_TRUE(util::dateOfDay(1904, 2, 29));
  const int32_t missing[][3] = {{1900, 2, 29}, {2001, 2, 29}, {2000, 2, 30}, {2000, 13, 1},
                                {2000, 0, 1},  {2000, 1, 0},  {2000, 1, 32}, {2000, 4, 31},
                                {99, 1, 1},    {10000, 1, 1}, {2000, -1, 1}, {2000, 1, 257}};
  for (const auto& day : missing) {
    EXPECT_FALSE(util::dateOfDay(day[0], day[1], day[2]))
        << day[0] << " " << day[1] << " " << day[2];
  }
}

TEST(Calendar, WritesDatesToTheNearestSecond) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "1899-12-30 00:00:00"},
      {32875.5, "1990-01-02 12:00:00"},
      {25569.0 + 86399.0 / 86400.0, "1970-01-01 23:59:59"},
      {25569.0 + 86399.6 / 86400.0, "1970-01-02 00:00:00"},
      {1.0 / 3.0, "1899-12-30 08:00:00"},
      {-0.5, "1899-12-29 12:00:00"},
      {-18259.5, "1850-01-01 12:00:00"},
      {-657434.0, "0100-01-01 00:00:00"},
      // halves to even
      {0.5 / 24 / 60 / 60, "1899-12-30 00:00:00"},
      {1.5 / 24 / 60 / 60, "1899-12-30 00:00:02"},
      {2.5 / 24 / 60 / 60, "1899-12-30 00:00:02"},
      {2958465.999, "9999-12-31 23:58:34"}};
  for (const auto& [date, text] : cases) {
    ASSERT_TRUE(util::isDate(date)) << text;
    EXPECT_EQ(util::dateText(date), text);
  }
}

TEST(Calendar, EndsAtTheYears100And9999) {
  const double outside[] = {-657434.001,
                            2958466.0,
                            2958465.999999,
                            1e300,
                            -1e300,
                            std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::infinity()};
  for (const double date : outside) {
    SCOPED_TRACE(date);
    EXPECT_FALSE(util::isDate(date));
    EXPECT_THROW(util::dateText(date), util::RuntimeError);
    EXPECT_THROW(util::partsOf(date), util::RuntimeError);
    try {
      util::checkedDate(date);
      ADD_FAILURE() << "accepted";
    } catch (const util::RuntimeError& error) {
      EXPECT_EQ(error.number(), util::kOverflow);
    }
  }
  EXPECT_EQ(util::checkedDate(12.5), 12.5);
}

TEST(ReadDate, AcceptsTheKnownForms) {
  const std::pair<const char*, const char*> cases[] = {
      {"1990-01-02", "1990-01-02 00:00:00"},
      {"1990-1-2", "1990-01-02 00:00:00"},
      {"1990/01/02", "1990-01-02 00:00:00"},
      {" 1990-01-02 ", "1990-01-02 00:00:00"},
      {"1990-01-02 12:34", "1990-01-02 12:34:00"},
      {"1990-01-02 12:34:56", "1990-01-02 12:34:56"},
      {"1990-01-02T23:59:59Z", "1990-01-02 00:00:00"},
      {" 2001- 3- 5 6: 7", "2001-03-05 06:07:00"},
      {" 1950- 1- 2 0: 0", "1950-01-02 00:00:00"},
      {"01-JAN-1950", "1950-01-01 00:00:00"},
      {"1-oct-1950", "1950-10-01 00:00:00"},
      {"15-August-2001 06:00", "2001-08-15 06:00:00"},
      {"01-MAY-49", "2049-05-01 00:00:00"},
      {"1-1-1", "2001-01-01 00:00:00"},
      {"0001-01-01", "2001-01-01 00:00:00"},
      {"0-1-1", "2000-01-01 00:00:00"},
      {"49-1-1", "2049-01-01 00:00:00"},
      {"50-1-1", "1950-01-01 00:00:00"},
      {"0099-12-31", "1999-12-31 00:00:00"},
      {"100-1-1", "0100-01-01 00:00:00"},
      {"9999-12-31", "9999-12-31 00:00:00"},
      {"2000-02-29", "2000-02-29 00:00:00"}};
  for (const auto& [text, expected] : cases) {
    const std::optional<util::Date> date = util::readDate(text);
    ASSERT_TRUE(date) << "[" << text << "]";
    EXPECT_EQ(util::dateText(*date), expected) << "[" << text << "]";
  }
}

TEST(ReadDate, RefusesEverythingElse) {
  for (const char* text : {"",
                           " ",
                           "foo",
                           "1990",
                           "1990-01",
                           "1990-13-01",
                           "1990-02-30",
                           "1990-00-01",
                           "1990-01-00",
                           "19900-01-01",
                           "1990-01/02",
                           "1990-01-02x",
                           "1990-01-02 25:00",
                           "1990-01-02 12",
                           "1990-01-02 12:60",
                           "1990-01-02 12:00:60",
                           "1990-01-02 12:00 UTC",
                           "-1990-01-02",
                           "01-XXX-1950",
                           "01/JAN/1950",
                           "01-JAN",
                           "30-FEB-2000",
                           "1990-001-01",
                           "1990-01-02,",
                           "Season 1",
                           "12:00:00",
                           "99999999999-1-1"}) {
    EXPECT_FALSE(util::readDate(text)) << "[" << text << "]";
  }
}

TEST(ReadDate, ReadsEveryDateTextBack) {
  for (const double date : {0.0, 32875.5, -18261.25, -657434.0, 2958465.5, 36583.0}) {
    EXPECT_EQ(util::readDate(util::dateText(date)), date);
  }
}

}  // namespace
