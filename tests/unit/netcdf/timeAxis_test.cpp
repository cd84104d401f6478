#include "netcdf/timeAxis.h"

#include <limits>

#include "NcTest.h"
#include "util/RuntimeError.h"

namespace {

using ocxNetNc::LoadTimeAxis;
using ocxNetNc::LoadVerticalAxis;
using ocxNetNc::ncf;
using ocxNetNc::TimeValueToDate;
using support::NcMaker;

class TimeAxisTest : public NcTest {
 protected:
  // Opens a data set with one axis and makes it the time or the vertical axis.
  void openAxis(const std::string& name, nc_type type, const std::string& units,
                const std::vector<double>& values, int mode = 0) {
    ocxNetNc::NcClose();
    {
      NcMaker nc(file(), mode);
      const int dim = nc.dim(name, values.empty() ? NC_UNLIMITED : values.size());
      const int var = nc.var(name, type, {dim});
      if (!units.empty()) nc.text(var, "units", units);
      if (!values.empty() && type != NC_CHAR) nc.put(var, values);
      nc.close();
    }
    open(file());
    (name == "time" ? ncf.time_dId : ncf.level_dId) = 0;
    (name == "time" ? ncf.time_vId : ncf.level_vId) = 1;
  }
};

TEST_F(TimeAxisTest, ReadsUnitsOriginsAndDates) {
  const struct {
    const char* units;
    double value;
    const char *unit, *origin, *label, *date;
  } cases[] = {
      {"hours since 1990-01-01", 36, "hours", "1990-01-01", "1990-01-02 12:00:00",
       "1990-01-02 12:00:00"},
      {"Days Since 1990-1-1 12:00", 0.5, "Days", "1990-01-01", "1990-01-01 12:00:00",
       "1990-01-01 12:00:00"},
      {"days since 4000-01-01", 0, "days", "4000-01-01", " 2000- 1- 1 0: 0", "4000-01-01 00:00:00"},
      {"days since 4001-03-05", 0.254861111111111, "days", "4001-03-05", " 2001- 3- 5 6: 7",
       "4001-03-05 06:07:00"},
      {"days since 1-1-1 00:00:00", 711858, "days", "2001-01-01", " 1950- 1- 2 0: 0",
       "3950-01-02 00:00:00"},
      {"days since 0001-01-01", 711858, "days", "2001-01-01", " 1950- 1- 2 0: 0",
       "3950-01-02 00:00:00"},
      {"minutes since 2000-02-28", 2880, "minutes", "2000-02-28", "2000-03-01 00:00:00",
       "2000-03-01 00:00:00"},
      {"min since 2000-02-28", 1, "min", "2000-02-28", "2000-02-28 00:01:00",
       "2000-02-28 00:01:00"},
      {"seconds since 1970-01-01", 86399, "seconds", "1970-01-01", "1970-01-01 23:59:59",
       "1970-01-01 23:59:59"},
      {"seasons", 1, "seasons", "1899-12-30", "Season 1", "1899-12-30 00:00:00"},
      {"Season", 4, "Season", "1899-12-30", "Season 4", "1899-12-30 00:00:00"},
      {"months since 1990-01-01", 3, "months", "1990-01-01", "Month 3", "1899-12-30 00:00:00"},
      {"months", 1.5, "months", "1899-12-30", "Month 1.5", "1899-12-30 00:00:00"},
      {"days since foo", 1, "days", "1899-12-30", "1899-12-31 00:00:00", "1899-12-31 00:00:00"},
      {"days from 1990-01-01", 1, "days", "1899-12-30", "1899-12-31 00:00:00",
       "1899-12-31 00:00:00"},
      {"days", 1, "days", "1899-12-30", "1899-12-31 00:00:00", "1899-12-31 00:00:00"},
      {"day since 01-JAN-1950", 0, "day", "1950-01-01", "1950-01-01 00:00:00",
       "1950-01-01 00:00:00"},
      {"days since 1990-01-01, 00:00", 1, "days since 1990-01-01", "1899-12-30",
       "1899-12-31 00:00:00", "1899-12-31 00:00:00"},
      {"hours since 2999-12-31", 48, "hours", "2999-12-31", "3000-01-02 00:00:00",
       "3000-01-02 00:00:00"},
      {"hours since 3001-01-01", 6, "hours", "3001-01-01", "3001-01-01 06:00:00",
       "3001-01-01 06:00:00"},
      {"days since 3000-12-31", 0, "days", "3000-12-31", "3000-12-31 00:00:00",
       "3000-12-31 00:00:00"},
      {"days since 3001-01-01", 0, "days", "3001-01-01", " 1001- 1- 1 0: 0", "3001-01-01 00:00:00"},
      {"hours since 1850-01-01", 12, "hours", "1850-01-01", "1850-01-01 12:00:00",
       "1850-01-01 12:00:00"},
      {"days since 1900-01-01T00:00:00Z", 1, "days", "1900-01-01", "1900-01-02 00:00:00",
       "1900-01-02 00:00:00"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.units);
    openAxis("time", NC_DOUBLE, c.units, {c.value, c.value});
    ASSERT_EQ(LoadTimeAxis(), 1) << util::LastError;
    EXPECT_EQ(ncf.ntime, 2);
    EXPECT_EQ(ncf.time_values(1), c.value);
    EXPECT_EQ(ncf.time_unit, c.unit);
    EXPECT_EQ(util::dateText(ncf.time_origin), std::string(c.origin) + " 00:00:00");
    EXPECT_EQ(ncf.first_time_label, c.label);
    EXPECT_EQ(ncf.last_time_label, c.label);
    EXPECT_EQ(util::dateText(TimeValueToDate(2)), c.date);
    EXPECT_EQ(ncf.first_time, util::readDate(c.label).value_or(util::kDateZero));
    EXPECT_EQ(util::LastError, "");
  }
}

TEST_F(TimeAxisTest, ReadsEveryNumberType) {
  for (const nc_type type : {NC_SHORT, NC_INT, NC_FLOAT, NC_DOUBLE}) {
    openAxis("time", type, "days since 2000-01-01", {1, 2, 3});
    EXPECT_EQ(LoadTimeAxis(), 1);
    EXPECT_EQ(std::vector<double>(ncf.time_values.begin(), ncf.time_values.end()),
              (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(ncf.first_time_label, "2000-01-02 00:00:00");
    EXPECT_EQ(ncf.last_time_label, "2000-01-04 00:00:00");

    openAxis("depth", type, "m", {0, 50, 200});
    EXPECT_EQ(LoadVerticalAxis(), 1);
    EXPECT_EQ(ncf.nlevels, 3);
    EXPECT_EQ(ncf.level_values, (std::vector<double>{0, 0, 50, 200}));
    EXPECT_EQ(ocxNetNc::levelDepth(0), 0.0);
    EXPECT_EQ(ocxNetNc::levelDepth(3), 200.0);
    EXPECT_THROW(ocxNetNc::levelDepth(4), util::RuntimeError);
    EXPECT_THROW(ocxNetNc::levelDepth(-1), util::RuntimeError);
    ocxNetNc::NcClose();
  }
}

TEST_F(TimeAxisTest, RefusesOtherTypes) {
  for (const nc_type type : {NC_BYTE, NC_CHAR, NC_UINT}) {
    const int mode = type == NC_UINT ? NC_NETCDF4 : 0;
    const std::string number = std::to_string(type);
    openAxis("time", type, "days", {1, 2}, mode);
    EXPECT_EQ(LoadTimeAxis(), -1);
    expectQuietFailure(
        "Variable-Type of time coodrinate not expected:\n\nVariable Name = time\n\n"
        "Type Number = " +
        number);
    openAxis("depth", type, "m", {1, 2}, mode);
    EXPECT_EQ(LoadVerticalAxis(), -1);
    expectQuietFailure(
        "Variable-Type of vertical coodrinate not expected:\n\nVariable Name = depth\n\n"
        "Tyep Number = " +
        number);
  }
}

TEST_F(TimeAxisTest, GoesOnWithAnUnknownUnit) {
  openAxis("time", NC_INT, "days since 2000-01-01", {1, 2});
  ASSERT_EQ(LoadTimeAxis(), 1);
  for (const char* units : {"years since 1900-01-01", "da since 1900-01-01", ""}) {
    openAxis("time", NC_INT, units, {1, 2});
    EXPECT_EQ(LoadTimeAxis(), 1);
    expectQuietFailure(std::string("Time has no unit:\n\n") + units);
    EXPECT_EQ(ncf.first_time_label, "2000-01-02 00:00:00");
    EXPECT_EQ(TimeValueToDate(1), util::kDateZero);
    util::LastError.clear();
  }
}

TEST_F(TimeAxisTest, KeepsWhatItHasWithoutAnAxisOrSteps) {
  openAxis("time", NC_INT, "days since 2000-01-01", {1, 2});
  ASSERT_EQ(LoadTimeAxis(), 1);
  ncf.time_dId = -1;
  EXPECT_EQ(LoadTimeAxis(), 1);
  EXPECT_EQ(ncf.ntime, 2);
  openAxis("time", NC_INT, "hours", {});
  EXPECT_EQ(LoadTimeAxis(), 1);
  EXPECT_EQ(ncf.ntime, 2);
  EXPECT_EQ(ncf.time_unit, "days");

  openAxis("depth", NC_INT, "m", {5});
  ASSERT_EQ(LoadVerticalAxis(), 1);
  openAxis("depth", NC_INT, "m", {});
  EXPECT_EQ(LoadVerticalAxis(), 1);
  EXPECT_EQ(ncf.nlevels, 1);
}

TEST_F(TimeAxisTest, FailsWhenALabelLeavesTheCalendar) {
  for (const double value : {1e9, -1e9, std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()}) {
    openAxis("time", NC_DOUBLE, "days since 2000-01-01", {0, value});
    EXPECT_EQ(LoadTimeAxis(), -1);
    expectQuietFailure("[SetGeoWindow] Error: Overflow");
    EXPECT_FALSE(ocxNetNc::isOpen());
    EXPECT_EQ(TimeValueToDate(2), util::kDateZero);
  }
}

TEST_F(TimeAxisTest, HasNoDateOutsideItsSteps) {
  EXPECT_EQ(TimeValueToDate(1), util::kDateZero);
  openAxis("time", NC_INT, "days since 2000-01-01", {1, 2});
  ASSERT_EQ(LoadTimeAxis(), 1);
  for (const int32_t index : {0, -1, 3, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(TimeValueToDate(index), util::kDateZero) << index;
  }
  ncf.ntime = 9;  // as another data set might leave it
  EXPECT_EQ(TimeValueToDate(3), util::kDateZero);
  ncf.time_origin = 1e9;
  EXPECT_EQ(TimeValueToDate(1), util::kDateZero);
}

TEST_F(TimeAxisTest, RefusesAStaleVariable) {
  openAxis("time", NC_INT, "days", {1, 2});
  ncf.time_vId = 9;
  EXPECT_EQ(LoadTimeAxis(), -1);
  expectQuietFailure("[SetGeoWindow] Error: Subscript out of range");
}

TEST_F(TimeAxisTest, ReportsWhateverTheLibraryRefuses) {
  const std::pair<nc_type, void (*)(NetCDF::EntryPoints&)> calls[] = {
      {NC_SHORT, [](auto& l) { l.nc_get_var_short = kRefusal; }},
      {NC_INT, [](auto& l) { l.nc_get_var_int = kRefusal; }},
      {NC_FLOAT, [](auto& l) { l.nc_get_var_float = kRefusal; }},
      {NC_DOUBLE, [](auto& l) { l.nc_get_var_double = kRefusal; }}};
  for (const auto& [type, breakCall] : calls) {
    for (const char* axis : {"time", "depth"}) {
      SCOPED_TRACE(axis);
      NetCDF::library = NetCDF::theLibrary();
      desktop.messages.clear();
      openAxis(axis, type, "days", {1, 2});
      breakCall(NetCDF::library);
      EXPECT_EQ(axis == std::string("time") ? LoadTimeAxis() : LoadVerticalAxis(), -1);
      expectLibraryFailure("NetCDF: HDF error");
    }
  }
}

}  // namespace
