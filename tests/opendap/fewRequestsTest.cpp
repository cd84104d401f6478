#include <netcdf.h>

#include <cstdint>

#include "FaultTest.h"
#include "constraint.h"
#include "netcdf/ncf.h"
#include "section/sectionPath.h"
#include "section/sectionValues.h"
#include "support/NcMaker.h"

// A path across a large grid: what is asked of the server for a picture.
namespace opendap_test {
namespace {

using KelvaneMain::section;
using KelvaneMain::section_values;
using Path = std::vector<std::pair<float, float>>;

constexpr std::size_t kLons = 1000, kLats = 120, kLevels = 50;
const Path kAcross = {{0.0F, 0.0F}, {7.8F, 0.93F}};

class FewRequests : public FaultTest {
 protected:
  void SetUp() override {
    support::NcMaker nc(data("broad.nc"));
    const int time = nc.dim("time", 2), depth = nc.dim("depth", kLevels);
    const int lat = nc.dim("lat", kLats), lon = nc.dim("lon", kLons);
    const auto axis = [&](const char* name, int dim, std::size_t count, double step,
                          const char* units) {
      const int var = nc.var(name, NC_DOUBLE, {dim});
      nc.text(var, "units", units);
      std::vector<double> values;
      for (std::size_t i = 0; i < count; ++i) values.push_back(step * static_cast<double>(i));
      return std::pair(var, values);
    };
    const auto axes = {axis("time", time, 2, 1, "days since 2000-01-01"),
                       axis("depth", depth, kLevels, 1, "m"),
                       axis("lat", lat, kLats, 0.0078125, "degrees_north"),
                       axis("lon", lon, kLons, 0.0078125, "degrees_east")};
    const int temp = nc.var("temp", NC_SHORT, {time, depth, lat, lon});
    for (const auto& [var, values] : axes) nc.put(var, values);
    std::vector<double> numbers(kLevels * kLats * kLons);
    for (std::size_t step = 0; step < 2; ++step) {
      for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = static_cast<double>((i + step) * 7919 % 60013) - 30000;
      }
      nc.putSlab(temp, {step, 0, 0, 0}, {1, kLevels, kLats, kLons}, numbers);
    }
  }
  // Bytes of the answer to a constraint "temp.temp[0][0:9]...": short integers travel as long ones.
  static int64_t bytesFor(const std::string& constraint) { return 4 * valuesIn(constraint); }
  static std::vector<float> held() {
    return {section_values.values().begin(), section_values.values().end()};
  }
  // How many requests the second time step takes along a path that the file itself and the server
  // show alike.
  std::size_t requestsOfAFrame(const Path& path) {
    EXPECT_EQ(draw(data("broad.nc"), "temp", path), "");
    const std::vector<float> local = held();
    EXPECT_EQ(draw(server.url("broad.nc"), "temp", path), "");
    EXPECT_EQ(held(), local);
    const std::size_t before = server.requests().size();
    EXPECT_EQ(ctl.AdvanceTime(1), 2);
    return server.requests().size() - before;
  }
};

TEST_F(FewRequests, MakeAFrameAlongAnyPath) {
  ASSERT_EQ(draw(data("broad.nc"), "temp", kAcross), "");
  ASSERT_EQ(section.section_kind, KelvaneMain::kGeneralPath);
  ASSERT_GE(section_values.ncols(), 1000);
  const std::vector<float> first = held();
  ctl.AdvanceTime(1);
  const std::vector<float> second = held();
  ASSERT_NE(first, second);

  ASSERT_EQ(draw(server.url("broad.nc"), "temp", kAcross), "");
  EXPECT_EQ(held(), first);
  const std::size_t before = server.requests().size();
  EXPECT_EQ(ctl.AdvanceTime(1), 2);
  EXPECT_EQ(held(), second);
  const std::vector<DapServer::Request> all = server.requests();
  EXPECT_LE(all.size() - before, 10U);
  int64_t bytes = 0;
  for (std::size_t n = before; n < all.size(); ++n) {
    if (!all[n].asksFor("dods")) continue;
    EXPECT_TRUE(all[n].constraint.starts_with("temp")) << all[n].constraint;
    EXPECT_LT(bytesFor(all[n].constraint), int64_t{16} << 20) << all[n].constraint;
    bytes += bytesFor(all[n].constraint);
  }
  // The boxes follow the path: the one around all of it would be 22 megabytes.
  EXPECT_LT(bytes, int64_t{6} << 20);
}

TEST_F(FewRequests, MakeAFrameAlongAPathOfSeveralLegs) {
  EXPECT_LE(requestsOfAFrame({{0.0F, 0.0F}, {3.9F, 0.93F}, {0.1F, 0.1F}, {7.8F, 0.9F}}), 10U);
}

TEST_F(FewRequests, AreFourForAFrameAlongARow) {
  EXPECT_EQ(requestsOfAFrame({{0.0F, 0.5F}, {7.8F, 0.5F}}), 4U);
  EXPECT_EQ(section.section_kind, KelvaneMain::kSameLatitude);
}

// A server that fails halfway is not asked again for every column; what has come before is kept.
TEST_F(FewRequests, AreNotRepeatedWhenOneFails) {
  ASSERT_NE(draw(server.url("500.dods.5/broad.nc"), "temp", kAcross), "");
  expectToldOf(NC_EDAPSVC, {"nvar, tcount= ", "The archive is being moved"});
  EXPECT_LE(server.count("dods"), 8);
  const int32_t columns = section_values.ncols();
  EXPECT_EQ(section_values.mark(1, 1), 1);
  EXPECT_EQ(section_values.mark(columns, 1), 0);
  EXPECT_EQ(ocxNetNc::ncf.NcId, -1);
  expectNextOneWorks();
}

TEST_F(FewRequests, AreNotRepeatedAfterATimeOut) {
  const Watch watch;
  ASSERT_NE(draw(server.url("stuck.dods.4/broad.nc"), "temp", kAcross), "");
  expectToldOf(NC_EIO, {"second"});
  expectNextOneWorks();
}

}  // namespace
}  // namespace opendap_test
