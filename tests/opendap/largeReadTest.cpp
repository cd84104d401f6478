#include <algorithm>

#include "OpendapTest.h"
#include "constraint.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"

// Sections larger than any server would send in one answer.
namespace opendap_test {
namespace {

using KelvaneMain::section_values;

// The most values that are asked for at once.
constexpr int64_t kMostValues = 1 << 20;

class LargeRead : public OpendapTest {
 protected:
  // A grid of so many longitudes and levels, two latitudes and one time step. Without its values
  // the file is small, whatever the shape.
  void makeSet(std::size_t lons, std::size_t levels, bool values) {
    support::NcMaker nc(data("wide.nc"), values ? 0 : NC_NETCDF4);
    const int time = nc.dim("time", 1), depth = nc.dim("depth", levels);
    const int lat = nc.dim("lat", 2), lon = nc.dim("lon", lons);
    const int times = nc.var("time", NC_DOUBLE, {time}), depths = nc.var("depth", NC_FLOAT, {depth});
    const int lats = nc.var("lat", NC_FLOAT, {lat}), longs = nc.var("lon", NC_FLOAT, {lon});
    nc.text(times, "units", "days since 2000-01-01");
    nc.text(depths, "units", "m");
    nc.text(lats, "units", "degrees_north");
    nc.text(longs, "units", "degrees_east");
    const int temp = nc.var("temp", NC_SHORT, {time, depth, lat, lon});
    const auto steps = [](std::size_t count, double step) {
      std::vector<double> all;
      for (std::size_t i = 0; i < count; ++i) all.push_back(step * static_cast<double>(i));
      return all;
    };
    nc.put(times, {0});
    nc.put(depths, steps(levels, 1));
    nc.put(lats, {10, 11});
    nc.put(longs, steps(lons, 0.0078125));  // exact in single precision
    if (!values) return;
    std::vector<double> numbers(lons * levels * 2);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = static_cast<double>(i * 7919 % 60013) - 30000;
    }
    nc.put(temp, numbers);
  }
};

// 20,000 columns and 200 levels: several requests, and the values of the file.
TEST_F(LargeRead, ComesInPieces) {
  makeSet(20000, 200, true);
  const std::vector<std::pair<float, float>> row = {{0.0F, 10.0F}, {156.2421875F, 10.0F}};
  ASSERT_EQ(draw(data("wide.nc"), "temp", row), "");
  ASSERT_GE(section_values.ncols(), 19999);
  ASSERT_EQ(section_values.nlevels(), 200);
  const std::vector<float> local(section_values.values().begin(), section_values.values().end());
  ASSERT_EQ(draw(server.url("wide.nc"), "temp", row), "");
  EXPECT_TRUE(std::ranges::equal(local, section_values.values()));

  int pieces = 0;
  for (const DapServer::Request& request : server.requests()) {
    if (!request.asksFor("dods") || !request.constraint.starts_with("temp")) continue;
    EXPECT_LE(valuesIn(request.constraint), kMostValues) << request.constraint;
    ++pieces;
  }
  EXPECT_GE(pieces, 4);
  EXPECT_LE(pieces, 16);
}

// More than any process can hold: told at once, and nothing of it is asked for.
TEST_F(LargeRead, BeyondAnyMemoryIsRefused) {
  ASSERT_EQ(drawTiny(tiny()), "");
  makeSet(40000, 50000, false);
  ASSERT_EQ(ctl.NcFile(server.url("wide.nc")), 1) << ctl.ErrorMessage();
  ctl.NewSection();
  ctl.AddSection(0.0F, 10.0F);
  ctl.AddSection(312.0F, 10.0F);
  ASSERT_EQ(ctl.EndSection(), 1);
  ASSERT_GE(KelvaneMain::section.ncols, 39000);
  const int before = server.count("dods");
  ctl.Draw();
  EXPECT_NE(ctl.ErrorMessage().find("Out of memory"), std::string::npos) << ctl.ErrorMessage();
  EXPECT_EQ(server.count("dods"), before);
}

}  // namespace
}  // namespace opendap_test
