#include "FitTest.h"

// The time axis.
namespace fit_test {
namespace {

using cli_test::contains;

class FitTime : public FitTest {};

TEST_F(FitTime, IsAddedWhereThereIsNone) {
  MadeSet set;
  set.time.withoutVariable = set.time.withoutDimension = true;
  set.order = "zyx";
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("temp"), "time depth lat lon");
  EXPECT_EQ(copy.values("time"), std::vector<double>{0});
  expectTemp(1, 3, 4, 5, plainValue);
  EXPECT_TRUE(contains(result.out, "time: added, with one step of no true date (")) << result.out;
}

TEST_F(FitTime, OfASingleValueBecomesAnAxis) {
  MadeSet set;
  set.time.values = {36};
  set.time.units = "hours since 1990-01-01";
  set.time.withoutDimension = true;
  set.order = "zyx";
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("temp"), "time depth lat lon");
  EXPECT_EQ(copy.values("time"), std::vector<double>{36});
  const auto info = kelvane({"info", out()});
  EXPECT_TRUE(contains(info.out, "1990-01-02 12:00:00")) << info.out;
}

TEST_F(FitTime, IsRenamedWithItsDimension) {
  MadeSet set;
  set.time.name = "valid_time";
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("temp"), "time depth lat lon");
  EXPECT_EQ(copy.dims("time"), "time");
}

TEST_F(FitTime, OfIntegersOf64BitsIsMadeClassic) {
  MadeSet set;
  set.mode = NC_NETCDF4;
  set.time.type = NC_INT64;
  set.time.units = "seconds since 1970-01-01";
  set.time.values = {1e9, 5e9};
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.type("time"), NC_DOUBLE);
  EXPECT_EQ(copy.values("time"), (std::vector<double>{1e9, 5e9}));
}

TEST_F(FitTime, UnitsAreRewrittenAndBoundsGoWithThem) {
  MadeSet set;
  set.time.units = "months since 1958-01-16 12:00:00";
  set.time.attributes = {{"bounds", "time_bnds"}};
  set.more = [](support::NcMaker& nc, int) {
    nc.var("time_bnds", NC_DOUBLE, {0, nc.dim("nv", 2)});
  };
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.text("time", "units"), "days since 1958-01-16");
  EXPECT_EQ(copy.values("time"), (std::vector<double>{0.5, 31.5}));
  EXPECT_FALSE(copy.has("time_bnds"));
  EXPECT_TRUE(contains(result.out, "time_bnds: left out (")) << result.out;
  const auto info = kelvane({"info", out()});
  EXPECT_TRUE(contains(info.out, "1958-02-16 12:00:00")) << info.out;
}

TEST_F(FitTime, TheCalendarOfAModelBecomesTheGregorianOneWithAWarning) {
  MadeSet set;
  set.time.units = "days since 2001-01-01";
  set.time.attributes = {{"calendar", "360_day"}};
  set.time.values = {59, 60};
  const auto result = fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.values("time"), (std::vector<double>{58, 59}));
  EXPECT_EQ(copy.text("time", "calendar"), "proleptic_gregorian");
  EXPECT_TRUE(contains(result.err, "dates that only the calendar of the data has")) << result.err;
}

TEST_F(FitTime, StepsAreCut) {
  MadeSet set;
  set.time.values = {0, 1, 2, 3, 4};
  const auto result = fit(set, {"--times", "2:3"});
  EXPECT_EQ(ReadSet(out()).values("time"), (std::vector<double>{1, 2}));
  expectTemp(2, 3, 4, 5, [](auto t, auto k, auto j, auto i) { return plainValue(t + 1, k, j, i); });
  EXPECT_TRUE(contains(result.out, "time: steps 2 to 3 of 5 (as asked for)")) << result.out;
}

TEST_F(FitTime, StepsThatAreNotThereAreRefused) {
  EXPECT_EQ(refusal({}, {"--times", "2:3"}),
            "kelvane: There is no time step 3: the data set has 2.\n");
}

TEST_F(FitTime, TheUnlimitedDimensionStaysUnlimited) {
  {
    support::NcMaker nc(in());
    const int t = nc.dim("time", NC_UNLIMITED), z = nc.dim("depth", 2);
    const int y = nc.dim("lat", 2), x = nc.dim("lon", 2);
    const int ts = nc.var("time", NC_DOUBLE, {t}), zs = nc.var("depth", NC_DOUBLE, {z});
    const int ys = nc.var("lat", NC_DOUBLE, {y}), xs = nc.var("lon", NC_DOUBLE, {x});
    const int temp = nc.var("temp", NC_DOUBLE, {t, z, y, x});
    nc.text(ts, "units", "days since 2000-01-01");
    nc.text(ys, "units", "degrees_north");
    nc.text(xs, "units", "degrees_east");
    nc.put(zs, {1, 2});
    nc.put(ys, {1, 0});
    nc.put(xs, {1, 2});
    nc.putSlab(ts, {0}, {2}, {5, 6});
    nc.putSlab(temp, {0, 0, 0, 0}, {2, 2, 2, 2},
               {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
  }
  fitMade();
  const ReadSet copy(out());
  EXPECT_TRUE(copy.unlimited("time"));
  EXPECT_EQ(copy.values("temp"),
            (std::vector<double>{2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13}));
}

TEST_F(FitTime, DatesInTextsBecomeTheAxis) {
  MadeSet set;
  set.time.name = "Time";
  set.time.withoutVariable = true;
  int texts = -1;
  set.more = [&](support::NcMaker& nc, int) {
    texts = nc.var("Times", NC_CHAR, {0, nc.dim("DateStrLen", 19)});
  };
  set.moreValues = [&](support::NcMaker& nc) {
    const std::string dates = "2000-01-24_12:00:002000-01-24_18:00:00";
    ASSERT_EQ(nc_put_var_text(nc.id(), texts, dates.c_str()), NC_NOERR);
  };
  fit(set);
  const auto info = kelvane({"info", out()});
  EXPECT_TRUE(contains(info.out, "2000-01-24 12:00:00")) << info.out;
  EXPECT_TRUE(contains(info.out, "2000-01-24 18:00:00")) << info.out;
  EXPECT_EQ(ReadSet(out()).dims("Times"), "Time DateStrLen");
}

TEST_F(FitTime, AVariableWithoutTimeIsRepeatedWhereItIsAskedFor) {
  MadeSet set;
  int depth = -1;
  set.more = [&](support::NcMaker& nc, int) { depth = nc.var("mask", NC_FLOAT, {3, 2, 1}); };
  set.moreValues = [&](support::NcMaker& nc) {
    std::vector<double> values(60);
    for (std::size_t at = 0; at < 60; ++at) values[at] = static_cast<double>(at);
    nc.put(depth, values);
  };
  const auto untouched = fit(set);
  EXPECT_TRUE(contains(untouched.err,
                       "mask(depth, lat, lon) cannot be drawn: it has no time; "
                       "--vars with its name repeats it at every step."))
      << untouched.err;
  EXPECT_EQ(ReadSet(out()).dims("mask"), "depth lat lon");
  fitMade({"--vars", "temp,mask"}, {"temp", "mask"});
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("mask"), "time depth lat lon");
  const std::vector<double> values = copy.values("mask");
  ASSERT_EQ(values.size(), 120U);
  for (std::size_t at = 0; at < 120; ++at) EXPECT_EQ(values[at], static_cast<double>(at % 60));
}

}  // namespace
}  // namespace fit_test
