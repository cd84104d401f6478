#include <netcdf.h>

#include "FaultTest.h"
#include "Subprocess.h"
#include "support/NcMaker.h"

// Servers that announce or send more than anybody can want: an error, and never a crash nor a
// machine without memory.
namespace opendap_test {
namespace {

class TooMuch : public FaultTest {};

#ifdef __SANITIZE_ADDRESS__
constexpr long kMostKilobytes = 900'000;  // the sanitizer keeps what has been freed for a while
#else
constexpr long kMostKilobytes = 400'000;
#endif

TEST_F(TooMuch, AnnouncedIsRefused) {
  for (const char* fault :
       {"announce-2000000000.dds", "announce-2000000000", "announce-100000.dds",
        "announce-4294967297.dds", "announce-99999999999999999999.dds", "announce-0.dds"}) {
    desktop.messages.clear();
    EXPECT_EQ(ctl.NcFile(tiny(fault)), -1) << fault;
    EXPECT_NE(ctl.ErrorMessage(), "") << fault;
  }
  expectNextOneWorks();
}

TEST_F(TooMuch, AnnouncedInTheAnswerWithTheData) {
  for (const char* fault : {"announce-2000000000.dods.2", "announce-4294967297.dods.2"}) {
    ASSERT_EQ(ctl.NcFile(tiny(fault)), 1) << ctl.ErrorMessage();
    desktop.messages.clear();
    ctl.Draw();
    EXPECT_EQ(desktop.messages.size(), 1U) << fault;
  }
  expectNextOneWorks();
}

TEST_F(TooMuch, NestedIsRefusedOrRead) {
  for (const char* fault : {"nested-3.dds", "nested-100.dds", "nested-20000.dds"}) {
    ctl.NcFile(tiny(fault));
  }
  desktop.messages.clear();
  expectNextOneWorks();
}

// Small variables are fetched ahead, all in one request: its address is long, and not too long.
TEST_F(TooMuch, OfVariablesIsListed) {
  {
    support::NcMaker nc(data("many.nc"));
    const int time = nc.dim("time", 1), depth = nc.dim("depth", 2);
    const int lat = nc.dim("lat", 2), lon = nc.dim("lon", 3);
    const int times = nc.var("time", NC_DOUBLE, {time}), depths = nc.var("depth", NC_FLOAT, {depth});
    const int lats = nc.var("lat", NC_FLOAT, {lat}), lons = nc.var("lon", NC_FLOAT, {lon});
    nc.text(times, "units", "days since 2000-01-01");
    nc.text(depths, "units", "m");
    nc.text(lats, "units", "degrees_north");
    nc.text(lons, "units", "degrees_east");
    nc.var("temp", NC_FLOAT, {time, depth, lat, lon});
    for (int i = 0; i < 1500; ++i) nc.var("parameter" + std::to_string(i), NC_INT, {});
    nc.put(times, {0});
    nc.put(depths, {0, 10});
    nc.put(lats, {10, 11});
    nc.put(lons, {20, 21, 22});
  }
  EXPECT_EQ(draw(server.url("many.nc"), "temp", {{20.0F, 10.0F}, {22.4F, 10.0F}}), "");
  expectNextOneWorks();
}

// An answer without end is given up, by its size or by the time limit, and takes little memory.
TEST_F(TooMuch, SentIsNotKept) {
  for (const char* fault : {"endless.dds", "endless.das", "endless.dods", "endless.dods.2"}) {
    const Watch watch;
    const cli_test::Result result = cli_test::run(
        {KELVANE_PROGRAM, "values", tiny(fault), "--path", "350.5,-0.9 358,0.4"});
    EXPECT_EQ(result.status, 1) << fault << result.err;
    EXPECT_NE(result.err, "") << fault;
    EXPECT_LT(result.peakKilobytes, kMostKilobytes) << fault;
  }
}

}  // namespace
}  // namespace opendap_test
