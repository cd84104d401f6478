#include <netcdf.h>

#include <filesystem>

#include "FaultTest.h"
#include "netcdf/ncf.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"

// A data set that becomes another one while it is used.
namespace opendap_test {
namespace {

struct Shape {
  std::size_t times = 2, depths = 3, lats = 4, lons = 6;
  bool flat = false;  // temp has no levels
};

class ChangedSet : public FaultTest {
 protected:
  // A set with the variables of the tiny one, in another shape.
  void makeSet(const std::string& name, const Shape& shape) {
    support::NcMaker nc(data(name));
    const auto axis = [&](const char* axisName, std::size_t length, const char* units) {
      const int dim = nc.dim(axisName, length);
      const int var = nc.var(axisName, NC_DOUBLE, {dim});
      nc.text(var, "units", units);
      return std::pair(dim, var);
    };
    const auto time = axis("time", shape.times, "hours since 1990-01-01 00:00:00");
    const auto depth = axis("depth", shape.depths, "m");
    const auto lat = axis("lat", shape.lats, "degrees_north");
    const auto lon = axis("lon", shape.lons, "degrees_east");
    const std::vector<int> flat = {time.first, lat.first, lon.first};
    const std::vector<int> deep = {time.first, depth.first, lat.first, lon.first};
    const int temp = nc.var("temp", NC_FLOAT, shape.flat ? flat : deep);
    nc.text(temp, "units", "degC");
    const auto fill = [&](int var, std::size_t count, double first, double step) {
      std::vector<double> values;
      for (std::size_t i = 0; i < count; ++i) {
        values.push_back(first + step * static_cast<double>(i));
      }
      nc.put(var, values);
    };
    fill(time.second, shape.times, 36, 24);
    fill(depth.second, shape.depths, 0, 50);
    fill(lat.second, shape.lats, -1, 0.5);
    fill(lon.second, shape.lons, 350, 2);
    const std::size_t levels = shape.flat ? 1 : shape.depths;
    fill(temp, shape.times * levels * shape.lats * shape.lons, 0, 0.25);
  }
  // Opens "changing.nc" and draws it; then it becomes the set of another shape.
  void openThenChange(const Shape& shape) {
    makeSet("changing.nc", {});
    ASSERT_EQ(drawTiny(server.url("changing.nc")), "");
    boxes.forget();
    makeSet("next.nc", shape);
    std::filesystem::rename(data("next.nc"), data("changing.nc"));
  }
  // A step in time that fails politely, and the same data set opened anew.
  void expectStepToFail() {
    ctl.AdvanceTime(1);
    EXPECT_NE(ctl.ErrorMessage(), "");
    EXPECT_EQ(ocxNetNc::ncf.NcId, -1);
    EXPECT_EQ(drawTiny(server.url("changing.nc")), "");
  }
};

TEST_F(ChangedSet, WithFewerColumnsIsRefused) {
  openThenChange({.lons = 3});
  ctl.AdvanceTime(1);
  const std::string text = ctl.ErrorMessage();
  EXPECT_EQ(text.find(nc_strerror(ocxNetNc::ncf.NcStatus)), 0U) << text;
  EXPECT_NE(text.find("nvar, tcount= "), std::string::npos) << text;
  expectNextOneWorks();
}

TEST_F(ChangedSet, WithFewerLevelsIsRefused) {
  openThenChange({.depths = 2});
  expectStepToFail();
}

TEST_F(ChangedSet, WithFewerTimeStepsIsRefused) {
  openThenChange({.times = 1});
  expectStepToFail();
}

TEST_F(ChangedSet, WithFewerDimensionsIsRefused) {
  openThenChange({.flat = true});
  ctl.AdvanceTime(1);
  EXPECT_NE(ctl.ErrorMessage(), "");
  expectNextOneWorks();
}

TEST_F(ChangedSet, ThatHasGrownIsReadAsFarAsItWasKnown) {
  openThenChange({.times = 5, .lons = 9});
  EXPECT_EQ(ctl.AdvanceTime(1), 2);
  EXPECT_TRUE(desktop.messages.empty());
  // Value t, k, j, i of the new shape, of which the first levels of a row are shown.
  EXPECT_EQ(KelvaneMain::section_values.value(1, 1), 0.25F * (((1 * 3 + 0) * 4 + 1) * 9 + 0));
  EXPECT_EQ(KelvaneMain::section_values.value(2, 3), 0.25F * (((1 * 3 + 2) * 4 + 1) * 9 + 1));
}

// The shape is another one in the very answer that carries the values: no value may be taken.
TEST_F(ChangedSet, WithinARequestIsRefused) {
  makeSet("fewerLevels.nc", {.depths = 2});
  makeSet("moreColumns.nc", {.lons = 9});
  makeSet("noLevels.nc", {.flat = true});
  makeSet("changing.nc", {});
  for (const char* other : {"fewerLevels", "moreColumns", "noLevels"}) {
    ASSERT_EQ(ctl.NcFile(server.url(std::string("swap-") + other + ".dods.2/changing.nc")), 1)
        << ctl.ErrorMessage();
    ctl.NewSection();
    for (const auto& [lon, lat] : kTinyRow) ctl.AddSection(lon, lat);
    ASSERT_EQ(ctl.EndSection(), 1);
    desktop.messages.clear();
    ctl.Draw();
    EXPECT_EQ(desktop.messages.size(), 1U) << other;
    EXPECT_EQ(ctl.ErrorMessage().find(nc_strerror(ocxNetNc::ncf.NcStatus)), 0U) << other;
    expectNextOneWorks();
  }
}

TEST_F(ChangedSet, ThatIsGoneIsTold) {
  makeSet("changing.nc", {});
  ASSERT_EQ(drawTiny(server.url("changing.nc")), "");
  std::filesystem::remove(data("changing.nc"));
  ctl.AdvanceTime(1);
  expectToldOf(NC_ENOTFOUND, {"404", "no such data set"});
  expectNextOneWorks();
}

}  // namespace
}  // namespace opendap_test
