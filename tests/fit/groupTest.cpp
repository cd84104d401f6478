#include "FitTest.h"

// Groups of netCDF-4, of which the control sees nothing.
namespace fit_test {
namespace {

using cli_test::contains;

constexpr std::size_t kSteps = 3;

// Beside the plain set a group /run/daily with a time axis of its own, as long as kSteps, and warm
// on the levels and the grid that lie outside.
struct GroupSet : MadeSet {
  GroupSet() {
    mode = NC_NETCDF4;
    more = [this](support::NcMaker& nc, int) { define(nc); };
    moreValues = [this](support::NcMaker&) { write(); };
  }

  void define(support::NcMaker& nc) {
    int run = -1, dim = -1;
    ASSERT_EQ(nc_def_grp(nc.id(), "run", &run), NC_NOERR);
    ASSERT_EQ(nc_def_grp(run, "daily", &group), NC_NOERR);
    ASSERT_EQ(nc_def_dim(group, "time", kSteps, &dim), NC_NOERR);
    ASSERT_EQ(nc_def_var(group, "time", NC_DOUBLE, 1, &dim, &times), NC_NOERR);
    const std::string units = "days since 1990-01-01";
    ASSERT_EQ(nc_put_att_text(group, times, "units", units.size(), units.c_str()), NC_NOERR);
    // The plain set's dimensions are time, lon, lat and depth.
    const int dims[] = {dim, 3, 2, 1};
    ASSERT_EQ(nc_def_var(group, "warm", NC_FLOAT, 4, dims, &warm), NC_NOERR);
    ASSERT_EQ(nc_put_att_text(group, NC_GLOBAL, "title", 5, "inner"), NC_NOERR);
    nc.text(NC_GLOBAL, "title", "outer");
    nc.text(NC_GLOBAL, "source", "a model");
  }
  void write() const {
    const double days[kSteps] = {5, 6, 7};
    ASSERT_EQ(nc_put_var_double(group, times, days), NC_NOERR);
    std::vector<double> values(kSteps * 60);
    for (std::size_t at = 0; at < values.size(); ++at) values[at] = static_cast<double>(at);
    ASSERT_EQ(nc_put_var_double(group, warm, values.data()), NC_NOERR);
  }

  int group = -1, times = -1, warm = -1;
};

class FitGroup : public FitTest {
 protected:
  FitGroup() { GroupSet().make(in()); }
};

TEST_F(FitGroup, IsTakenWithWhatLiesAroundIt) {
  const auto result = fitMade({"--group", "run/daily"}, {"warm"});
  EXPECT_TRUE(result.out.starts_with("run/daily: taken out of its group (")) << result.out;
  const ReadSet copy(out());
  // temp lies on the outer time axis, which the inner one hides.
  EXPECT_EQ(copy.variables(), (std::vector<std::string>{"time", "depth", "lat", "lon", "warm"}));
  EXPECT_EQ(copy.dims("warm"), "time depth lat lon");
  EXPECT_EQ(copy.values("time"), (std::vector<double>{5, 6, 7}));
  EXPECT_EQ(copy.values("depth"), (std::vector<double>{0, 10, 30}));
  const std::vector<double> values = copy.values("warm");
  ASSERT_EQ(values.size(), kSteps * 60);
  for (std::size_t at = 0; at < values.size(); ++at) {
    ASSERT_EQ(values[at], static_cast<double>(at));
  }
  EXPECT_EQ(copy.text("", "title"), "inner");
  EXPECT_EQ(copy.text("", "source"), "a model");
}

TEST_F(FitGroup, ThatHoldsAnotherIsTakenWithoutIt) {
  const auto result = fitMade({"--group", "/run"});
  EXPECT_TRUE(contains(result.err, "left out: /run/daily; --group takes one.")) << result.err;
  EXPECT_FALSE(ReadSet(out()).has("warm"));
}

TEST_F(FitGroup, IsLeftOutUnlessItIsAskedFor) {
  const auto result = fitMade();
  EXPECT_TRUE(
      contains(result.err, "note: what lies in groups is left out: /run/daily; --group takes one."))
      << result.err;
  EXPECT_FALSE(ReadSet(out()).has("warm"));
}

TEST_F(FitGroup, ThatIsNotThereIsRefused) {
  EXPECT_EQ(refusalOfMade({"--group", "run/weekly"}),
            "kelvane: There is no group run/weekly.\nGroups: /run/daily\n");
  MadeSet().make(in());
  EXPECT_EQ(refusalOfMade({"--group", "run"}),
            "kelvane: There is no group run.\nThe data set has no groups with variables.\n");
}

TEST_F(FitGroup, IsNamedWhereNothingElseCanBeDrawn) {
  GroupSet set;
  set.order = "tyx";
  EXPECT_TRUE(contains(refusal(set), "\nNot looked into: groups /run/daily; --group takes one.\n"));
}

// The library counts the dimensions of a group along with those around it.
TEST_F(FitGroup, DimensionsOfGroupsMayComeBetweenOthers) {
  MadeSet set;
  set.mode = NC_NETCDF4;
  int outer = -1;
  set.more = [&](support::NcMaker& nc, int) {
    int group = -1, dim = -1;
    ASSERT_EQ(nc_def_grp(nc.id(), "run", &group), NC_NOERR);
    ASSERT_EQ(nc_def_dim(group, "member", 7, &dim), NC_NOERR);
    outer = nc.var("weight", NC_FLOAT, {nc.dim("bin", 2)});
  };
  set.moreValues = [&](support::NcMaker& nc) { nc.put(outer, {8, 9}); };
  fit(set);
  const ReadSet copy(out());
  EXPECT_EQ(copy.dims("weight"), "bin");
  EXPECT_EQ(copy.values("weight"), (std::vector<double>{8, 9}));
  expectTemp(2, 3, 4, 5, plainValue);
}

}  // namespace
}  // namespace fit_test
